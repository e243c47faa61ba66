#include "platform/regions.h"

#include "platform/windows/handles.h"

#include <cstdint>

namespace platform {

RegionHandle CreateRoundRectRgn(std::int32_t left, std::int32_t top, std::int32_t right,
                                std::int32_t bottom, std::int32_t ellipseWidth,
                                std::int32_t ellipseHeight) {
    return numberOf(::CreateRoundRectRgn(left, top, right, bottom, ellipseWidth, ellipseHeight));
}

RegionHandle CreateRectRgn(std::int32_t left, std::int32_t top, std::int32_t right,
                           std::int32_t bottom) {
    return numberOf(::CreateRectRgn(left, top, right, bottom));
}

std::int32_t CombineRgn(RegionHandle target, RegionHandle first, RegionHandle second,
                        std::int32_t mode) {
    return ::CombineRgn(handleOf<HRGN>(target), handleOf<HRGN>(first), handleOf<HRGN>(second),
                        mode);
}

std::int32_t SetWindowRgn(WindowHandle window, RegionHandle region, std::int32_t redraw) {
    return ::SetWindowRgn(windowOf(window), handleOf<HRGN>(region), redraw);
}

} // namespace platform
