#pragma once

#include "platform/region_table.h"
#include "platform/regions.h"

#include <cstdint>

namespace simulated {

struct Regions {
    platform::RegionTable table;
};

/// Whether a client pixel belongs to a window as it is cut now.
bool inShape(platform::WindowHandle window, std::int32_t x, std::int32_t y);

} // namespace simulated
