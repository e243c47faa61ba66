#include "toolkit/painter.h"

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

} // namespace

platform::Rect intersection(const platform::Rect& a, const platform::Rect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

void fill(platform::Picture& target, const platform::Rect& area, platform::Pixel colour) {
    const platform::Rect part = intersection(area, boundsOf(target));
    for (std::int32_t y = part.top; y < part.bottom; ++y)
        if (part.left < part.right)
            std::fill(target.row(y) + part.left, target.row(y) + part.right, colour);
}

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

void blend(platform::Picture& target, const platform::Rect& clip, platform::Point corner,
           const platform::Picture& source) {
    const platform::Rect part = placeOf(target, clip, corner, source);
    for (std::int32_t y = part.top; y < part.bottom; ++y)
        for (std::int32_t x = part.left; x < part.right; ++x) {
            platform::Pixel& pixel = target.row(y)[x];
            pixel = mixed(pixel, source.row(y - corner.y)[x - corner.x]);
        }
}

} // namespace toolkit
