#pragma once

#include "platform/events.h"

#include <cstdint>
#include <functional>
#include <vector>

/// The virtual clock and the event loop. Time stands still unless a test advances it or the code
/// under test sleeps; real time plays no part.
namespace simulated {

/// Thrown by `platform::endProcess`, in place of the end.
struct ProcessEnded {
    int status = 0;
};

/// Milliseconds since the world was built.
std::uint64_t now();

/// Lets time pass: runs timer ticks and everything planned by `after`, each at its own time.
void advance(std::uint64_t milliseconds);

/// Handles what is waiting now, as an idle event loop does. No time passes.
void run();

/// Plans `action` for the event loop, some time from now. It runs where the loop runs: in
/// `advance`, and inside yields, menus, dialogs and message boxes.
void after(std::uint64_t milliseconds, std::function<void()> action);

/// Plans `action` for the next time that the event loop runs.
void post(std::function<void()> action);

/// Sets the local time of day. It moves with the clock.
void setTimeOfDay(std::int32_t hours, std::int32_t minutes, std::int32_t seconds);

/// The clock and what waits for it.
struct Events {
    struct Timer {
        platform::TimerHandle handle = 0;
        std::uint64_t interval = 0;
        std::uint64_t due = 0;
        std::function<void()> tick;
    };
    struct Planned {
        std::uint64_t due = 0;
        std::uint64_t order = 0;
        std::function<void()> action;
    };

    std::uint64_t now = 0;
    std::uint64_t midnight = 0; ///< clock time of day at 0 ms, in milliseconds
    std::uint64_t planned = 0;  ///< how many actions were ever planned
    std::int32_t lastTimer = 3000;
    std::uint32_t idleYields = 0; ///< yields since time or an event last moved on
    bool leaving = false;
    int leaveStatus = 0;
    std::vector<std::uint32_t> sleeps; ///< every `Sleep`, in order
    std::vector<Timer> timers;
    std::vector<Planned> queue;
};

/// Runs events, time passing as needed, until `done`. Fails the test when nothing but timers is
/// left to happen for an hour.
void runUntil(const std::function<bool()>& done, const char* what);

} // namespace simulated
