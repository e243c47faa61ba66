#include "platform/linux/tray_clicks.h"

namespace platform {

std::vector<std::int32_t> TrayClicks::codesFor(TrayActivation activation, std::int64_t now) {
    if (activation == TrayActivation::MiddleClick) return {TrayMiddleDown, TrayMiddleUp};
    const bool second = isRecent(firstClick_, now);
    if (activation == TrayActivation::Click && !second) {
        firstClick_ = now;
        return {TrayLeftDown, TrayLeftUp};
    }
    firstClick_.reset();
    // The host goes on to report as one what its two clicks have been taken for already.
    if (activation == TrayActivation::DoubleClick && isRecent(madeOfClicks_, now)) return {};
    if (activation == TrayActivation::Click) madeOfClicks_ = now;
    return {TrayLeftDoubleClick, TrayLeftUp};
}

} // namespace platform
