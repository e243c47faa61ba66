#include "platform/windows/push_button.h"

#include "platform/device_pixels.h"
#include "platform/windows/display.h"
#include "platform/windows/fonts.h"
#include "platform/windows/handles.h"
#include "platform/windows/utf16.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace platform {
namespace {

struct BitmapEnder {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using OwnedBitmap = std::unique_ptr<HBITMAP__, BitmapEnder>;

OwnedCursor cursorOf(const PointerShape& pointer) {
    if (pointer.picture.empty()) return {};
    const int width = pointer.picture.width;
    const int height = pointer.picture.height;
    const OwnedBitmap colours(CreateBitmap(width, height, 1, 32, pointer.picture.pixels.data()));
    // The colours' alpha says what shows; the call wants a mask all the same.
    const OwnedBitmap mask(CreateBitmap(width, height, 1, 1, nullptr));
    ICONINFO parts = {FALSE, static_cast<DWORD>(pointer.hotSpot.x),
                      static_cast<DWORD>(pointer.hotSpot.y), mask.get(), colours.get()};
    return OwnedCursor(CreateIconIndirect(&parts));
}

const ButtonState* findButton(const WindowState& state, HWND button) {
    const auto found = std::find_if(state.buttons.begin(), state.buttons.end(),
                                    [&](const ButtonState& one) { return one.button == button; });
    return found == state.buttons.end() ? nullptr : &*found;
}

} // namespace

void createPushButton(WindowHandle window, const PushButton& button,
                      std::function<void()> clicked) {
    const WindowRecord record = findWindow(windowOf(window));
    if (record == nullptr) return;
    const Rect area = deviceRect(button.area, displayScale());
    Font font = button.font;
    font.scale = displayScale();
    const HWND made =
        CreateWindowExW(0, L"BUTTON", toWide(button.caption).c_str(),
                        WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, area.left, area.top,
                        area.right - area.left, area.bottom - area.top, record->window, nullptr,
                        GetModuleHandleW(nullptr), nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(fontFor(font)), FALSE);
    record->buttons.push_back({made, cursorOf(button.pointer), std::move(clicked)});
}

void tellClicked(const WindowState& state, HWND button) {
    const ButtonState* const found = findButton(state, button);
    if (found == nullptr || !found->clicked) return;
    const auto clicked = found->clicked; // it may destroy the window
    clicked();
}

bool shapePointer(const WindowState& state, HWND under) {
    const ButtonState* const found = findButton(state, under);
    if (found == nullptr || found->cursor == nullptr) return false;
    SetCursor(found->cursor.get());
    return true;
}

void focusButton(const WindowState& state) {
    if (!state.buttons.empty()) SetFocus(state.buttons.front().button);
}

} // namespace platform
