#pragma once

#include "platform/region_rows.h"
#include "platform/window.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// Windows and the user's hands. Places are client pixels of the named window unless a name says
/// screen. Every pointer or key function delivers its event at once, as the event loop would; to
/// have one arrive inside a yield, a menu or a dialog, hand it to `post` or `after`.
namespace simulated {

using platform::Key;
using platform::PointerButton;
using platform::WindowHandle;

/// A push button of the platform's own in a window.
struct Button {
    platform::PushButton button;
    std::function<void()> clicked;
};

/// What the platform knows of a window.
struct Window {
    platform::WindowOptions options;
    platform::WindowEvents events;
    platform::Point position; ///< outer top left corner, screen pixels
    platform::Size size;      ///< client pixels
    bool visible = false;
    bool minimised = false; ///< by the window manager; it has the window as an icon
    bool paintWanted = false;
    int paints = 0;                            ///< how often the window painted itself
    platform::RegionHandle region = 0;         ///< that it is cut to; 0 for none
    std::optional<platform::RegionRows> shape; ///< none: the whole client area
    std::string tooltip;
    int tooltipsSet = 0; ///< how often it was set, to whatever text
    std::vector<Button> buttons;
    std::function<void(std::int32_t)> trayCode; ///< of hook windows
    WindowHandle parent = 0;                    ///< of hook windows
};

struct Windows {
    std::map<WindowHandle, Window> all;
    std::vector<WindowHandle> order; ///< visible windows, topmost last
    WindowHandle last = 1000;
    WindowHandle captured = 0; ///< has the pointer while buttons are down
    WindowHandle hovered = 0;
    std::vector<PointerButton> held;
    std::vector<PointerButton> ignored; ///< held since a press that a disabled window ignored
    /// The windows that each modal one keeps the user from.
    std::map<WindowHandle, std::vector<WindowHandle>> disabledByModal;
    std::vector<WindowHandle> disabled; ///< by messages and dialogs, once for each of these
    std::vector<std::function<void()>> modalScripts;
    bool refuseNormalState = false; ///< every request for the normal state fails
};

/// Of `Frame::Dialog`, pixels: its title bar, and what stands to the left and right of its window.
inline constexpr std::int32_t TitleBarHeight = 20;
inline constexpr std::int32_t SideWidth = 3;

/// The one window with this title, visible or not. Fails the test if there is none or several.
WindowHandle windowTitled(const std::string& title);

/// The record of a window that exists.
const Window& window(WindowHandle handle);

/// Asks the window for its picture.
platform::Picture picture(WindowHandle handle);

/// Moves the pointer.
void moveTo(WindowHandle window, std::int32_t x, std::int32_t y);
void moveToScreen(std::int32_t x, std::int32_t y);

/// Presses a button; the window comes to the front and has the pointer until all buttons are up.
void pressAt(WindowHandle window, std::int32_t x, std::int32_t y,
             PointerButton button = PointerButton::Left);

/// Releases a held button: where the pointer is, or after a move.
void release(PointerButton button = PointerButton::Left);
void releaseAt(WindowHandle window, std::int32_t x, std::int32_t y,
               PointerButton button = PointerButton::Left);

/// Press and release. Two clicks are never taken for a double click.
void click(WindowHandle window, std::int32_t x, std::int32_t y,
           PointerButton button = PointerButton::Left);

/// Press, release, second press, release.
void doubleClick(WindowHandle window, std::int32_t x, std::int32_t y,
                 PointerButton button = PointerButton::Left);

/// Takes all presses away, as a lock screen does: no window hears of a release.
void loseReleases();
/// The second press of a double click, held.
void pressAgainAt(WindowHandle window, std::int32_t x, std::int32_t y,
                  PointerButton button = PointerButton::Left);

/// Clicks a push button by its caption, "&" included, with the pointer or the keyboard. It does
/// nothing while the user can't reach the window.
void clickButton(WindowHandle window, const std::string& caption);

/// Turns the wheel over a place by so many list rows, downwards positive.
void wheelAt(WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t rows);

/// Types a key into a window.
void typeKey(WindowHandle window, Key key);
void typeText(WindowHandle window, const std::string& character);

/// The user moves a window by the window manager's means.
void moveByWindowManager(WindowHandle window, platform::Point corner);

/// The user, or the window manager, makes a window an icon, which only the normal state undoes.
void minimiseByWindowManager(WindowHandle window);

/// The user closes a window, or the session ends.
void closeByUser(WindowHandle window);

/// Runs while the next modal window is open; the window must get closed by it or by what it plans.
void onModalWindow(std::function<void()> action);

/// The user sets the display to another scale, see `Desktop::scale`.
void changeScale(double scale);

/// Has the windows that asked for it paint themselves, as the event loop does before it waits.
void paintWaiting();

} // namespace simulated
