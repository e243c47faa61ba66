#include "platform/simulated/regions.h"

#include "platform/simulated/window_state.h"
#include "platform/simulated/world.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

namespace simulated {

bool inShape(platform::WindowHandle handle, std::int32_t x, std::int32_t y) {
    const Window& cut = window(handle);
    const bool inside = x >= 0 && y >= 0 && x < cut.size.width && y < cut.size.height;
    return inside && (!cut.shape || cut.shape->contains({x, y}));
}

} // namespace simulated

namespace platform {
namespace {

/// Notes a call with its numbers; a handle that it gave comes first.
void noteCall(const char* call, std::initializer_list<std::int64_t> numbers) {
    std::string line = call;
    for (const std::int64_t number : numbers)
        line += ' ' + std::to_string(number);
    simulated::note(line);
}

} // namespace

using simulated::world;

RegionHandle CreateRoundRectRgn(std::int32_t left, std::int32_t top, std::int32_t right,
                                std::int32_t bottom, std::int32_t ellipseWidth,
                                std::int32_t ellipseHeight) {
    const RegionHandle region =
        world.regions.table.add({{left, top, right, bottom}, true, {ellipseWidth, ellipseHeight}});
    noteCall("round region", {region, left, top, right, bottom, ellipseWidth, ellipseHeight});
    return region;
}

RegionHandle CreateRectRgn(std::int32_t left, std::int32_t top, std::int32_t right,
                           std::int32_t bottom) {
    const RegionHandle region = world.regions.table.add({{left, top, right, bottom}, false, {}});
    noteCall("region", {region, left, top, right, bottom});
    return region;
}

std::int32_t CombineRgn(RegionHandle target, RegionHandle first, RegionHandle second,
                        std::int32_t mode) {
    const std::int32_t result = world.regions.table.combine(target, first, second, mode);
    if (result == 0) simulated::misuse("a region that is unknown or belongs to the system");
    noteCall("combine regions", {target, first, second, mode});
    return result;
}

std::int32_t SetWindowRgn(WindowHandle window, RegionHandle region, std::int32_t redraw) {
    simulated::Window& cut = simulated::existing(window);
    const auto shape = region == 0 ? std::nullopt : world.regions.table.take(region);
    if (region != 0 && !shape)
        simulated::misuse("a region that is unknown or belongs to the system");
    cut.region = region;
    cut.shape = shape ? std::optional(rowsOf(*shape)) : std::nullopt;
    if (redraw != 0) cut.paintWanted = true;
    simulated::note("shape window " + std::to_string(window) + (redraw == 0 ? " unpainted" : ""));
    return 1;
}

} // namespace platform
