#pragma once

#include "platform/picture.h"
#include "platform/window.h"
#include "runtime/integers.h"
#include "toolkit/units.h"

#include <functional>
#include <string>

namespace toolkit {

class Form;
struct Canvas;

/// What a mouse event tells its handler. X and Y are twips relative to the control.
struct MouseArguments {
    runtime::Int16 Button = 0; ///< 1 left, 2 right, 4 middle
    Twips X = 0;
    Twips Y = 0;
};

using MouseHandler = std::function<void(const MouseArguments&)>;

/// What all visible controls of a form have in common. Reading or writing any property loads the
/// form. Events go to the handlers that are set.
class Control {
  public:
    Control() = default;
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    [[nodiscard]] Twips Left() const;
    void Left(Twips left);
    [[nodiscard]] Twips Top() const;
    void Top(Twips top);
    [[nodiscard]] Twips Width() const;
    [[nodiscard]] Twips Height() const;
    [[nodiscard]] bool Visible() const;
    void Visible(bool visible);
    /// Sets `Left` alone, as the image's own operation does when it is given nothing else.
    void Move(Twips left) { Left(left); }

    MouseHandler MouseDown;
    MouseHandler MouseMove;
    MouseHandler MouseUp;
    std::function<void()> Click;
    std::function<void()> DblClick;

    /// Puts the control on its form with the values of the window table; loads nothing.
    void place(Form& form, std::string name, const Bounds& bounds, bool visible,
               std::string tooltip);

    // What the form asks of a control while it paints and sorts events; none of these loads it.
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const std::string& tooltip() const { return tooltip_; }
    [[nodiscard]] bool shown() const { return visible_; }
    [[nodiscard]] platform::Rect area() const { return toPixels(bounds_); }
    /// Its form has a window now.
    virtual void windowMade(platform::WindowHandle) {}
    /// Whether a press and release of this button on the control is a click of it.
    [[nodiscard]] virtual bool clicksWith(platform::PointerButton button) const;
    /// Draws the control on the form's canvas, inside `area`.
    virtual void paint(const Canvas& target, const platform::Rect& area) const;
    /// Lets the control itself react before its handlers run. Places are pixels of its own area.
    virtual void pointer(const platform::PointerEvent&) {}
    virtual void key(const platform::KeyEvent&) {}

  protected:
    /// Loads the form; every property starts with it.
    void touch() const;
    /// Has the form painted anew.
    void changed();

  private:
    Form* form_ = nullptr;
    std::string name_;
    std::string tooltip_;
    Bounds bounds_;
    bool visible_ = false;
};

} // namespace toolkit
