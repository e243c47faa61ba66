#include "platform/events.h"
#include "platform/system.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <cstdint>

using contract::Timer;

TEST_CASE("a timer ticks again and again") {
    int ticks = 0;
    const Timer timer(20, [&] { ++ticks; });
    CHECK(contract::waitUntil([&] { return ticks >= 3; }));
}

TEST_CASE("a timer never ticks before its time") {
    const std::uint64_t start = contract::clock();
    std::uint64_t first = 0;
    const Timer timer(200, [&] {
        if (first == 0) first = contract::clock();
    });
    REQUIRE(contract::waitUntil([&] { return first != 0; }));
    // A platform's timer may be a few milliseconds coarse.
    CHECK(first - start >= 190);
}

TEST_CASE("ticks run inside a yield") {
    int ticks = 0;
    const Timer timer(20, [&] { ++ticks; });
    platform::Sleep(60);
    CHECK(ticks == 0);
    CHECK(contract::waitUntil([&] {
        platform::yieldToEvents();
        return ticks > 0;
    }));
}

TEST_CASE("a stopped timer ticks no more, not even a tick that waits") {
    int ticks = 0;
    Timer timer(20, [&] { ++ticks; });
    platform::Sleep(60);
    timer.stop();
    contract::letPass(100);
    CHECK(ticks == 0);
}

TEST_CASE("a tick may stop its own timer") {
    int ticks = 0;
    Timer* self = nullptr;
    Timer timer(20, [&] {
        ++ticks;
        self->stop();
    });
    self = &timer;
    REQUIRE(contract::waitUntil([&] { return ticks > 0; }));
    contract::letPass(100);
    CHECK(ticks == 1);
}

TEST_CASE("ticks that a sleep held up are not made up for") {
    int ticks = 0;
    const Timer timer(50, [&] { ++ticks; });
    platform::Sleep(1000);
    platform::yieldToEvents();
    // One waited; a second may have fallen due while that one ran.
    CHECK(contract::waitUntil([&] { return ticks >= 1; }));
    CHECK(ticks <= 2);
}

TEST_CASE("ticks go on while a menu is open") {
    const contract::Window window;
    platform::showWindow(window.handle, true);
    int ticks = 0;
    contract::keepNextMenuOpen();
    const Timer timer(20, [&] {
        if (++ticks >= 3) contract::closeWhatIsOpen();
    });
    CHECK(platform::popupMenu(window.handle, {{"One", 1, {}}, {"Two", 2, {}}}) == 0);
    CHECK(ticks >= 3);
}

TEST_CASE("ticks go on while a message box is open") {
    int ticks = 0;
    contract::keepNextMessageOpen();
    const Timer timer(20, [&] {
        if (++ticks >= 3) contract::closeWhatIsOpen();
    });
    platform::messageBox("Text", "Title", platform::MessageIcon::None);
    CHECK(ticks >= 3);
}

TEST_CASE("a timer goes on ticking inside a message box that its own tick opened") {
    int ticks = 0;
    bool closed = false;
    contract::keepNextMessageOpen();
    const Timer timer(20, [&] {
        ++ticks;
        if (ticks == 1) {
            platform::messageBox("Text", "Title", platform::MessageIcon::Critical);
            closed = true;
        }
        if (ticks >= 3) contract::closeWhatIsOpen();
    });
    CHECK(contract::waitUntil([&] { return closed; }));
    CHECK(ticks >= 3);
}

TEST_CASE("a timer goes on ticking inside a menu that its own tick opened") {
    const contract::Window window;
    platform::showWindow(window.handle, true);
    int ticks = 0;
    bool closed = false;
    contract::keepNextMenuOpen();
    const Timer timer(20, [&] {
        ++ticks;
        if (ticks == 1) {
            CHECK(platform::popupMenu(window.handle, {{"One", 1, {}}}) == 0);
            closed = true;
        }
        if (ticks >= 3) contract::closeWhatIsOpen();
    });
    CHECK(contract::waitUntil([&] { return closed; }));
    CHECK(ticks >= 3);
}

TEST_CASE("the event loop runs until a handler leaves it") {
    int ticks = 0;
    const Timer timer(20, [&] {
        if (++ticks == 2) platform::leaveEventLoop(7);
    });
    CHECK(platform::runEvents() == 7);
    CHECK(ticks == 2);
}
