#include "platform/events.h"

#include "platform/linux/lifetime.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>

namespace platform {
namespace {

/// A timer whose tick goes on through the event queue. Qt doesn't fire a timer again while its
/// handler runs; the handler here returns at once, so ticks go on inside a tick that opened a
/// dialog.
class PostedTimer : public QObject {
  public:
    PostedTimer(std::uint32_t milliseconds, std::function<void()> tick) : tick_(std::move(tick)) {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setInterval(static_cast<int>(milliseconds));
        connect(&timer_, &QTimer::timeout, this, [this] { postTick(); });
        timer_.start();
    }

    void end() {
        timer_.stop();
        lifetime_.end();
    }

  protected:
    void customEvent(QEvent* /*event*/) override {
        waiting_ = false;
        lifetime_.run(tick_);
    }

  private:
    void postTick() {
        if (!std::exchange(waiting_, true))
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    QTimer timer_;
    std::function<void()> tick_;
    bool waiting_ = false;
    Lifetime lifetime_{*this};
};

std::unordered_map<TimerHandle, PostedTimer*>& timers() {
    static std::unordered_map<TimerHandle, PostedTimer*> all;
    return all;
}

} // namespace

TimerHandle startTimer(std::uint32_t milliseconds, std::function<void()> tick) {
    static TimerHandle last = 0;
    timers().emplace(++last, new PostedTimer(milliseconds, std::move(tick)));
    return last;
}

void stopTimer(TimerHandle timer) {
    const auto found = timers().find(timer);
    if (found == timers().end()) return;
    PostedTimer* const stopped = found->second;
    timers().erase(found);
    stopped->end();
}

} // namespace platform
