#include "platform/events.h"

#include "platform/simulated/world.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace platform {

using simulated::world;

TimerHandle startTimer(std::uint32_t milliseconds, std::function<void()> tick) {
    if (milliseconds == 0) simulated::misuse("a timer of 0 ms");
    const TimerHandle handle = ++world.events.lastTimer;
    world.events.timers.push_back(
        {handle, milliseconds, world.events.now + milliseconds, std::move(tick)});
    return handle;
}

void stopTimer(TimerHandle timer) {
    if (timer <= 3000 || timer > world.events.lastTimer) simulated::misuse("no such timer");
    std::erase_if(world.events.timers, [&](const auto& one) { return one.handle == timer; });
}

} // namespace platform
