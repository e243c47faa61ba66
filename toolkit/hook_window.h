#pragma once

#include "platform/types.h"
#include "toolkit/control.h"

namespace toolkit {

class Form;

/// A hidden picture box that only serves as a window for the shell's messages: what the shell sends
/// as a mouse code arrives as the X coordinate of a move, in twips.
class HookWindow {
  public:
    /// Makes the window on a form. It lasts as long as the form's own.
    void add(Form& form);
    [[nodiscard]] platform::WindowHandle hWnd() const { return window_; }

    MouseHandler MouseMove;

  private:
    platform::WindowHandle window_ = 0;
};

} // namespace toolkit
