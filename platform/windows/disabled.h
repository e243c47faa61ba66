#pragma once

#include "platform/windows/window_table.h"

#include <vector>

namespace platform {

/// Keeps the user from windows of the player for as long as the object lives, whatever else does
/// so meanwhile and ends before or after it.
class Disabled {
  public:
    explicit Disabled(std::vector<WindowRecord> windows);
    Disabled(const Disabled&) = delete;
    Disabled& operator=(const Disabled&) = delete;
    ~Disabled() { end(); }

    /// What the user has to deal with first.
    void inFavourOf(HWND box) { box_ = box; }
    [[nodiscard]] HWND box() const { return box_; }
    /// Lets the user at the windows again before the object ends.
    void end();

  private:
    std::vector<WindowRecord> windows_;
    HWND box_ = nullptr;
};

/// The window alone, or none if it isn't the player's.
std::vector<WindowRecord> onlyWindow(HWND window);

/// Brings a window to the front, or in its place what keeps the user from it.
void bringToFront(HWND window);

/// The window that a dialog should belong to: the active one, or else the first on the screen; null
/// if none is.
HWND ownerOfDialogs();

/// Gives the keyboard back to the window that had it when the object was made: the system may give
/// it to another program when a window goes whose owner was disabled.
class KeyboardReturned {
  public:
    KeyboardReturned() : active_(GetActiveWindow()) {}
    KeyboardReturned(const KeyboardReturned&) = delete;
    KeyboardReturned& operator=(const KeyboardReturned&) = delete;
    ~KeyboardReturned();

  private:
    HWND active_;
};

} // namespace platform
