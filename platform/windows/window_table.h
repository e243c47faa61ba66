#pragma once

#include "platform/region_shape.h"
#include "platform/window.h"
#include "platform/windows/tooltip.h"
#include "platform/windows/win32.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

struct CursorEnder {
    void operator()(HICON cursor) const { DestroyCursor(cursor); }
};
using OwnedCursor = std::unique_ptr<HICON__, CursorEnder>;

struct ButtonState {
    HWND button = nullptr;
    OwnedCursor cursor; ///< null for the usual one
    std::function<void()> clicked;
};

class Disabled;

/// What the platform keeps of a window of the player.
struct WindowState {
    HWND window = nullptr;
    Frame frame = Frame::None;
    WindowEvents events;
    Point place;                      ///< of the outer top left corner, the player's pixels
    std::optional<RegionShape> shape; ///< what it is cut to; none for a whole window
    std::optional<RegionShape> cutTo; ///< the same in the display's pixels, as the system has it
    Tooltip tooltip;
    std::vector<ButtonState> buttons;
    std::vector<const Disabled*> disabledBy;  ///< what keeps the user from it, the latest last
    std::shared_ptr<Disabled> othersDisabled; ///< while it is modal
    bool pointerInside = false;               ///< its leaving will be told
    PointerButton held = PointerButton::None; ///< of the press that holds the pointer
    int wheelRemainder = 0;                   ///< parts of a row, as the system counts the wheel
    wchar_t firstHalf = 0;                    ///< of a character that is typed as two
};

using WindowRecord = std::shared_ptr<WindowState>;

/// All windows, in the order of their making.
std::vector<WindowRecord>& windowTable();

/// Null for windows that aren't the player's. Held by every handler that runs, as a handler may
/// open a dialog in whose loop another one destroys the window.
WindowRecord findWindow(HWND window);

/// A window's size on the display, its frame included, by its corner and its size in the player's
/// pixels.
Size outerOnDisplay(Frame frame, Point corner, Size outer);

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM first, LPARAM second);

} // namespace platform
