#pragma once

#include "platform/simulated/window.h"
#include "tests/behaviour/player.h"

/// The user's hands on the controls of a window.
namespace behaviour {

/// The middle of a control, in pixels of its window.
inline platform::Point middleOf(const toolkit::Control& control) {
    const platform::Rect area = control.area();
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

inline void pressOn(platform::WindowHandle window, const toolkit::Control& control,
                    platform::PointerButton button = platform::PointerButton::Left) {
    const platform::Point place = middleOf(control);
    simulated::pressAt(window, place.x, place.y, button);
}

inline void clickOn(platform::WindowHandle window, const toolkit::Control& control,
                    platform::PointerButton button = platform::PointerButton::Left) {
    pressOn(window, control, button);
    simulated::release(button);
}

inline void hoverOver(platform::WindowHandle window, const toolkit::Control& control) {
    const platform::Point place = middleOf(control);
    simulated::moveTo(window, place.x, place.y);
}

/// What the platform was told to show as a tooltip.
inline std::string tooltipOf(platform::WindowHandle window) {
    return simulated::window(window).tooltip;
}

/// Runs code that is to end the process in order; whether it did.
template <class Code>
bool endsTheProcess(Code&& code) {
    try {
        code();
    } catch (const simulated::ProcessEnded& ended) {
        return ended.status == 0;
    }
    return false;
}

} // namespace behaviour
