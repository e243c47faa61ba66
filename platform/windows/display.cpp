#include "platform/windows/display.h"

#include "platform/device_pixels.h"

#include <algorithm>

namespace platform {
namespace {

double scaleOfSystem() {
    constexpr double usualPixels = 96; // an inch
    const HDC screen = GetDC(nullptr);
    const int pixelsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return std::max(1.0, pixelsPerInch / usualPixels);
}

} // namespace

double displayScale() {
    static const double scale = scaleOfSystem();
    return scale;
}

Point pixelUnder(POINT place) { return pixelUnder({place.x, place.y}, displayScale()); }

} // namespace platform
