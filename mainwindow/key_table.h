#pragma once

#include "toolkit/image.h"

#include <span>

/// Keys as data. Every key is a pair of images at one place, the down image above. The press shows
/// the down image; the release shows the key at rest and only then fires, wherever the pointer is
/// and whatever the button.
namespace keys {

/// Which of the two images a press or release changes, and which of them first.
enum class Flip { None, DownOnly, DownFirst, UpFirst };

/// A press (`down` true) or a release.
inline void flip(toolkit::Image& up, toolkit::Image& downImage, Flip order, bool down) {
    if (order == Flip::UpFirst) up.Visible(!down);
    if (order != Flip::None) downImage.Visible(down);
    if (order == Flip::DownFirst) up.Visible(!down);
}

/// One key of a window.
template <class Window>
struct KeyRow {
    toolkit::Image Window::*up;
    toolkit::Image Window::*down;
    Flip press;
    Flip release; ///< `None` where the action lifts the key itself
    void (*action)(Window&);
};

/// Connects the keys of a table; it has to outlive the window.
template <class Window>
void connect(Window& window, std::span<const KeyRow<Window>> table) {
    for (const KeyRow<Window>& row : table) {
        toolkit::Image& up = window.*row.up;
        toolkit::Image& down = window.*row.down;
        up.MouseDown = [&](const auto&) { flip(up, down, row.press, true); };
        up.MouseUp = [&](const auto&) {
            flip(up, down, row.release, false);
            // The key is seen to spring back, however long its action takes.
            window.window.Refresh();
            row.action(window);
        };
    }
}

} // namespace keys
