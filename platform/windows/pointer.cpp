#include "platform/windows/pointer.h"

#include "platform/windows/display.h"
#include "platform/windows/stand_in.h"

#include <cstdint>
#include <utility>

namespace platform {
namespace {

constexpr WPARAM anyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2;

struct ButtonMessage {
    UINT message;
    PointerAction action;
    PointerButton button;
    bool secondPress;
};

constexpr ButtonMessage buttonMessages[] = {
    {WM_LBUTTONDOWN, PointerAction::Press, PointerButton::Left, false},
    {WM_LBUTTONDBLCLK, PointerAction::Press, PointerButton::Left, true},
    {WM_LBUTTONUP, PointerAction::Release, PointerButton::Left, false},
    {WM_RBUTTONDOWN, PointerAction::Press, PointerButton::Right, false},
    {WM_RBUTTONDBLCLK, PointerAction::Press, PointerButton::Right, true},
    {WM_RBUTTONUP, PointerAction::Release, PointerButton::Right, false},
    {WM_MBUTTONDOWN, PointerAction::Press, PointerButton::Middle, false},
    {WM_MBUTTONDBLCLK, PointerAction::Press, PointerButton::Middle, true},
    {WM_MBUTTONUP, PointerAction::Release, PointerButton::Middle, false},
    {WM_XBUTTONDOWN, PointerAction::Press, PointerButton::Other, false},
    {WM_XBUTTONDBLCLK, PointerAction::Press, PointerButton::Other, true},
    {WM_XBUTTONUP, PointerAction::Release, PointerButton::Other, false},
};

/// Places may lie left of a window or above it, so both halves have a sign.
POINT placeOf(LPARAM halves) {
    return {static_cast<std::int16_t>(LOWORD(halves)), static_cast<std::int16_t>(HIWORD(halves))};
}

PointerEvent eventOf(PointerAction action, Point position, WPARAM keys) {
    PointerEvent event;
    event.action = action;
    event.position = position;
    event.buttonsHeld = (keys & anyButton) != 0;
    return event;
}

void tell(WindowState& state, const PointerEvent& event) {
    pointerStandIn().reset();
    if (state.events.pointer) state.events.pointer(event);
}

/// The system tells of the pointer's leaving once for each time that it was asked to.
void askForLeave(WindowState& state) {
    if (state.pointerInside) return;
    TRACKMOUSEEVENT request = {sizeof request, TME_LEAVE, state.window, 0};
    state.pointerInside = TrackMouseEvent(&request) != FALSE;
}

Point pointerIn(const WindowState& state) {
    POINT place = {};
    ::GetCursorPos(&place);
    ScreenToClient(state.window, &place);
    return pixelUnder(place);
}

void tellLeave(WindowState& state) {
    state.pointerInside = false;
    tell(state, eventOf(PointerAction::Leave, pointerIn(state), 0));
}

/// The pointer belongs to the window from the first press to the last release.
void holdPointer(WindowState& state, const PointerEvent& event) {
    if (event.buttonsHeld) {
        if (state.held == PointerButton::None) state.held = event.button;
        SetCapture(state.window);
        return;
    }
    state.held = PointerButton::None; // first, as the system tells of what follows too
    if (GetCapture() == state.window) ReleaseCapture();
}

void tellButton(WindowState& state, const ButtonMessage& kind, WPARAM keys, LPARAM place) {
    // A release whose press was another window's, or has been ended already.
    if (kind.action == PointerAction::Release && state.held == PointerButton::None) return;
    PointerEvent event = eventOf(kind.action, pixelUnder(placeOf(place)), keys);
    event.button = kind.button;
    event.secondPress = kind.secondPress;
    holdPointer(state, event);
    tell(state, event);
}

/// The window asks itself to end a press, so that this runs from the event loop.
constexpr UINT holdLost = WM_APP + 1;

/// A press whose release goes elsewhere, as the pointer was taken away, ends as if released here.
void endHold(WindowState& state) {
    if (state.held == PointerButton::None || GetCapture() == state.window) return;
    PointerEvent event = eventOf(PointerAction::Release, pointerIn(state), 0);
    event.button = std::exchange(state.held, PointerButton::None);
    tell(state, event);
}

void tellMove(WindowState& state, WPARAM keys, LPARAM place) {
    askForLeave(state);
    state.tooltip.pointerMoved();
    if ((keys & anyButton) == 0 && state.held != PointerButton::None) {
        // The release was swallowed without a word.
        ReleaseCapture();
        endHold(state);
    }
    tell(state, eventOf(PointerAction::Move, pixelUnder(placeOf(place)), keys));
}

void askForEnd(const WindowState& state) {
    if (state.held != PointerButton::None) PostMessageW(state.window, holdLost, 0, 0);
}

/// The rows that a notch stands for, as the user has set it up.
int rowsOfNotch() {
    UINT rows = 3;
    ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &rows, 0);
    constexpr UINT most = 100; // a whole page has a number beyond all others
    return static_cast<int>(rows < most ? rows : most);
}

void tellWheel(WindowState& state, WPARAM keys, LPARAM place) {
    state.wheelRemainder += static_cast<std::int16_t>(HIWORD(keys)) * rowsOfNotch();
    const int rows = state.wheelRemainder / WHEEL_DELTA;
    state.wheelRemainder %= WHEEL_DELTA;
    if (rows == 0) return;
    POINT inside = placeOf(place);
    ScreenToClient(state.window, &inside);
    PointerEvent event = eventOf(PointerAction::Wheel, pixelUnder(inside), LOWORD(keys));
    event.wheelRows = -rows;
    tell(state, event);
}

} // namespace

bool tellPointer(WindowState& state, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_MOUSEMOVE:
        tellMove(state, first, second);
        return true;
    case WM_MOUSELEAVE:
        tellLeave(state);
        return true;
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
        askForEnd(state);
        return false;
    case holdLost:
        endHold(state);
        return true;
    case WM_MOUSEWHEEL:
        tellWheel(state, first, second);
        return true;
    default:
        break;
    }
    for (const ButtonMessage& kind : buttonMessages) {
        if (kind.message != message) continue;
        tellButton(state, kind, LOWORD(first), second);
        return true;
    }
    return false;
}

} // namespace platform
