#include "platform/windows/folder_identity.h"

namespace platform {

std::wstring identityFrom(const BY_HANDLE_FILE_INFORMATION& about, const std::wstring& place) {
    // Some shared folders give all of theirs this number.
    if (about.nFileIndexHigh == 0 && about.nFileIndexLow == 0) return place;
    return std::to_wstring(about.dwVolumeSerialNumber) + L':' +
           std::to_wstring(about.nFileIndexHigh) + L':' + std::to_wstring(about.nFileIndexLow);
}

} // namespace platform
