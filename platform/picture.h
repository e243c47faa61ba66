#pragma once

#include "platform/types.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace platform {

/// 0xAARRGGBB, alpha 0xFF for opaque. Windows show pictures as if every pixel were opaque.
using Pixel = std::uint32_t;

/// A block of pixels, row by row from the top left corner, no padding.
struct Picture {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<Pixel> pixels;

    Picture() = default;
    Picture(std::int32_t w, std::int32_t h, Pixel fill = 0xFF000000U)
        : width(w), height(h),
          pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), fill) {}

    [[nodiscard]] bool empty() const { return pixels.empty(); }
    [[nodiscard]] Pixel* row(std::int32_t y) {
        return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
    [[nodiscard]] const Pixel* row(std::int32_t y) const {
        return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
    friend bool operator==(const Picture&, const Picture&) = default;
};

} // namespace platform
