#pragma once

#include "platform/remote.h"

#include <QDBusObjectPath>
#include <QVariantMap>

#include <cstdint>

/// The properties that MPRIS 2 has for a player, from what the player tells. Pure; any thread.
namespace platform::mpris {

/// Those of `org.mpris.MediaPlayer2`.
QVariantMap rootProperties();

/// Those of `org.mpris.MediaPlayer2.Player` whose changes are told, all but the position.
QVariantMap playerProperties(const RemoteState& state);

/// The name of the track that was started; the one for none while nothing plays.
QDBusObjectPath trackOf(const RemoteState& state);

/// Those of `now` that differ from `before`.
QVariantMap changes(const QVariantMap& before, const QVariantMap& now);

/// The bus counts microseconds.
inline constexpr std::int64_t microseconds = 1000; ///< in a millisecond

} // namespace platform::mpris
