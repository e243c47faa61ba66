#include "platform/windows/handles.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <functional>
#include <string_view>
#include <vector>

using namespace platform;

namespace {

WindowEvents painted() {
    static const Picture picture(120, 80, 0xFF446688U);
    WindowEvents events;
    events.paint = []() -> const Picture& { return picture; };
    return events;
}

/// A window that is shown.
struct Shown {
    contract::Window window{painted()};
    Shown() { showWindow(window.handle, true); }
    [[nodiscard]] HWND handle() const { return windowOf(window.handle); }
};

/// A box such as the about box, not shown yet.
struct Box {
    WindowHandle number = [] {
        WindowOptions options;
        options.title = "Box";
        options.frame = Frame::Dialog;
        options.position = {400, 300};
        options.size = {120, 80};
        return createWindow(options, painted());
    }();
    Box() = default;
    ~Box() { destroyWindow(number); }
    Box(const Box&) = delete;
    Box& operator=(const Box&) = delete;
    [[nodiscard]] HWND handle() const { return windowOf(number); }
};

BOOL CALLBACK keepDialog(HWND window, LPARAM found) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    if (std::wstring_view(name) == L"#32770" && IsWindowVisible(window) != FALSE)
        *reinterpret_cast<HWND*>(found) = window;
    return TRUE;
}

/// The dialog of the system's own that is on the screen; null if none is.
HWND dialog() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), keepDialog, reinterpret_cast<LPARAM>(&found));
    return found;
}

/// What a message box's end finds.
struct AtEnd {
    HWND other = nullptr;
    bool seen = false;
    bool otherTakesInput = false;
};

/// Sees from outside whether a window takes input by the time that a dialog is hidden.
LRESULT CALLBACK seeEnd(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR id,
                        DWORD_PTR seen) {
    const LRESULT result = DefSubclassProc(window, message, first, second);
    if (message == WM_WINDOWPOSCHANGED && IsWindowVisible(window) == FALSE) {
        AtEnd& end = *reinterpret_cast<AtEnd*>(seen);
        end = {end.other, true, IsWindowEnabled(end.other) != FALSE};
        RemoveWindowSubclass(window, seeEnd, id);
    }
    return result;
}

/// Shows a box and takes one step a tick while it is modal.
void whileModal(const Box& box, std::vector<std::function<void()>> steps) {
    std::size_t next = 0;
    const contract::Timer timer(100, [&] {
        if (next < steps.size()) return steps[next++]();
        showWindow(box.number, false);
    });
    showWindowModal(box.number);
    REQUIRE(next == steps.size());
}

} // namespace

TEST_CASE("a message box belongs to a window, and all take input again before the box goes") {
    const Shown player;
    const Shown other; // the system itself sees to the window that a box belongs to
    showWindow(player.window.handle, true);
    AtEnd end = {other.handle()};
    bool owned = false;
    bool barred = false;
    const contract::Timer timer(50, [&] {
        const HWND box = dialog();
        if (box == nullptr) return;
        owned = GetWindow(box, GW_OWNER) == player.handle();
        barred =
            IsWindowEnabled(player.handle()) == FALSE && IsWindowEnabled(other.handle()) == FALSE;
        SetWindowSubclass(box, seeEnd, 2, reinterpret_cast<DWORD_PTR>(&end));
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    messageBox("Text", "Title", MessageIcon::None);
    CHECK(owned);
    CHECK(barred);
    CHECK(end.seen);
    CHECK(end.otherTakesInput);
}

TEST_CASE("a modal box belongs to the window that was active") {
    const Shown player;
    const Box box;
    HWND owner = nullptr;
    whileModal(box, {[&] { owner = GetWindow(box.handle(), GW_OWNER); }});
    CHECK(owner == player.handle());
}

TEST_CASE("a press on a window that a box keeps the user from brings the box to the front") {
    const Shown player;
    const Box box;
    HWND before = nullptr;
    HWND after = nullptr;
    // All at once: the display's own word of the box's showing may be late, and makes it active
    // too.
    whileModal(box, {[&] {
                         SetActiveWindow(player.handle());
                         before = GetActiveWindow();
                         contract::click(player.window.handle, 60, 40);
                     },
                     [] {}, [&] { after = GetActiveWindow(); }});
    CHECK(before == player.handle());
    CHECK(after == box.handle());
}

TEST_CASE("showing a window that a box keeps the user from brings the box to the front") {
    const Shown player;
    const Box box;
    HWND before = nullptr;
    HWND after = nullptr;
    // All at once: the display's own word of the box's showing may be late, and makes it active
    // too.
    whileModal(box, {[&] {
                         SetActiveWindow(player.handle());
                         before = GetActiveWindow();
                         showWindow(player.window.handle, true);
                     },
                     [&] { after = GetActiveWindow(); }});
    CHECK(before == player.handle());
    CHECK(after == box.handle());
}

TEST_CASE("a box has a close box only: nobody makes it an icon or as large as the screen") {
    const Box box;
    showWindow(box.number, true);
    const auto style = static_cast<DWORD>(GetWindowLongW(box.handle(), GWL_STYLE));
    CHECK((style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX)) == 0);
    SendMessageW(box.handle(), WM_SYSCOMMAND, SC_MINIMIZE, 0);
    CHECK(IsIconic(box.handle()) == FALSE);
    SendMessageW(box.handle(), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    CHECK(IsZoomed(box.handle()) == FALSE);
    ShowWindow(box.handle(), SW_MINIMIZE);
    CHECK(contract::waitUntil([&] { return IsIconic(box.handle()) == FALSE; }));
}
