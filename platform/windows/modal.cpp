#include "platform/windows/disabled.h"
#include "platform/windows/dispatch.h"
#include "platform/windows/handles.h"
#include "platform/windows/system_dialog.h"
#include "platform/windows/utf16.h"
#include "platform/windows/window_table.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace platform {
namespace {

void runWhileVisible(HWND window) {
    MSG message = {};
    while (IsWindow(window) != FALSE && IsWindowVisible(window) != FALSE) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            // It is for the loop around this one.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        dispatchMessage(message);
    }
}

struct MenuEnder {
    void operator()(HMENU menu) const { DestroyMenu(menu); } // its sub-menus go with it
};
using OwnedMenu = std::unique_ptr<HMENU__, MenuEnder>;

OwnedMenu makeMenu(const std::vector<MenuItem>& items) {
    OwnedMenu menu(CreatePopupMenu());
    for (const MenuItem& item : items) {
        const std::wstring caption = toWide(item.caption);
        if (item.children.empty()) {
            AppendMenuW(menu.get(), MF_STRING, static_cast<UINT_PTR>(item.id), caption.c_str());
            continue;
        }
        const HMENU children = makeMenu(item.children).release();
        AppendMenuW(menu.get(), MF_POPUP, reinterpret_cast<UINT_PTR>(children), caption.c_str());
    }
    return menu;
}

/// A menu takes the pointer away from all windows.
void takeTooltipsAway() {
    for (const WindowRecord& record : windowTable())
        record->tooltip.setText(record->window, {});
}

} // namespace

void showWindowModal(WindowHandle window) {
    const WindowRecord record = findWindow(windowOf(window));
    if (record == nullptr) return;
    const KeyboardReturned keyboard;
    std::vector<WindowRecord> others = windowTable();
    std::erase(others, record);
    // The system keeps a window above its owner, and gives the owner the keyboard at its end.
    if (const HWND owner = ownerOfDialogs(); owner != record->window)
        SetWindowLongPtrW(record->window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
    record->othersDisabled = std::make_shared<Disabled>(std::move(others));
    record->othersDisabled->inFavourOf(record->window);
    showWindow(window, true);
    runWhileVisible(windowOf(window));
    record->othersDisabled.reset();
}

std::int32_t popupMenu(WindowHandle window, const std::vector<MenuItem>& items) {
    const OwnedMenu menu = makeMenu(items);
    takeTooltipsAway();
    POINT place = {};
    ::GetCursorPos(&place);
    // Only a menu of the foreground window goes away at a click elsewhere.
    SetForegroundWindow(windowOf(window));
    const BOOL picked = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                       place.x, place.y, 0, windowOf(window), nullptr);
    PostMessageW(windowOf(window), WM_NULL, 0, 0);
    return picked;
}

void messageBox(const std::string& text, const std::string& title, MessageIcon icon) {
    const KeyboardReturned keyboard;
    const HWND owner = ownerOfDialogs();
    Disabled all(windowTable());
    const SystemDialog dialog(all);
    const UINT look = icon == MessageIcon::Critical ? MB_ICONERROR : 0;
    MessageBoxW(owner, toWide(text).c_str(), toWide(title).c_str(),
                MB_OK | MB_SETFOREGROUND | look);
}

} // namespace platform
