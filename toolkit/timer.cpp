#include "toolkit/timer.h"

#include "platform/events.h"
#include "toolkit/form.h"
#include "toolkit/guard.h"

#include <cstdint>

namespace toolkit {

Timer::~Timer() { detach(); }

runtime::Int32 Timer::Interval() const {
    form_->load();
    return interval_;
}

void Timer::Interval(runtime::Int32 milliseconds) {
    form_->load();
    interval_ = milliseconds;
    restart();
}

bool Timer::Enabled() const {
    form_->load();
    return enabled_;
}

void Timer::Enabled(bool on) {
    form_->load();
    if (on == enabled_) return;
    enabled_ = on;
    restart();
}

void Timer::attach(Form& form, runtime::Int32 milliseconds, bool enabled) {
    form_ = &form;
    interval_ = milliseconds;
    enabled_ = enabled;
    restart();
}

void Timer::detach() {
    enabled_ = false;
    restart();
}

void Timer::restart() {
    if (handle_ != 0) platform::stopTimer(handle_);
    handle_ = 0;
    if (!enabled_ || interval_.value() <= 0) return;
    handle_ = platform::startTimer(static_cast<std::uint32_t>(interval_.value()), [this] {
        guarded([this] {
            if (Tick) Tick();
        });
    });
}

} // namespace toolkit
