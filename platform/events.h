#pragma once

#include "platform/types.h"

#include <cstdint>
#include <functional>

/// The event loop of the one interface thread.
namespace platform {

/// Starts a periodic timer of `milliseconds` (1 or more). Ticks run from the event loop, also
/// inside menus, dialogs, message boxes and yields, and also when a tick itself opened those.
/// Ticks that could not run are not queued up: one waits at most.
TimerHandle startTimer(std::uint32_t milliseconds, std::function<void()> tick);

/// Stops a timer; no tick of it runs afterwards, not even one that waits.
void stopTimer(TimerHandle timer);

/// Handles every event that is waiting, then returns.
void yieldToEvents();

/// Runs events until `endProcess` or `leaveEventLoop`. Returns the exit status.
int runEvents();

/// Ends `runEvents` once the handlers now running have returned.
void leaveEventLoop(int status);

/// Ends the process at once, without another event.
[[noreturn]] void endProcess(int status);

/// Shows the fatal message, as a message box and on standard error. The caller ends the process.
void fatalMessage(const char* text);

} // namespace platform
