#pragma once

#include "platform/accessibility.h"
#include "platform/window.h"
#include "toolkit/accessible.h"
#include "toolkit/timer.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace toolkit {

class Form;

/// What stands between a form and the screen readers: it tells of the form's things, has done what
/// a reader asks for by presses, moves and releases at the form, and tells what has changed. There
/// is none before a reader has asked.
class Accessibility {
  public:
    Accessibility(Form& form, AccessibleTable table);
    Accessibility(const Accessibility&) = delete;
    Accessibility& operator=(const Accessibility&) = delete;

    [[nodiscard]] const platform::AccessibleWindow& window() const { return window_; }

    /// Something of the form has changed: the readers hear of it from the event loop.
    void changed();
    /// The form's window goes: nothing more is done or told.
    void stop();

  private:
    /// What the readers take a thing to be.
    struct Told {
        bool shown = false;
        platform::AccessibleThing thing;
        std::uint32_t rowChanges = 0;
    };

    [[nodiscard]] const Accessible* find(std::int32_t number) const;
    [[nodiscard]] std::vector<std::int32_t> shownThings() const;
    [[nodiscard]] platform::AccessibleThing read(platform::AccessiblePlace place) const;
    [[nodiscard]] platform::AccessibleThing readRow(const Accessible& list, std::int32_t row) const;
    [[nodiscard]] Told look(const Accessible& thing) const;

    void plan(std::function<void()> action);
    void runNext();
    void click(const Accessible& thing);
    void clickRow(const Accessible& list, std::int32_t row, bool twice);
    void drag(const Accessible& slider, double number);
    bool press(platform::Point place, bool second = false);
    void release();

    void tell();
    void tellThing(std::int32_t number, const Told& before, const Told& now) const;

    Form& form_;
    AccessibleTable table_;
    platform::AccessibleWindow window_;
    std::deque<std::function<void()>> planned_;
    Timer next_;    ///< runs what is planned
    Timer letGo_;   ///< ends a press whose handler waits for that
    Timer telling_; ///< looks for changes
    bool held_ = false;
    platform::Point pressed_; ///< where the press in progress is, client pixels
    std::vector<Told> told_;
};

} // namespace toolkit
