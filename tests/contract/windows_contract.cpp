#include "platform/system.h"
#include "platform/window.h"
#include "tests/contract/world.h"

#include <cstdint>
#include <doctest/doctest.h>
#include <utility>
#include <vector>

using namespace platform;

TEST_CASE("a moved window is told its new corner before the call returns") {
    std::vector<Point> told;
    WindowEvents events;
    events.moved = [&](Point corner) { told.push_back(corner); };
    const contract::Window window(std::move(events));
    showWindow(window.handle, true);
    contract::letPass(50);
    told.clear();
    CHECK(MoveWindow(window.handle, 310, 220, 120, 80, true));
    REQUIRE_FALSE(told.empty());
    CHECK(told.back() == Point{310, 220});
}

TEST_CASE("a hidden window can be moved") {
    std::vector<Point> told;
    WindowEvents events;
    events.moved = [&](Point corner) { told.push_back(corner); };
    const contract::Window window(std::move(events));
    CHECK(MoveWindow(window.handle, 30, 40, 120, 80, false));
    REQUIRE_FALSE(told.empty());
    CHECK(told.back() == Point{30, 40});
}

TEST_CASE("a shown window paints itself, and again for a request, however often it is asked") {
    int paints = 0;
    const Picture picture(120, 80, 0xFF336699U);
    WindowEvents events;
    events.paint = [&]() -> const Picture& {
        ++paints;
        return picture;
    };
    const contract::Window window(std::move(events));
    contract::letPass(50);
    CHECK(paints == 0);
    showWindow(window.handle, true);
    CHECK(contract::waitUntil([&] { return paints > 0; }));
    contract::letPass(200);
    const int before = paints;
    requestPaint(window.handle);
    requestPaint(window.handle);
    requestPaint(window.handle);
    CHECK(paints == before);
    CHECK(contract::waitUntil([&] { return paints > before; }));
    contract::letPass(50);
    CHECK(paints == before + 1);
}

TEST_CASE(
    "a window told to paint has painted before the call returns, once, and no event has run") {
    int paints = 0;
    int ticks = 0;
    const Picture picture(120, 80, 0xFF336699U);
    WindowEvents events;
    events.paint = [&]() -> const Picture& {
        ++paints;
        return picture;
    };
    const contract::Window window(std::move(events));
    showWindow(window.handle, true);
    REQUIRE(contract::waitUntil([&] { return paints > 0; }));
    contract::letPass(200);
    const int before = paints;
    const contract::Timer timer(1, [&] { ++ticks; });
    Sleep(20);
    requestPaint(window.handle);
    paintNow(window.handle);
    CHECK(paints == before + 1);
    CHECK(ticks == 0);
    contract::letPass(50);
    CHECK(paints == before + 1);
}

TEST_CASE("a hidden window paints nothing when it is told to") {
    int paints = 0;
    const Picture picture(120, 80, 0xFF336699U);
    WindowEvents events;
    events.paint = [&]() -> const Picture& {
        ++paints;
        return picture;
    };
    const contract::Window window(std::move(events));
    requestPaint(window.handle);
    paintNow(window.handle);
    contract::letPass(50);
    CHECK(paints == 0);
}

TEST_CASE("the normal state takes a window out of its icon, and leaves it where it was") {
    const contract::Window window;
    showWindow(window.handle, true);
    REQUIRE(contract::inShape(window.handle, 10, 10));
    contract::minimise(window.handle);
    REQUIRE(contract::waitUntil([&] { return contract::isMinimised(window.handle); }));
    CHECK(setNormalState(window.handle));
    CHECK(contract::waitUntil([&] { return !contract::isMinimised(window.handle); }));
    CHECK(contract::inShape(window.handle, 10, 10));
    CHECK(contract::waitUntil([&] {
        return contract::outerArea(window.handle) == Rect{200, 150, 320, 230};
    }));
}

TEST_CASE("the normal state shows no hidden window, and changes nothing of a shown one") {
    const contract::Window hidden;
    CHECK(setNormalState(hidden.handle));
    contract::letPass(100);
    CHECK_FALSE(contract::isShown(hidden.handle));
    showWindow(hidden.handle, true);
    REQUIRE(contract::waitUntil([&] { return contract::isShown(hidden.handle); }));
    CHECK(setNormalState(hidden.handle));
    contract::letPass(100);
    CHECK(contract::isShown(hidden.handle));
}

TEST_CASE("a modal window holds the call until it is hidden, and ticks go on") {
    const contract::Window owner;
    const contract::Window window;
    int ticks = 0;
    const contract::Timer timer(20, [&] {
        if (++ticks >= 3) showWindow(window.handle, false);
    });
    showWindowModal(window.handle);
    CHECK(ticks >= 3);
}

TEST_CASE("a modal window's call returns when the window is destroyed") {
    const contract::Window owner;
    WindowOptions options;
    options.title = "Box";
    options.frame = Frame::Dialog;
    options.size = {120, 80};
    const WindowHandle box = createWindow(options, WindowEvents());
    int ticks = 0;
    contract::Timer* self = nullptr;
    contract::Timer timer(20, [&] {
        ++ticks;
        self->stop();
        destroyWindow(box);
    });
    self = &timer;
    showWindowModal(box);
    CHECK(ticks == 1);
}

TEST_CASE("handles are never 0 and never shared") {
    const contract::Window first;
    const contract::Window second;
    const WindowHandle hook = createHookWindow(first.handle, [](std::int32_t) {});
    CHECK(first.handle != 0);
    CHECK(hook != 0);
    CHECK(first.handle != second.handle);
    CHECK(hook != first.handle);
    CHECK(hook != second.handle);
}

TEST_CASE("a framed window takes up what it was told that its frame would add, where it was put") {
    WindowOptions options;
    options.title = "Framed";
    options.frame = Frame::Dialog;
    options.position = {300, 200};
    options.size = {297, 223};
    const Size frame = frameSize(Frame::Dialog);
    CHECK(frame.height > 0);
    const Picture picture(297, 223, 0xFF336699U);
    WindowEvents events;
    events.paint = [&]() -> const Picture& { return picture; };
    const WindowHandle window = createWindow(options, std::move(events));
    showWindow(window, true);
    CHECK(contract::inShape(window, 10, 10));
    const Rect expected{300, 200, 300 + 297 + frame.width, 200 + 223 + frame.height};
    CHECK(contract::waitUntil([&] { return contract::outerArea(window) == expected; }));
    destroyWindow(window);
}

TEST_CASE("a window without a frame takes up its client area") {
    CHECK(frameSize(Frame::None) == Size{0, 0});
    const contract::Window window;
    showWindow(window.handle, true);
    CHECK(contract::inShape(window.handle, 10, 10));
    CHECK(contract::waitUntil([&] {
        return contract::outerArea(window.handle) == Rect{200, 150, 320, 230};
    }));
}
