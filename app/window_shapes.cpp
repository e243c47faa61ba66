#include "app/window_shapes.h"

#include "platform/regions.h"
#include "runtime/rounding.h"
#include "toolkit/screen.h"

#include <cstdint>

namespace {

constexpr std::int32_t redrawNow = -1;

/// A window's size in pixels as real numbers. The twips per pixel themselves serve as a number of
/// pixels too: they are the diameter of the corners and the height of the strip that stays round.
struct Measures {
    double width;
    double height;
    double twipsX;
    double twipsY;
};

Measures measuresOf(toolkit::Form& window) {
    const double twipsX = toolkit::Screen::TwipsPerPixelX();
    const double twipsY = toolkit::Screen::TwipsPerPixelY();
    return {runtime::divide(window.Width(), twipsX), runtime::divide(window.Height(), twipsY),
            twipsX, twipsY};
}

std::int32_t rounded(double value) { return runtime::roundToInt32(value).value(); }

platform::RegionHandle roundShape(const Measures& m) {
    return platform::CreateRoundRectRgn(0, 0, rounded(m.width + 1), rounded(m.height + 1),
                                        rounded(m.twipsX), rounded(m.twipsY));
}

} // namespace

void shapeMainWindow(toolkit::Form& window) {
    const Measures m = measuresOf(window);
    const platform::RegionHandle round = roundShape(m);
    const platform::RegionHandle lowerBlock =
        platform::CreateRectRgn(0, rounded(m.twipsY), rounded(m.width), rounded(m.height));
    platform::CombineRgn(lowerBlock, round, lowerBlock, platform::RGN_OR);
    platform::SetWindowRgn(window.hWnd(), lowerBlock, redrawNow);
}

void shapePlaylistWindow(toolkit::Form& window) {
    const Measures m = measuresOf(window);
    const platform::RegionHandle upperBlock =
        platform::CreateRectRgn(0, 0, rounded(m.width), rounded(m.height - m.twipsY));
    const platform::RegionHandle round = roundShape(m);
    platform::CombineRgn(round, upperBlock, round, platform::RGN_OR);
    platform::SetWindowRgn(window.hWnd(), round, redrawNow);
}
