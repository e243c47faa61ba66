#include "toolkit/image.h"

#include "toolkit/painter.h"

#include <algorithm>
#include <utility>

namespace toolkit {

void Image::setPicture(platform::Picture picture) {
    picture_ = std::move(picture);
    opaque_ = std::all_of(picture_.pixels.begin(), picture_.pixels.end(),
                          [](platform::Pixel pixel) { return pixel >= 0xFF000000U; });
}

void Image::paint(platform::Picture& target, const platform::Rect& area) const {
    const auto draw = opaque_ ? blit : blend;
    draw(target, area, {area.left, area.top}, picture_);
}

} // namespace toolkit
