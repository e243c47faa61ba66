#include "platform/region_table.h"

#include "platform/regions.h"

#include <cstdint>
#include <utility>

namespace platform {

RegionHandle RegionTable::add(const RegionPart& part) {
    regions_.emplace(++last_, RegionShape{part});
    return last_;
}

std::int32_t RegionTable::combine(RegionHandle target, RegionHandle first, RegionHandle second,
                                  std::int32_t mode) {
    const auto a = regions_.find(first);
    const auto b = regions_.find(second);
    const auto result = regions_.find(target);
    if (mode != RGN_OR || a == regions_.end() || b == regions_.end() || result == regions_.end())
        return 0;
    RegionShape both = a->second;
    both.insert(both.end(), b->second.begin(), b->second.end());
    result->second = std::move(both);
    switch (rowsOf(result->second).rectangles.size()) {
    case 0:
        return 1;
    case 1:
        return 2;
    default:
        return 3;
    }
}

std::optional<RegionShape> RegionTable::take(RegionHandle region) {
    auto node = regions_.extract(region);
    if (node.empty()) return std::nullopt;
    return std::move(node.mapped());
}

} // namespace platform
