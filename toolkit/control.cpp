#include "toolkit/control.h"

#include "toolkit/form.h"

#include <utility>

namespace toolkit {

void Control::place(Form& form, std::string name, const Bounds& bounds, bool visible,
                    std::string tooltip) {
    form_ = &form;
    name_ = std::move(name);
    tooltip_ = std::move(tooltip);
    bounds_ = bounds;
    visible_ = visible;
}

void Control::touch() const {
    if (form_ != nullptr) form_->load();
}

void Control::changed() {
    if (form_ != nullptr) form_->changed();
}

Twips Control::Left() const {
    touch();
    return bounds_.left;
}

void Control::Left(Twips left) {
    touch();
    if (bounds_.left == left) return;
    bounds_.left = left;
    changed();
}

Twips Control::Top() const {
    touch();
    return bounds_.top;
}

void Control::Top(Twips top) {
    touch();
    if (bounds_.top == top) return;
    bounds_.top = top;
    changed();
}

Twips Control::Width() const {
    touch();
    return bounds_.width;
}

Twips Control::Height() const {
    touch();
    return bounds_.height;
}

bool Control::Visible() const {
    touch();
    return visible_;
}

void Control::Visible(bool visible) {
    touch();
    if (visible_ == visible) return;
    visible_ = visible;
    changed();
}

bool Control::clicksWith(platform::PointerButton) const { return true; }

void Control::paint(const Canvas&, const platform::Rect&) const {}

} // namespace toolkit
