#include "platform/windows/disabled.h"

#include <utility>

namespace platform {

Disabled::Disabled(std::vector<WindowRecord> windows) : windows_(std::move(windows)) {
    for (const WindowRecord& record : windows_)
        if (record->disabled++ == 0) EnableWindow(record->window, FALSE);
}

Disabled::~Disabled() {
    for (const WindowRecord& record : windows_)
        if (--record->disabled == 0 && findWindow(record->window) == record)
            EnableWindow(record->window, TRUE);
}

std::vector<WindowRecord> onlyWindow(HWND window) {
    const WindowRecord record = findWindow(window);
    if (record == nullptr) return {};
    return {record};
}

KeyboardReturned::~KeyboardReturned() {
    if (active_ != nullptr && IsWindowVisible(active_) != FALSE) SetForegroundWindow(active_);
}

} // namespace platform
