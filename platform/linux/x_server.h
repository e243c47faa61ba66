#pragma once

#include "platform/types.h"

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The X server over Qt's own connection, for what Qt has no word for. After `start`.
namespace platform::x {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

/// Whether Qt draws on an X server; without one nothing else here may be called.
bool isThere();

xcb_connection_t* server();
xcb_window_t root();

/// The atom of a name, which is made if there is none yet.
xcb_atom_t atom(std::string_view name);
/// Empty if there is no such atom.
std::string nameOf(xcb_atom_t atom);

/// Sets a window's property to 32-bit values.
void setProperty(xcb_window_t window, xcb_atom_t name, xcb_atom_t type,
                 const std::vector<std::uint32_t>& values);

/// Sets a window's property to a text.
void setText(xcb_window_t window, std::string_view name, const std::string& utf8);

/// Gives a window a title, as it stands.
void setTitle(xcb_window_t window, const std::string& utf8);

/// Tells all who wait for programs to start what there is to know of it. The window is any of the
/// program's own.
void tellStart(xcb_window_t window, const std::string& message);

/// Whether the desktop shows itself alone, all windows cleared away. False without a server.
bool isShowingDesktop();

/// Sends the window manager a request about a window.
void askWindowManager(xcb_atom_t request, xcb_window_t window,
                      const std::array<std::uint32_t, 5>& values);

/// Cuts a window to rectangles in the display's own pixels, counted from its top left corner.
void cutWindow(xcb_window_t window, const std::vector<Rect>& rectangles);

/// Gives a window a size in the display's own pixels, whatever steps its hints tell.
void resizeWindow(xcb_window_t window, Size size);

/// Shows a window of which the window manager has made an icon.
void leaveIcon(xcb_window_t window);

/// Where a window's top left corner is, in the display's own pixels.
Point placeOf(xcb_window_t window);

/// The window that gets the keys; 0 or 1 if it is none or the one under the pointer.
xcb_window_t keyboardWindow();

/// Waits until the server has done what it was asked so far.
void awaitServer();

/// The 32-bit values of a window's property; none if there is no such property.
std::vector<std::uint32_t> property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type);

} // namespace platform::x
