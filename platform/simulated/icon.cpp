#include "platform/window.h"

namespace platform {

void setApplicationIcon(const std::vector<Picture>&) {}

std::int32_t applicationIcon() { return 1; }

} // namespace platform
