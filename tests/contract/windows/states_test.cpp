#include "platform/events.h"
#include "platform/system.h"
#include "platform/windows/handles.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <memory>
#include <utility>

using namespace platform;

namespace {

/// A window that is shown, at (200, 150).
struct Shown {
    Picture picture{120, 80, 0xFF446688U};
    contract::Window window{[this] {
        WindowEvents events;
        events.paint = [this]() -> const Picture& { return picture; };
        return events;
    }()};
    Shown() { showWindow(window.handle, true); }
    [[nodiscard]] HWND handle() const { return windowOf(window.handle); }
    [[nodiscard]] bool standsWhereItStood() const {
        return contract::outerArea(window.handle) == Rect{200, 150, 320, 230};
    }
};

} // namespace

TEST_CASE("only the first window has a button in the task bar, and its end isn't the others'") {
    auto first = std::make_unique<Shown>();
    const Shown second;
    CHECK(GetWindow(first->handle(), GW_OWNER) == nullptr);
    CHECK(GetWindow(second.handle(), GW_OWNER) == first->handle());
    first.reset();
    CHECK(IsWindow(second.handle()) != FALSE);
    CHECK(IsWindowVisible(second.handle()) != FALSE);
}

TEST_CASE("a window stays on the screen when the one that it belongs to is hidden") {
    const Shown first;
    const Shown second;
    showWindow(first.window.handle, false);
    contract::letPass(100);
    CHECK(IsWindowVisible(second.handle()) != FALSE);
}

TEST_CASE("the normal state ends an icon state and a maximised one, and shows nothing hidden") {
    const Shown shown;
    for (const int state : {SW_MINIMIZE, SW_MAXIMIZE}) {
        CAPTURE(state);
        ShowWindow(shown.handle(), state);
        CHECK(setNormalState(shown.window.handle));
        CHECK(IsIconic(shown.handle()) == FALSE);
        CHECK(IsZoomed(shown.handle()) == FALSE);
        CHECK(shown.standsWhereItStood());
    }
    showWindow(shown.window.handle, false);
    CHECK(setNormalState(shown.window.handle));
    CHECK(IsWindowVisible(shown.handle()) == FALSE);
}

TEST_CASE("a window that was hidden as an icon is shown at its own place") {
    const Shown shown;
    ShowWindow(shown.handle(), SW_MINIMIZE);
    showWindow(shown.window.handle, false);
    CHECK(setNormalState(shown.window.handle));
    CHECK(IsWindowVisible(shown.handle()) == FALSE);
    showWindow(shown.window.handle, true);
    CHECK(IsIconic(shown.handle()) == FALSE);
    CHECK(shown.standsWhereItStood());
}

TEST_CASE("a window that is gone has no state to take it out of") {
    const WindowHandle gone = contract::Window().handle;
    CHECK_FALSE(setNormalState(gone));
}

TEST_CASE("what a window shows is on the screen before the call returns, without an event") {
    Shown shown;
    contract::letPass(200);
    int ticks = 0;
    const contract::Timer timer(1, [&] { ++ticks; });
    shown.picture = Picture(120, 80, 0xFF8844CCU);
    requestPaint(shown.window.handle);
    platform::Sleep(50);
    paintNow(shown.window.handle);
    const HDC device = GetDC(shown.handle());
    CHECK(GetPixel(device, 60, 40) == RGB(0x88, 0x44, 0xCC));
    ReleaseDC(shown.handle(), device);
    CHECK(ticks == 0);
}
