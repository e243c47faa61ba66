#include "platform/regions.h"

#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/region_table.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace platform {
namespace {

RegionTable& regions() {
    static RegionTable table;
    return table;
}

} // namespace

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

std::int32_t SetWindowRgn(WindowHandle window, RegionHandle region, std::int32_t /*redraw*/) {
    WindowWidget* const widget = findWindow(window);
    if (widget == nullptr) return 0;
    if (region == 0) {
        widget->cut(std::nullopt);
        return 1;
    }
    auto shape = regions().take(region);
    if (!shape) return 0;
    widget->cut(std::move(shape));
    return 1;
}

} // namespace platform
