#pragma once

#include "platform/types.h"
#include "platform/windows/win32.h"

#include <string>

namespace platform {

/// The tooltip of one window. The system's own control would go away at a press; this one shows
/// while a button is held too.
class Tooltip {
  public:
    Tooltip() = default;
    Tooltip(const Tooltip&) = delete;
    Tooltip& operator=(const Tooltip&) = delete;
    ~Tooltip() { stopWaiting(); }

    /// Starts the delay for a new text; empty takes the tooltip away.
    void setText(HWND owner, const std::string& text);
    /// The delay counts from when the pointer rests.
    void pointerMoved();

  private:
    void startWaiting();
    void stopWaiting();
    void show();
    void hide();

    HWND owner_ = nullptr;
    HWND control_ = nullptr; ///< ends with its owner
    std::string text_;
    TimerHandle delay_ = 0;
    bool shown_ = false;
};

} // namespace platform
