#pragma once

#include "platform/region_shape.h"

#include <cstdint>
#include <optional>
#include <unordered_map>

namespace platform {

/// Shapes under handles, with the rules of the calls in platform/regions.h.
class RegionTable {
  public:
    /// A new handle for a shape of one part.
    RegionHandle add(const RegionPart& part);

    /// `CombineRgn`: 0 on failure, 1 for an empty result, 2 for one rectangle, 3 for more.
    std::int32_t combine(RegionHandle target, RegionHandle first, RegionHandle second,
                         std::int32_t mode);

    /// Hands the shape out and ends its handle. Nothing for a handle that isn't known.
    std::optional<RegionShape> take(RegionHandle region);

    /// Handles in use.
    [[nodiscard]] std::size_t size() const { return regions_.size(); }

  private:
    std::unordered_map<RegionHandle, RegionShape> regions_;
    RegionHandle last_ = 0;
};

} // namespace platform
