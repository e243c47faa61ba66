#include "platform/shell.h"

#include "platform/windows/disabled.h"
#include "platform/windows/handles.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace platform {
namespace {

#ifndef _WIN64
// The seam's records are the system's own here, in the layout that the calls were made with.
static_assert(sizeof(NOTIFYICONDATA) == 88);
static_assert(sizeof(OPENFILENAME) == 76);
static_assert(sizeof(BROWSEINFO) == 32);
static_assert(sizeof(BROWSEINFO) == sizeof(BROWSEINFOA));
#endif

// Programs of 64 bits have wider pointers and handles, so every record is handed over member by
// member: one way for both.

OPENFILENAMEA systemRecord(const OPENFILENAME& record) {
    OPENFILENAMEA system = {};
    system.lStructSize = OPENFILENAME_SIZE_VERSION_400A;
    system.hwndOwner = windowOf(record.hwndOwner);
    system.lpstrFilter = record.lpstrFilter;
    system.lpstrCustomFilter = record.lpstrCustomFilter;
    system.nMaxCustFilter = record.nMaxCustFilter;
    system.nFilterIndex = record.nFilterIndex;
    system.lpstrFile = record.lpstrFile;
    system.nMaxFile = record.nMaxFile;
    system.lpstrFileTitle = record.lpstrFileTitle;
    system.nMaxFileTitle = record.nMaxFileTitle;
    system.lpstrInitialDir = record.lpstrInitialDir;
    system.lpstrTitle = record.lpstrTitle;
    system.Flags = record.Flags;
    system.lpstrDefExt = record.lpstrDefExt;
    return system;
}

NOTIFYICONDATAA systemRecord(const NOTIFYICONDATA& record) {
    NOTIFYICONDATAA system = {};
    system.cbSize = NOTIFYICONDATAA_V1_SIZE;
    system.hWnd = windowOf(record.hWnd);
    system.uID = record.uID;
    system.uFlags = record.uFlags;
    system.uCallbackMessage = record.uCallbackMessage;
    system.hIcon = handleOf<HICON>(record.hIcon);
    std::copy(std::begin(record.szTip), std::end(record.szTip), system.szTip);
    return system;
}

/// Items that dialogs gave, under numbers that count from 1.
std::vector<LPITEMIDLIST>& items() {
    static std::vector<LPITEMIDLIST> all;
    return all;
}

} // namespace

bool GetOpenFileNameA(OPENFILENAME* record) {
    OPENFILENAMEA system = systemRecord(*record);
    const bool confirmed = ::GetOpenFileNameA(&system) != FALSE;
    record->nFilterIndex = system.nFilterIndex;
    record->Flags = system.Flags;
    record->nFileOffset = system.nFileOffset;
    record->nFileExtension = system.nFileExtension;
    return confirmed;
}

std::int32_t SHBrowseForFolder(BROWSEINFO* record) {
    BROWSEINFOA system = {};
    system.hwndOwner = windowOf(record->hOwner);
    system.pszDisplayName = record->pszDisplayName;
    system.lpszTitle = record->lpszTitle;
    system.ulFlags = record->ulFlags;
    const KeyboardReturned keyboard;
    const Disabled owner(onlyWindow(system.hwndOwner));
    const LPITEMIDLIST item = ::SHBrowseForFolderA(&system);
    if (item == nullptr) return 0;
    items().push_back(item);
    return static_cast<std::int32_t>(items().size());
}

bool SHGetPathFromIDList(std::int32_t item, char* path) {
    if (item <= 0 || item > std::ssize(items())) return false;
    return ::SHGetPathFromIDListA(items()[static_cast<std::size_t>(item) - 1], path) != FALSE;
}

bool Shell_NotifyIconA(std::uint32_t message, NOTIFYICONDATA* record) {
    NOTIFYICONDATAA system = systemRecord(*record);
    return ::Shell_NotifyIconA(message, &system) != FALSE;
}

} // namespace platform
