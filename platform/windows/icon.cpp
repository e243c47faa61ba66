#include "platform/window.h"
#include "platform/windows/handles.h"

#include <cstdint>
#include <vector>

namespace platform {

/// The executable carries it.
void setApplicationIcon(const std::vector<Picture>& /*sizes*/) {}

std::int32_t applicationIcon() {
    constexpr WORD number = 1;
    const HANDLE icon =
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(number), IMAGE_ICON,
                   GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED);
    return numberOf(icon);
}

} // namespace platform
