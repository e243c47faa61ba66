#include "tests/contract/world.h"

#include <QApplication>
#include <QSessionManager>

#include <doctest/doctest.h>

#include <functional>
#include <utility>

using namespace platform;

namespace {

/// A hidden window that counts how often it is asked to close.
struct Counting {
    int asked = 0;
    WindowHandle handle = 0;

    Counting() {
        WindowOptions options;
        options.size = {10, 10};
        WindowEvents events;
        events.closing = [this] { ++asked; };
        handle = createWindow(options, std::move(events));
    }
    Counting(const Counting&) = delete;
    Counting& operator=(const Counting&) = delete;
    ~Counting() { destroyWindow(handle); }
};

/// As the desktop does when its session ends. The player never looks at the manager, which only Qt
/// can make.
void endSession() {
    alignas(QSessionManager) static char nobody[sizeof(QSessionManager)] = {};
    emit qApp->commitDataRequest(reinterpret_cast<QSessionManager&>(nobody));
}

/// Runs the event loop, lets this happen in it, and gives the loop's status. Nothing happens twice.
int statusOfLoopWith(const std::function<void()>& deed) {
    bool done = false;
    const contract::Timer once(10, [&] {
        if (!std::exchange(done, true)) deed();
    });
    return runEvents();
}

} // namespace

TEST_CASE("the end of the session closes the first window and then leaves the event loop") {
    const Counting first;
    const Counting second;
    CHECK(statusOfLoopWith(endSession) == 0);
    CHECK(first.asked == 1);
    CHECK(second.asked == 0);
}
