#include "platform/system.h"
#include "platform/window.h"
#include "platform/windows/handles.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <commctrl.h>

#include <string>
#include <utility>

using namespace platform;

namespace {

/// The window of this thread in which a tooltip shows, or null.
HWND tipShown() {
    HWND shown = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM found) -> BOOL {
            std::wstring name(64, L'\0');
            name.resize(static_cast<std::size_t>(GetClassNameW(window, name.data(), 64)));
            if (name == TOOLTIPS_CLASSW && IsWindowVisible(window))
                *reinterpret_cast<HWND*>(found) = window;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&shown));
    return shown;
}

} // namespace

TEST_CASE("a press where a tooltip shows goes to the window under it") {
    Picture picture(200, 200, 0xFF446688U);
    WindowEvents events;
    events.paint = [&]() -> const Picture& { return picture; };
    const contract::Window window(std::move(events));
    MoveWindow(window.handle, 100, 100, 200, 200, true);
    showWindow(window.handle, true);
    SetCursorPos(120, 120);
    setTooltip(window.handle, "Playlist");
    REQUIRE(contract::waitUntil([] { return tipShown() != nullptr; }));
    RECT tip = {};
    GetWindowRect(tipShown(), &tip);
    const POINT place = {tip.left + 4, tip.top + 4};
    REQUIRE(place.x > 100);
    REQUIRE(place.x < 300);
    REQUIRE(place.y < 300);
    CHECK(WindowFromPoint(place) == windowOf(window.handle));
    setTooltip(window.handle, "");
}
