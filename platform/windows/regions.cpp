#include "platform/regions.h"

#include "platform/region_table.h"
#include "platform/windows/display.h"
#include "platform/windows/handles.h"
#include "platform/windows/shape.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace platform {
namespace {

RegionTable& regions() {
    static RegionTable table;
    return table;
}

/// The system's region for a part, in the display's pixels.
HRGN regionOf(const RegionPart& part) {
    const Rect& e = part.edges;
    if (!part.round) return ::CreateRectRgn(e.left, e.top, e.right, e.bottom);
    return ::CreateRoundRectRgn(e.left, e.top, e.right, e.bottom, part.ellipse.width,
                                part.ellipse.height);
}

HRGN regionOf(const RegionShape& shape) {
    const HRGN whole = ::CreateRectRgn(0, 0, 0, 0);
    for (const RegionPart& part : shape) {
        const HRGN one = regionOf(part);
        ::CombineRgn(whole, whole, one, RGN_OR);
        DeleteObject(one);
    }
    return whole;
}

} // namespace

// The system cuts them, but by the display's pixels, which are known once a window has them.

RegionHandle CreateRoundRectRgn(std::int32_t left, std::int32_t top, std::int32_t right,
                                std::int32_t bottom, std::int32_t ellipseWidth,
                                std::int32_t ellipseHeight) {
    return regions().add({{left, top, right, bottom}, true, {ellipseWidth, ellipseHeight}});
}

RegionHandle CreateRectRgn(std::int32_t left, std::int32_t top, std::int32_t right,
                           std::int32_t bottom) {
    return regions().add({{left, top, right, bottom}, false, {}});
}

std::int32_t CombineRgn(RegionHandle target, RegionHandle first, RegionHandle second,
                        std::int32_t mode) {
    return regions().combine(target, first, second, mode);
}

bool fitShape(WindowState& state) {
    if (!state.shape) return true;
    RegionShape cut = onDisplay(*state.shape, displayScale(), state.place);
    if (state.cutTo == cut) return true;
    state.cutTo = std::move(cut);
    return ::SetWindowRgn(state.window, regionOf(*state.cutTo), TRUE) != 0;
}

std::int32_t SetWindowRgn(WindowHandle window, RegionHandle region, std::int32_t redraw) {
    const WindowRecord record = findWindow(windowOf(window));
    if (record == nullptr) return 0;
    std::optional<RegionShape> shape = regions().take(region);
    if (region != 0 && !shape) return 0;
    record->shape = std::move(shape);
    record->cutTo.reset();
    if (region == 0) return ::SetWindowRgn(record->window, nullptr, redraw);
    return fitShape(*record) ? 1 : 0;
}

} // namespace platform
