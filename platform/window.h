#pragma once

#include "platform/accessibility.h"
#include "platform/picture.h"
#include "platform/text.h"
#include "platform/types.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// What the toolkit needs of a window system. Interface thread only, events included.
namespace platform {

enum class PointerAction { Move, Press, Release, Wheel, Leave };
enum class PointerButton { None, Left, Right, Middle, Other };

/// One thing that the pointer did over a window, or anywhere while a button pressed there is down.
struct PointerEvent {
    PointerAction action = PointerAction::Move;
    PointerButton button = PointerButton::None; ///< the button of a press or a release
    Point position;                             ///< client pixels; may lie outside the window
    bool secondPress = false;   ///< a press that completes a double click of this button
    bool buttonsHeld = false;   ///< any button is down after this event
    std::int32_t wheelRows = 0; ///< list rows to scroll, downwards positive; `Wheel` only
};

enum class Key { Other, Up, Down, Home, End, PageUp, PageDown, Enter, Escape, Tab, Space };

struct KeyEvent {
    Key key = Key::Other;
    std::string text; ///< what the key types, UTF-8; empty for keys that type nothing
};

/// The events of a window. Those not set are ignored.
struct WindowEvents {
    std::function<void(const PointerEvent&)> pointer;
    std::function<void(const KeyEvent&)> key;
    /// Asked for when the window has to show something new: the client area, each of its edges at
    /// `deviceEdge` of the window's `pictureScale`. One of the area's own size is enlarged.
    std::function<const Picture&()> paint;
    std::function<void(Point)> moved; ///< new top left corner, screen pixels
    std::function<void()> closing;    ///< the system closes the window, or the session ends
    /// What a screen reader can ask of the window; good until the next event.
    std::function<const AccessibleWindow&()> accessible;
};

enum class Frame {
    None,  ///< client area only, may be shaped
    Dialog ///< the platform's own thin title bar with a close box
};

struct WindowOptions {
    std::string title;
    Frame frame = Frame::None;
    Point position; ///< of the outer top left corner, screen pixels
    Size size;      ///< of the client area, pixels
};

/// What the pointer looks like over something, and the pixel of it that points.
struct PointerShape {
    Picture picture; ///< empty for the usual pointer
    Point hotSpot;
};

/// A push button of the platform's own, in its current style.
struct PushButton {
    std::string caption; ///< "&" stands before the letter that clicks it together with Alt
    Rect area;           ///< client pixels of its window
    Font font;
    PointerShape pointer;
};

/// What the frame adds to a window's client area, pixels: nothing for `Frame::None`. May wait for
/// the window manager to tell, for a second at most; nothing if it doesn't.
Size frameSize(Frame frame);

/// Makes a hidden top-level window.
WindowHandle createWindow(const WindowOptions& options, WindowEvents events);

/// Destroys a window; its events no longer run. Safe inside one of its own events.
void destroyWindow(WindowHandle window);

/// Shows a window without blocking, or hides it.
void showWindow(WindowHandle window, bool visible);

/// Takes a window out of an icon state, a maximised state and the desktop's "show desktop", without
/// showing a hidden one. False if the system refuses.
bool setNormalState(WindowHandle window);

/// Shows a window, keeps the user from the other windows that there are, and runs events until it
/// is hidden or destroyed. Dialogs and menus that come up meanwhile and the tray icon stay within
/// reach. The others take input again from then on, even if such a dialog keeps the call from
/// returning.
void showWindowModal(WindowHandle window);

/// How many pixels a window's picture should now have for one of its client area's, 1 to 4. Where
/// it changes the window is asked to paint.
double pictureScale(WindowHandle window);

/// Has `paint` called, once, before the event loop next waits.
void requestPaint(WindowHandle window);

/// Has what the window shows on the screen before the call returns, without letting any event run.
void paintNow(WindowHandle window);

/// Puts a push button in a window, on top of its picture and for as long as the window lasts. It
/// has the keyboard while its window has; the space bar, Return and Escape click it. `clicked` runs
/// from the event loop and may end the window.
void createPushButton(WindowHandle window, const PushButton& button, std::function<void()> clicked);

/// The tooltip of what is under the pointer now; empty for none. The platform shows it after its
/// usual delay and takes it away when the text changes.
void setTooltip(WindowHandle window, const std::string& text);

/// A hidden window that receives the tray icon's mouse codes (513 left press, 515 left double
/// click, 517 right release and so on) as pointer X in pixels.
WindowHandle createHookWindow(WindowHandle parent, std::function<void(std::int32_t)> code);

/// Gives the program its icon, in several sizes with real alpha. Called once, after `start`; a
/// platform whose executables carry their icon ignores it.
void setApplicationIcon(const std::vector<Picture>& sizes);

/// The program's icon as the shell calls want it; 0 if there is none.
std::int32_t applicationIcon();

struct MenuItem {
    std::string caption;
    std::int32_t id = 0; ///< of an entry, above 0; 0 for the head of a sub-menu
    std::vector<MenuItem> children;
};

/// Shows a menu at the pointer and runs events until it closes. The id picked, or 0.
std::int32_t popupMenu(WindowHandle window, const std::vector<MenuItem>& items);

/// The menu of the tray icon, for a desktop that shows it itself: `picked` runs from the event loop
/// with the id of an entry. Elsewhere the icon's mouse codes tell when to show it (`popupMenu`).
/// Before the icon is added.
void setTrayMenu(const std::vector<MenuItem>& items, std::function<void(std::int32_t)> picked);

enum class MessageIcon { None, Critical };

/// Shows a message with an OK button and runs events until it is closed. It keeps the user from the
/// windows that there are, not from dialogs, menus and the tray icon.
void messageBox(const std::string& text, const std::string& title, MessageIcon icon);

} // namespace platform
