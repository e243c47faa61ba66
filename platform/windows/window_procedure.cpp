#include "platform/device_pixels.h"
#include "platform/events.h"
#include "platform/windows/accessibility.h"
#include "platform/windows/disabled.h"
#include "platform/windows/display.h"
#include "platform/windows/keys.h"
#include "platform/windows/pointer.h"
#include "platform/windows/push_button.h"
#include "platform/windows/remote.h"
#include "platform/windows/shape.h"
#include "platform/windows/window_table.h"

#include <cstdint>

namespace platform {
namespace {

BITMAPINFO layoutOf(const Picture& picture) {
    BITMAPINFO layout = {};
    layout.bmiHeader.biSize = sizeof layout.bmiHeader;
    layout.bmiHeader.biWidth = picture.width;
    layout.bmiHeader.biHeight = -picture.height; // from top to bottom
    layout.bmiHeader.biPlanes = 1;
    layout.bmiHeader.biBitCount = 32;
    layout.bmiHeader.biCompression = BI_RGB;
    return layout;
}

void put(HDC target, const Picture& picture, Point corner) {
    const BITMAPINFO layout = layoutOf(picture);
    SetDIBitsToDevice(target, corner.x, corner.y, static_cast<DWORD>(picture.width),
                      static_cast<DWORD>(picture.height), 0, 0, 0,
                      static_cast<UINT>(picture.height), picture.pixels.data(), &layout,
                      DIB_RGB_COLORS);
}

void enlarge(HDC target, const Picture& picture, Size client) {
    const BITMAPINFO layout = layoutOf(picture);
    SetStretchBltMode(target, HALFTONE);
    SetBrushOrgEx(target, 0, 0, nullptr); // what that mode asks for
    StretchDIBits(target, 0, 0, client.width, client.height, 0, 0, picture.width, picture.height,
                  picture.pixels.data(), &layout, DIB_RGB_COLORS, SRCCOPY);
}

/// Shows a picture that was painted for the display with no pixel touched. A window may have a
/// column and a row to spare, which repeat the picture's last ones.
void show(HDC target, const Picture& picture, Size client) {
    const Point spare{client.width - picture.width, client.height - picture.height};
    if (spare.x > 1 || spare.y > 1) return enlarge(target, picture, client);
    put(target, picture, {0, 0});
    if (spare.x <= 0 && spare.y <= 0) return;
    ExcludeClipRect(target, 0, 0, picture.width, picture.height);
    put(target, picture, spare);
}

/// Puts the whole picture up in one step, with nothing painted before it.
void paint(WindowState& state) {
    const Picture* const picture = state.events.paint ? &state.events.paint() : nullptr;
    PAINTSTRUCT request = {};
    const HDC target = BeginPaint(state.window, &request);
    if (picture != nullptr && !picture->empty()) {
        RECT client = {};
        GetClientRect(state.window, &client);
        show(target, *picture, {client.right, client.bottom});
    }
    EndPaint(state.window, &request);
}

void tellMoved(WindowState& state, const WINDOWPOS& change) {
    // A minimised window stands at a place that is none.
    if ((change.flags & SWP_NOMOVE) != 0 || IsIconic(state.window) != FALSE) return;
    state.place = nearestEdge({change.x, change.y}, displayScale());
    fitShape(state);
    if (state.events.moved) state.events.moved(state.place);
}

void tellClosing(WindowState& state) {
    if (state.events.closing) state.events.closing();
}

/// The session's end comes to every window, and as soon as all have answered the process may be
/// killed: so the player closes with the first of them, and the process ends with that.
[[noreturn]] void endWithSession() {
    const WindowRecord player = windowTable().front(); // the call may destroy it
    tellClosing(*player);
    endProcess(0);
}

/// The pointer has no shape over a disabled window, but its presses are told of in this way.
bool pressedInVain(LPARAM second) {
    if (static_cast<std::int16_t>(LOWORD(second)) != HTERROR) return false;
    const UINT cause = HIWORD(second);
    return cause == WM_LBUTTONDOWN || cause == WM_RBUTTONDOWN || cause == WM_MBUTTONDOWN;
}

bool pointerShaped(const WindowState& state, WPARAM first, LPARAM second) {
    if (!pressedInVain(second)) return shapePointer(state, reinterpret_cast<HWND>(first));
    bringToFront(state.window);
    return true;
}

/// What has a close box only is neither an icon nor as large as the screen, whoever asks for it.
bool refusesState(const WindowState& state, WPARAM command) {
    constexpr WPARAM commandBits = 0xFFF0U;
    const WPARAM wish = command & commandBits;
    return state.frame == Frame::Dialog && (wish == SC_MINIMIZE || wish == SC_MAXIMIZE);
}

void undoIconState(const WindowState& state, WPARAM size) {
    if (state.frame == Frame::Dialog && size == SIZE_MINIMIZED)
        PostMessageW(state.window, WM_SYSCOMMAND, SC_RESTORE, 0);
}

/// Whether a message has been dealt with.
bool handled(WindowState& state, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_ERASEBKGND:
        return true;
    case WM_PAINT:
        paint(state);
        return true;
    case WM_WINDOWPOSCHANGED:
        tellMoved(state, *reinterpret_cast<const WINDOWPOS*>(second));
        return false;
    case WM_CLOSE:
        tellClosing(state);
        return true;
    case WM_COMMAND:
        tellClicked(state, reinterpret_cast<HWND>(second));
        return true;
    case WM_SETCURSOR:
        return pointerShaped(state, first, second);
    case WM_APPCOMMAND:
        return tellAppCommand(second);
    case WM_SYSCOMMAND:
        return refusesState(state, first);
    case WM_SIZE:
        undoIconState(state, first);
        return false;
    case WM_SETFOCUS:
        focusButton(state);
        return true;
    case WM_ENDSESSION:
        if (first != FALSE) endWithSession();
        return true;
    default:
        return tellPointer(state, message, first, second) || tellKey(state, message, first);
    }
}

/// What a message that has been dealt with is answered by.
LRESULT answerTo(UINT message) {
    return message == WM_ERASEBKGND || message == WM_SETCURSOR || message == WM_APPCOMMAND ? TRUE
                                                                                           : FALSE;
}

} // namespace

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    const WindowRecord state = findWindow(window);
    if (state != nullptr && message == WM_GETOBJECT)
        if (const LRESULT answer = answerReader(*state, first, second)) return answer;
    if (state != nullptr && handled(*state, message, first, second)) return answerTo(message);
    return DefWindowProcW(window, message, first, second);
}

} // namespace platform
