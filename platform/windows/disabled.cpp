#include "platform/windows/disabled.h"

#include <algorithm>
#include <utility>

namespace platform {
namespace {

/// What keeps the user from a window; null if nothing does, or nothing that is on the screen.
HWND boxOver(HWND window) {
    const WindowRecord record = findWindow(window);
    if (record == nullptr) return nullptr;
    const auto& all = record->disabledBy;
    const auto last = std::find_if(all.rbegin(), all.rend(), [](const Disabled* one) {
        return one->box() != nullptr && IsWindowVisible(one->box()) != FALSE;
    });
    return last == all.rend() ? nullptr : (*last)->box();
}

} // namespace

Disabled::Disabled(std::vector<WindowRecord> windows) : windows_(std::move(windows)) {
    for (const WindowRecord& record : windows_) {
        record->disabledBy.push_back(this);
        EnableWindow(record->window, FALSE);
    }
}

void Disabled::end() {
    for (const WindowRecord& record : std::exchange(windows_, {})) {
        std::erase(record->disabledBy, this);
        if (record->disabledBy.empty() && findWindow(record->window) == record)
            EnableWindow(record->window, TRUE);
    }
}

std::vector<WindowRecord> onlyWindow(HWND window) {
    const WindowRecord record = findWindow(window);
    if (record == nullptr) return {};
    return {record};
}

void bringToFront(HWND window) {
    if (const HWND box = boxOver(window)) window = box;
    if (IsIconic(window) != FALSE) ShowWindow(window, SW_RESTORE);
    SetForegroundWindow(window);
}

HWND ownerOfDialogs() {
    if (findWindow(GetActiveWindow()) != nullptr) return GetActiveWindow();
    for (const WindowRecord& record : windowTable())
        if (IsWindowVisible(record->window) != FALSE) return record->window;
    return nullptr;
}

KeyboardReturned::~KeyboardReturned() {
    if (active_ != nullptr && IsWindowVisible(active_) != FALSE) SetForegroundWindow(active_);
}

} // namespace platform
