#include "platform/simulated/events.h"

#include "platform/simulated/misuse.h"
#include "platform/simulated/window_state.h"
#include "platform/simulated/world.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <utility>

namespace simulated {
namespace {

constexpr std::uint64_t Patience = 3'600'000; ///< ms after which a wait counts as endless
constexpr std::uint64_t NoLimit = std::numeric_limits<std::uint64_t>::max();

/// Earlier first; of two that are due together, planned actions go before ticks and the older
/// timer before the younger, as input goes before timers on a desktop.
struct Next {
    std::uint64_t due = 0;
    bool isTimer = false;
    std::size_t index = 0;
};

std::optional<Next> nextPlanned(std::uint64_t latest, std::uint64_t orderLimit) {
    std::optional<Next> best;
    std::uint64_t bestOrder = 0;
    for (std::size_t i = 0; i < world.events.queue.size(); ++i) {
        const Events::Planned& planned = world.events.queue[i];
        if (planned.due > latest || planned.order >= orderLimit) continue;
        const bool earlier = !best || planned.due < best->due ||
                             (planned.due == best->due && planned.order < bestOrder);
        if (!earlier) continue;
        best = Next{planned.due, false, i};
        bestOrder = planned.order;
    }
    return best;
}

std::optional<Next> nextTimer(std::uint64_t latest) {
    std::optional<Next> best;
    for (std::size_t i = 0; i < world.events.timers.size(); ++i) {
        const std::uint64_t due = world.events.timers[i].due;
        if (due <= latest && (!best || due < best->due)) best = Next{due, true, i};
    }
    return best;
}

std::optional<Next> next(std::uint64_t latest, std::uint64_t orderLimit = NoLimit) {
    const std::optional<Next> planned = nextPlanned(latest, orderLimit);
    const std::optional<Next> timer = nextTimer(latest);
    if (!planned) return timer;
    if (!timer) return planned;
    return timer->due < planned->due ? timer : planned;
}

void runTick(std::size_t index) {
    Events::Timer& timer = world.events.timers[index];
    // Ticks that were missed are made up for by one: the schedule goes on from the present.
    const std::uint64_t missed = (world.events.now - timer.due) / timer.interval;
    timer.due += (missed + 1) * timer.interval;
    const std::function<void()> tick = timer.tick; // the tick may stop its own timer
    tick();
}

void runPlanned(std::size_t index) {
    const std::function<void()> action = std::move(world.events.queue[index].action);
    world.events.queue.erase(world.events.queue.begin() + static_cast<std::ptrdiff_t>(index));
    action();
}

void handle(const Next& event) {
    // What is late runs now, what is to come takes the clock along.
    world.events.now = std::max(world.events.now, event.due);
    world.events.idleYields = 0;
    if (event.isTimer)
        runTick(event.index);
    else
        runPlanned(event.index);
}

/// Handles what was waiting at the start; what those handlers add waits for the next time.
void handleWaiting() {
    const std::uint64_t present = world.events.now;
    const std::uint64_t orderLimit = world.events.planned;
    while (const std::optional<Next> event = nextPlanned(present, orderLimit))
        handle(*event);
    std::vector<platform::TimerHandle> due;
    for (const Events::Timer& timer : world.events.timers)
        if (timer.due <= present) due.push_back(timer.handle);
    for (const platform::TimerHandle handleOfTimer : due) {
        const auto& timers = world.events.timers;
        for (std::size_t i = 0; i < timers.size(); ++i) {
            if (timers[i].handle != handleOfTimer || timers[i].due > world.events.now) continue;
            handle(Next{timers[i].due, true, i});
            break;
        }
    }
}

} // namespace

std::uint64_t now() { return world.events.now; }

void advance(std::uint64_t milliseconds) {
    const std::uint64_t target = world.events.now + milliseconds;
    // Handlers that sleep take the clock past the target; what came due meanwhile runs too.
    while (const std::optional<Next> event = next(std::max(target, world.events.now))) {
        if (world.events.now > target + Patience) misuse("ticks that sleep longer than they wait");
        if (event->due > world.events.now) paintWaiting();
        handle(*event);
    }
    paintWaiting();
    world.events.now = std::max(world.events.now, target);
    world.events.idleYields = 0;
}

void run() {
    handleWaiting();
    paintWaiting();
}

void after(std::uint64_t milliseconds, std::function<void()> action) {
    world.events.queue.push_back(
        {world.events.now + milliseconds, world.events.planned++, std::move(action)});
}

void post(std::function<void()> action) { after(0, std::move(action)); }

void setTimeOfDay(std::int32_t hours, std::int32_t minutes, std::int32_t seconds) {
    constexpr std::uint64_t day = 86'400'000;
    const std::int64_t wanted = ((hours * 60LL + minutes) * 60LL + seconds) * 1000LL;
    if (wanted < 0 || wanted >= static_cast<std::int64_t>(day)) misuse("no such time of day");
    const std::uint64_t sinceStart = world.events.now % day;
    world.events.midnight = (static_cast<std::uint64_t>(wanted) + day - sinceStart) % day;
}

void runUntil(const std::function<bool()>& done, const char* what) {
    std::uint64_t limit = world.events.now + Patience;
    while (!done()) {
        const std::optional<Next> event = next(NoLimit);
        if (!event || event->due > limit) misuse(std::string(what) + " waits for ever");
        if (event->due > world.events.now) paintWaiting();
        if (!event->isTimer) limit = std::max(limit, event->due + Patience);
        handle(*event);
    }
    paintWaiting();
}

} // namespace simulated

namespace platform {

using simulated::world;

void yieldToEvents() {
    constexpr std::uint32_t endless = 100'000;
    if (++world.events.idleYields > endless)
        simulated::misuse("a loop of yields waits for an event that nothing will send");
    simulated::run();
}

int runEvents() {
    world.events.leaving = false;
    simulated::runUntil([] { return world.events.leaving; }, "the event loop");
    return world.events.leaveStatus;
}

void leaveEventLoop(int status) {
    world.events.leaving = true;
    world.events.leaveStatus = status;
}

void endProcess(int status) {
    simulated::note("end of the process " + std::to_string(status));
    throw simulated::ProcessEnded{status};
}

void fatalMessage(const char* text) {
    world.messages.fatal.emplace_back(text);
    simulated::note(std::string("fatal message \"") + text + '"');
    const simulated::Disabled disabled(simulated::allWindows());
    simulated::run();
    simulated::runNextScript(world.messages.scripts);
}

} // namespace platform
