#include "platform/desktop.h"
#include "platform/simulated/world.h"
#include "platform/system.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

using namespace simulated;

TEST_CASE("time stands still until it is advanced") {
    platform::yieldToEvents();
    CHECK(now() == 0);
    advance(250);
    CHECK(now() == 250);
}

TEST_CASE("ticks and planned actions run in the order of their times") {
    std::string order;
    platform::startTimer(100, [&] { order += 't'; });
    after(250, [&] { order += 'c'; });
    after(150, [&] { order += 'b'; });
    after(0, [&] { order += 'a'; });
    advance(300);
    CHECK(order == "atbtct");
}

TEST_CASE("each tick sees its own time") {
    std::vector<std::uint64_t> times;
    platform::startTimer(966, [&] { times.push_back(now()); });
    advance(2000);
    CHECK(times == std::vector<std::uint64_t>{966, 1932});
}

TEST_CASE("of what is due together, input runs before ticks") {
    std::string order;
    platform::startTimer(100, [&] { order += 't'; });
    after(100, [&] { order += 'i'; });
    advance(100);
    CHECK(order == "it");
}

TEST_CASE("a sleep runs nothing, and one tick of many waits after it") {
    int ticks = 0;
    platform::startTimer(100, [&] { ++ticks; });
    platform::Sleep(1050);
    CHECK(ticks == 0);
    CHECK(now() == 1050);
    platform::yieldToEvents();
    CHECK(ticks == 1);
    advance(49);
    CHECK(ticks == 1);
    advance(1);
    CHECK(ticks == 2);
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{1050});
}

TEST_CASE("a tick that takes longer than its interval leaves one tick waiting") {
    int ticks = 0;
    platform::startTimer(100, [&] {
        if (++ticks == 1) platform::Sleep(350);
    });
    advance(100);
    CHECK(ticks == 2); // the second was due while the first slept
    CHECK(now() == 450);
    advance(49);
    CHECK(ticks == 2);
    advance(1);
    CHECK(ticks == 3);
}

TEST_CASE("what is posted inside a yield waits for the next one") {
    std::string order;
    post([&] {
        order += 'a';
        post([&] { order += 'b'; });
    });
    platform::yieldToEvents();
    CHECK(order == "a");
    platform::yieldToEvents();
    CHECK(order == "ab");
}

TEST_CASE("a yield inside a posted action handles what was posted behind it") {
    std::string order;
    post([&] {
        order += '(';
        platform::yieldToEvents();
        order += ')';
    });
    post([&] { order += 'b'; });
    platform::yieldToEvents();
    CHECK(order == "(b)");
}

TEST_CASE("the time of day moves with the clock, midnight included") {
    setTimeOfDay(23, 59, 58);
    CHECK(platform::secondsSinceMidnight() == 86398);
    advance(1999);
    CHECK(platform::secondsSinceMidnight() == 86399);
    advance(1);
    CHECK(platform::secondsSinceMidnight() == 0);
    setTimeOfDay(7, 30, 0);
    CHECK(platform::secondsSinceMidnight() == 27000);
    platform::Sleep(1000);
    CHECK(platform::secondsSinceMidnight() == 27001);
    CHECK_THROWS_AS(setTimeOfDay(24, 0, 0), std::logic_error);
}

TEST_CASE("a loop of yields that nothing can end fails the test instead of hanging it") {
    const auto spin = [] {
        for (;;)
            platform::yieldToEvents();
    };
    CHECK_THROWS_AS(spin(), std::logic_error);
}

TEST_CASE("ticks that never let the loop rest fail the test instead of hanging it") {
    platform::startTimer(100, [] { platform::Sleep(200); });
    CHECK_THROWS_AS(advance(1000), std::logic_error);
}

TEST_CASE("an event loop that nothing can end fails the test instead of hanging it") {
    CHECK_THROWS_AS(platform::runEvents(), std::logic_error);
    platform::startTimer(966, [] {});
    CHECK_THROWS_AS(platform::runEvents(), std::logic_error);
}

TEST_CASE("the end of the process is an exception with its status") {
    try {
        platform::endProcess(3);
    } catch (const ProcessEnded& ended) {
        CHECK(ended.status == 3);
    }
    CHECK(log() == std::vector<std::string>{"end of the process 3"});
}

TEST_CASE("a timer of 0 ms and a timer that never was fail the test") {
    CHECK_THROWS_AS(platform::startTimer(0, [] {}), std::logic_error);
    CHECK_THROWS_AS(platform::stopTimer(3001), std::logic_error);
    const platform::TimerHandle timer = platform::startTimer(10, [] {});
    platform::stopTimer(timer);
    platform::stopTimer(timer);
}

TEST_CASE("a reset world has no time, timers, windows or scripts left") {
    int ticks = 0;
    platform::startTimer(10, [&] { ++ticks; });
    world.menus.dismiss();
    advance(10);
    CHECK(scriptsLeft() == 1);
    reset();
    advance(100);
    CHECK(ticks == 1);
    CHECK(now() == 100);
    CHECK(scriptsLeft() == 0);
    CHECK(log().empty());
}
