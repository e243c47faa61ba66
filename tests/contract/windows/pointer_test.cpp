#include "platform/device_pixels.h"
#include "platform/system.h"
#include "platform/windows/display.h"
#include "platform/windows/handles.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <vector>

using namespace platform;

namespace {

/// A window at a place of its own that keeps what the pointer does on it.
struct Pressed {
    std::vector<PointerEvent> presses;
    std::vector<PointerEvent> releases;
    Picture picture{120, 80, 0xFF446688U};
    contract::Window window{[this] {
        WindowEvents events;
        events.pointer = [this](const PointerEvent& event) {
            if (event.action == PointerAction::Press) presses.push_back(event);
            if (event.action == PointerAction::Release) releases.push_back(event);
        };
        events.paint = [this]() -> const Picture& { return picture; };
        return events;
    }()};

    explicit Pressed(Point corner) {
        MoveWindow(window.handle, corner.x, corner.y, 120, 80, true);
        showWindow(window.handle, true);
        contract::letPass(200); // the window manager may put it elsewhere first
    }
    ~Pressed() { mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0); }
    Pressed(const Pressed&) = delete;
    Pressed& operator=(const Pressed&) = delete;

    void press() {
        POINT place = middle();
        ClientToScreen(handle(), &place);
        SetCursorPos(place.x, place.y);
        mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
        REQUIRE(contract::waitUntil([this] { return !presses.empty(); }));
        REQUIRE(GetCapture() == handle());
    }
    void letGo() const {
        mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
        contract::letPass(100);
    }
    [[nodiscard]] HWND handle() const { return windowOf(window.handle); }
    /// The place (60, 40) on the display.
    static POINT middle() {
        return {deviceEdge(60, displayScale()), deviceEdge(40, displayScale())};
    }
    static LPARAM middleInMessage() {
        return MAKELPARAM(middle().x, middle().y); // NOLINT: the system's macro
    }
};

void checkOneRelease(const Pressed& window) {
    REQUIRE(contract::waitUntil([&] { return !window.releases.empty(); }));
    CHECK(window.releases[0].button == PointerButton::Left);
    CHECK_FALSE(window.releases[0].buttonsHeld);
    CHECK(window.releases[0].position == Point{60, 40});
    window.letGo();
    CHECK(window.releases.size() == 1);
}

} // namespace

TEST_CASE("a press whose pointer another window takes ends as if released, once") {
    Pressed window({100, 100});
    const Pressed other({400, 300});
    window.press();
    SetCapture(other.handle());
    checkOneRelease(window);
    ReleaseCapture();
}

TEST_CASE("a press that the system cancels ends as if released, once") {
    Pressed window({100, 100});
    window.press();
    SendMessageW(window.handle(), WM_CANCELMODE, 0, 0);
    checkOneRelease(window);
}

TEST_CASE("a window that is disabled while it is pressed has its press ended, once") {
    Pressed window({100, 100});
    window.press();
    EnableWindow(window.handle(), FALSE);
    checkOneRelease(window);
}

TEST_CASE("a press whose release was swallowed ends with the pointer's next move, once") {
    Pressed window({100, 100});
    window.press();
    SendMessageW(window.handle(), WM_MOUSEMOVE, 0, Pressed::middleInMessage());
    checkOneRelease(window);
}

TEST_CASE("a press and a release in order are told once each") {
    Pressed window({100, 100});
    window.press();
    window.letGo();
    CHECK(window.presses.size() == 1);
    CHECK(window.releases.size() == 1);
    CHECK(GetCapture() == nullptr);
}

TEST_CASE("a release whose press was another window's isn't told") {
    Pressed window({100, 100});
    SendMessageW(window.handle(), WM_LBUTTONUP, 0, Pressed::middleInMessage());
    CHECK(window.releases.empty());
}
