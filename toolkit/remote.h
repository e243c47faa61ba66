#pragma once

#include "platform/remote.h"

#include <cstdint>
#include <functional>

/// The desktop's media keys and the like.
namespace toolkit::Remote {

using Events = platform::RemoteEvents;
using Request = platform::RemoteRequest;
using State = platform::RemoteState;
using Status = platform::RemoteStatus;

/// Lets the desktop ask. `state` is looked at after every event of the program, and told where it
/// has changed. Both are dropped by `Withdraw`.
void Offer(Events events, std::function<State()> state);
void Withdraw();

/// Tells of a jump to another place in the track, ms.
void TellSeek(std::int32_t position);

} // namespace toolkit::Remote
