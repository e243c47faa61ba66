#include "toolkit/event_loop.h"

#include "platform/events.h"

namespace toolkit {

void yieldToEvents() { platform::yieldToEvents(); }

void yieldInDrag() {
    constexpr int deepest = 16;
    static int depth = 0;
    if (depth == deepest) return;
    struct Level {
        Level() { ++depth; }
        ~Level() { --depth; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;
    };
    const Level level;
    platform::yieldToEvents();
}

void endProgram() { platform::endProcess(0); }

void leaveEventLoop() { platform::leaveEventLoop(0); }

} // namespace toolkit
