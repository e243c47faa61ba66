#include "platform/events.h"

#include "platform/windows/message_window.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>

namespace platform {
namespace {

using Tick = std::shared_ptr<std::function<void()>>;

std::unordered_map<TimerHandle, Tick>& timers() {
    static std::unordered_map<TimerHandle, Tick> all;
    return all;
}

/// A tick that waited when its timer was stopped finds no timer.
void tick(TimerHandle timer) {
    const auto found = timers().find(timer);
    if (found == timers().end()) return;
    const Tick held = found->second; // it may stop its own timer
    (*held)();
}

LRESULT CALLBACK timerProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message != WM_TIMER) return DefWindowProcW(window, message, first, second);
    tick(static_cast<TimerHandle>(first));
    return 0;
}

/// The system's timers make no message while one of theirs waits, so none queue up.
HWND timerWindow() {
    static const HWND window = createMessageWindow(L"OrvanTimers", timerProcedure);
    return window;
}

} // namespace

TimerHandle startTimer(std::uint32_t milliseconds, std::function<void()> tick) {
    static TimerHandle last = 0;
    timers().emplace(++last, std::make_shared<std::function<void()>>(std::move(tick)));
    SetTimer(timerWindow(), static_cast<UINT_PTR>(last), milliseconds, nullptr);
    return last;
}

void stopTimer(TimerHandle timer) {
    if (timers().erase(timer) != 0) KillTimer(timerWindow(), static_cast<UINT_PTR>(timer));
}

} // namespace platform
