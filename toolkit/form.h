#pragma once

#include "platform/picture.h"
#include "platform/window.h"
#include "toolkit/control.h"
#include "toolkit/painter.h"
#include "toolkit/timer.h"
#include "toolkit/units.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace toolkit {

class Accessibility;
struct AccessibleTable;

/// What a form is before its code runs.
struct FormData {
    std::string caption;
    Bounds bounds;        ///< as designed; `left` and `top` count only if not centred
    bool centred = false; ///< in the middle of the screen, frame included, when it loads
    StoredColour backColour = Black;
    Artwork picture; ///< drawn from the top left corner at its natural size
    platform::Frame frame = platform::Frame::None;
};

/// A top-level window: it holds its controls, topmost first, paints itself into one picture, at the
/// scale that the platform asks for, and sorts what the pointer and the keys do. It loads at the
/// first touch of any property, of its own or of its controls.
class Form {
  public:
    explicit Form(FormData data);
    ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    [[nodiscard]] Twips Left();
    void Left(Twips left);
    [[nodiscard]] Twips Top();
    void Top(Twips top);
    [[nodiscard]] Twips Width();
    void Width(Twips width);
    [[nodiscard]] Twips Height();
    void Height(Twips height);
    [[nodiscard]] bool Visible();
    /// The number that names the window to the system.
    [[nodiscard]] platform::WindowHandle hWnd();
    /// The program's icon as the shell's calls want it; 0 if there is none.
    [[nodiscard]] std::int32_t Icon();

    /// Takes the window out of any state that the window manager has put it into; 0, the normal
    /// state, is the only one that there is. A hidden window stays hidden. Error 5 for another
    /// state, or if the system refuses.
    void WindowState(runtime::Int16 state);
    /// Has the window as it now is on the screen before the call returns; no event runs.
    void Refresh();
    /// Shows the window without waiting for it.
    void Show();
    /// Shows the window, keeps the user from the other windows, and returns when it is hidden or
    /// unloaded; at once if it shows already.
    void ShowModal();
    void Hide();
    /// Runs `QueryUnload`, then takes the window away. The next touch loads it afresh.
    void Unload();

    std::function<void()> Load;
    std::function<void()> QueryUnload;
    /// What follows after the system, not the program, has closed the window; if set, the window
    /// is gone for good.
    std::function<void()> ClosedBySystem;
    /// What the system's wish to close the window does, in place of unloading it; if set.
    std::function<void()> CloseWished;
    /// What screen readers tell of the window; made when one first asks. Not set: nothing.
    std::function<AccessibleTable()> Accessible;
    MouseHandler MouseDown;
    MouseHandler MouseMove;
    MouseHandler MouseUp;
    // Keys go to every control, in the order of the table; the list box is the only one that has a
    // use for any.

    /// Takes a control of the window table below those taken before; loads nothing.
    void add(Control& control) { controls_.push_back(&control); }
    /// Takes a timer, which stops when the form unloads.
    void add(Timer& timer) { timers_.push_back(&timer); }
    /// The controls, topmost first.
    [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }

    /// Makes the window and runs `Load`, unless that has been done. Ends the program as
    /// `endIfGone` does.
    void load();
    /// For a handler that a dialog or a yield has held up while the system closed the window for
    /// good: it must neither go on nor bring the window back, so the program ends here. Any touch
    /// of the form or its controls asks the same.
    void endIfGone() const;
    [[nodiscard]] bool loaded() const { return window_ != 0; }
    /// Has the window painted anew once the running handler is done.
    void changed();

    /// Has done what a press, a move or a release there does; the tooltip stays with the pointer.
    void handle(const platform::PointerEvent& event);
    /// A press is in progress.
    [[nodiscard]] bool pressed() const { return captured_; }
    /// The topmost control that shows at a place in client pixels; null for the bare background.
    [[nodiscard]] Control* controlAt(platform::Point place) const;

  private:
    void centre();
    void createWindow();
    void close();
    void place();
    void moved(platform::Point corner);
    const platform::Picture& paint();
    const platform::AccessibleWindow& accessible();

    void dispatch(const platform::PointerEvent& event);
    void press(const platform::PointerEvent& event);
    void move(const platform::PointerEvent& event);
    void release(const platform::PointerEvent& event);
    [[nodiscard]] MouseArguments argumentsFor(const Control* target,
                                              const platform::PointerEvent& event) const;
    void refreshTooltip();

    FormData data_;
    std::vector<Control*> controls_;
    std::vector<Timer*> timers_;
    Bounds bounds_;
    platform::WindowHandle window_ = 0;
    platform::Point corner_; ///< where the window was last put, screen pixels
    platform::Picture picture_;
    bool visible_ = false;
    bool gone_ = false; ///< closed by the system, not to come back
    double scale_ = 1;  ///< of the picture: so many of its pixels to one of the window's
    bool stale_ = true;

    // The press in progress: who took it (no control stands for the background), and where the
    // pointer is.
    bool captured_ = false;
    Control* captor_ = nullptr;
    Control* firstPressed_ = nullptr; ///< by the press before: both make a double click
    platform::PointerButton capturingButton_ = platform::PointerButton::None;
    platform::Point pointer_;
    bool pointerInside_ = false;
    std::string tooltip_;
    std::unique_ptr<Accessibility> accessibility_; ///< null until a reader asks
};

} // namespace toolkit
