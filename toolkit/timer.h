#pragma once

#include "platform/types.h"
#include "runtime/integers.h"

#include <functional>

namespace toolkit {

class Form;

/// A periodic event of a form. Ticks run from the event loop and never overlap a handler, except
/// inside its own yields, menus and dialogs.
class Timer {
  public:
    Timer() = default;
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// Period in ms; 0 keeps the timer silent.
    [[nodiscard]] runtime::Int32 Interval() const;
    void Interval(runtime::Int32 milliseconds);

    /// Enabling a timer that runs already doesn't start its period anew.
    [[nodiscard]] bool Enabled() const;
    void Enabled(bool on);

    std::function<void()> Tick;

    /// Ties the timer to its form with the values of the window table; loads nothing.
    void attach(Form& form, runtime::Int32 milliseconds, bool enabled);

    /// Silences the timer as its form unloads.
    void detach();

  private:
    void restart();

    Form* form_ = nullptr;
    platform::TimerHandle handle_ = 0;
    runtime::Int32 interval_ = 0;
    bool enabled_ = false;
};

} // namespace toolkit
