#include "platform/windows/system_library.h"

#include <string>

namespace platform {

HMODULE loadSystemLibrary(const wchar_t* name) {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetSystemDirectoryW(path.data(), MAX_PATH));
    path += L'\\';
    path += name;
    return LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

} // namespace platform
