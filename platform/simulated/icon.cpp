#include "platform/window.h"

#include <cstdint>
#include <vector>

namespace platform {

void setApplicationIcon(const std::vector<Picture>&) {}

std::int32_t applicationIcon() { return 1; }

} // namespace platform
