#include "toolkit/painter.h"

#include "platform/device_pixels.h"

#include <algorithm>

namespace toolkit {
namespace {

platform::Rect boundsOf(const platform::Picture& picture) {
    return {0, 0, picture.width, picture.height};
}

/// The part of the target that a picture at `corner` covers.
platform::Rect placeOf(const platform::Picture& target, const platform::Rect& clip,
                       platform::Point corner, const platform::Picture& source) {
    const platform::Rect place{corner.x, corner.y, corner.x + source.width,
                               corner.y + source.height};
    return intersection(intersection(place, clip), boundsOf(target));
}

/// The colour over the other, by its alpha; opaque.
platform::Pixel mixed(platform::Pixel below, platform::Pixel above) {
    const std::uint32_t alpha = above >> 24U;
    platform::Pixel result = 0xFF000000U;
    for (const std::uint32_t shift : {0U, 8U, 16U}) {
        const std::uint32_t sum =
            (above >> shift & 0xFFU) * alpha + (below >> shift & 0xFFU) * (0xFFU - alpha) + 0x7FU;
        result |= sum / 0xFFU << shift;
    }
    return result;
}

/// Copies a picture with its top left corner at `corner`, only inside `clip`.
void blit(platform::Picture& target, const platform::Rect& clip, platform::Point corner,
          const platform::Picture& source) {
    const platform::Rect part = placeOf(target, clip, corner, source);
    if (part.left >= part.right) return;
    for (std::int32_t y = part.top; y < part.bottom; ++y) {
        const platform::Pixel* from = source.row(y - corner.y);
        std::copy(from + (part.left - corner.x), from + (part.right - corner.x),
                  target.row(y) + part.left);
    }
}

/// The same with the source's alpha: what shines through it stays.
void blend(platform::Picture& target, const platform::Rect& clip, platform::Point corner,
           const platform::Picture& source) {
    const platform::Rect part = placeOf(target, clip, corner, source);
    for (std::int32_t y = part.top; y < part.bottom; ++y)
        for (std::int32_t x = part.left; x < part.right; ++x) {
            platform::Pixel& pixel = target.row(y)[x];
            pixel = mixed(pixel, source.row(y - corner.y)[x - corner.x]);
        }
}

} // namespace

platform::Rect intersection(const platform::Rect& a, const platform::Rect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

platform::Point Canvas::onPicture(platform::Point place) const {
    using platform::deviceEdge;
    return {deviceEdge(origin.x + place.x, scale) - deviceEdge(origin.x, scale),
            deviceEdge(origin.y + place.y, scale) - deviceEdge(origin.y, scale)};
}

platform::Rect Canvas::onPicture(const platform::Rect& area) const {
    const platform::Point corner = onPicture(platform::Point{area.left, area.top});
    const platform::Point end = onPicture(platform::Point{area.right, area.bottom});
    return {corner.x, corner.y, end.x, end.y};
}

bool Canvas::shows(const platform::Rect& area) const {
    const platform::Rect part = intersection(onPicture(area), boundsOf(picture));
    return part.left < part.right && part.top < part.bottom;
}

void fill(const Canvas& target, const platform::Rect& area, platform::Pixel colour) {
    platform::Picture& picture = target.picture;
    const platform::Rect part = intersection(target.onPicture(area), boundsOf(picture));
    for (std::int32_t y = part.top; y < part.bottom; ++y)
        if (part.left < part.right)
            std::fill(picture.row(y) + part.left, picture.row(y) + part.right, colour);
}

void lay(const Canvas& target, const platform::Rect& clip, platform::Point corner,
         const Artwork& artwork) {
    const platform::Point onWindow{target.origin.x + corner.x, target.origin.y + corner.y};
    const platform::Picture& source = artwork.at(target.scale, onWindow);
    const auto draw = artwork.opaque() ? blit : blend;
    draw(target.picture, target.onPicture(clip), target.onPicture(corner), source);
}

void write(const Canvas& target, const platform::Rect& clip, platform::Point origin,
           const platform::Font& font, platform::Pixel colour, std::string_view text) {
    platform::Font scaled = font;
    scaled.scale = target.scale;
    platform::drawText(target.picture, target.onPicture(clip), target.onPicture(origin), scaled,
                       colour, text);
}

void copy(platform::Picture& target, platform::Point corner, const platform::Picture& source) {
    blit(target, boundsOf(target), corner, source);
}

} // namespace toolkit
