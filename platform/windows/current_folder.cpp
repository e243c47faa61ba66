#include "platform/windows/current_folder.h"

#include "platform/windows/win32.h"

namespace platform {

CurrentFolderKept::CurrentFolderKept() : folder_(GetCurrentDirectoryW(0, nullptr), L'\0') {
    folder_.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data()));
}

CurrentFolderKept::~CurrentFolderKept() { SetCurrentDirectoryW(folder_.c_str()); }

} // namespace platform
