#include "toolkit/form.h"

#include "toolkit/screen.h"

#include <functional>
#include <string>

namespace toolkit {
namespace {

runtime::Int16 buttonNumber(platform::PointerButton button) {
    switch (button) {
    case platform::PointerButton::Left:
        return 1;
    case platform::PointerButton::Right:
        return 2;
    case platform::PointerButton::Middle:
        return 4;
    default:
        return 0;
    }
}

bool contains(const platform::Rect& area, platform::Point place) {
    return place.x >= area.left && place.x < area.right && place.y >= area.top &&
           place.y < area.bottom;
}

platform::PointerEvent relativeTo(const Control& control, platform::PointerEvent event) {
    const platform::Rect area = control.area();
    event.position = {event.position.x - area.left, event.position.y - area.top};
    return event;
}

void raise(const MouseHandler& handler, const MouseArguments& arguments) {
    if (handler) handler(arguments);
}

void raise(const std::function<void()>& handler) {
    if (handler) handler();
}

} // namespace

Control* Form::controlAt(platform::Point place) const {
    for (Control* control : controls_)
        if (control->shown() && contains(control->area(), place)) return control;
    return nullptr;
}

MouseArguments Form::argumentsFor(const Control* target,
                                  const platform::PointerEvent& event) const {
    const platform::PointerEvent local = target != nullptr ? relativeTo(*target, event) : event;
    return {buttonNumber(event.button),
            static_cast<Twips>(local.position.x) * Screen::TwipsPerPixelX(),
            static_cast<Twips>(local.position.y) * Screen::TwipsPerPixelY()};
}

void Form::dispatch(const platform::PointerEvent& event) {
    pointer_ = event.position;
    pointerInside_ = event.action != platform::PointerAction::Leave;
    handle(event);
    refreshTooltip();
}

void Form::handle(const platform::PointerEvent& event) {
    using platform::PointerAction;
    switch (event.action) {
    case PointerAction::Press:
        press(event);
        break;
    case PointerAction::Move:
        move(event);
        break;
    case PointerAction::Release:
        release(event);
        break;
    case PointerAction::Wheel:
        if (Control* control = controlAt(event.position)) control->pointer(event);
        break;
    case PointerAction::Leave:
        break;
    }
}

void Form::press(const platform::PointerEvent& event) {
    // A button pressed twice over has lost its release to a menu or dialog: that press is past.
    if (captured_ && event.button == capturingButton_) captured_ = false;
    if (!captured_) {
        captor_ = controlAt(event.position);
        capturingButton_ = event.button;
    }
    captured_ = true;
    Control* const target = captor_;
    // Two quick presses on neighbouring controls are no double click of either.
    const bool second = event.secondPress && target == firstPressed_;
    firstPressed_ = target;
    const MouseArguments arguments = argumentsFor(target, event);
    if (target == nullptr) return raise(MouseDown, arguments);
    target->pointer(relativeTo(*target, event));
    raise(target->MouseDown, arguments);
    if (second && target->clicksWith(event.button)) raise(target->DblClick);
}

void Form::move(const platform::PointerEvent& event) {
    // A release that a dialog or the window system swallowed is made up for: the press must not
    // outlive the button.
    if (captured_ && !event.buttonsHeld) {
        platform::PointerEvent lost = event;
        lost.action = platform::PointerAction::Release;
        lost.button = capturingButton_;
        release(lost);
    }
    Control* const target = captured_ ? captor_ : controlAt(event.position);
    const MouseArguments arguments = argumentsFor(target, event);
    if (target == nullptr) return raise(MouseMove, arguments);
    target->pointer(relativeTo(*target, event));
    raise(target->MouseMove, arguments);
}

void Form::release(const platform::PointerEvent& event) {
    if (!captured_) return;
    captured_ = event.buttonsHeld;
    Control* const target = captor_;
    const MouseArguments arguments = argumentsFor(target, event);
    if (target == nullptr) return raise(MouseUp, arguments);
    // Judged before the handler runs, which may hide or move the control.
    const bool clicked =
        contains(target->area(), event.position) && target->clicksWith(event.button);
    target->pointer(relativeTo(*target, event));
    raise(target->MouseUp, arguments);
    if (clicked) raise(target->Click);
}

void Form::refreshTooltip() {
    std::string text;
    if (pointerInside_ && window_ != 0)
        for (const Control* control : controls_)
            if (control->shown() && !control->tooltip().empty() &&
                contains(control->area(), pointer_)) {
                text = control->tooltip();
                break;
            }
    if (text == tooltip_) return;
    tooltip_ = text;
    platform::setTooltip(window_, tooltip_);
}

} // namespace toolkit
