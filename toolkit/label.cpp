#include "toolkit/label.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace toolkit {

std::string Label::Caption() const {
    touch();
    return caption_;
}

void Label::Caption(const std::string& caption) {
    touch();
    if (caption_ == caption) return;
    caption_ = caption;
    changed();
}

StoredColour Label::ForeColor() const {
    touch();
    return colour_;
}

void Label::ForeColor(StoredColour colour) {
    touch();
    if (colour_ == colour) return;
    colour_ = colour;
    changed();
}

void Label::setText(std::string caption, platform::Font font, StoredColour colour) {
    caption_ = std::move(caption);
    font_ = std::move(font);
    colour_ = colour;
}

void Label::paint(const Canvas& target, const platform::Rect& area) const {
    fill(target, area, pixelOf(backColour_));
    if (caption_.empty()) return;
    // A face taller than its box loses its blank rows above and below alike.
    const std::int32_t spare =
        area.bottom - area.top - platform::measureText(font_, caption_).height;
    const platform::Point origin{area.left, area.top + std::min(spare, 0) / 2};
    write(target, area, origin, font_, pixelOf(colour_), caption_);
}

} // namespace toolkit
