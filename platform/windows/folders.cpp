#include "platform/files.h"
#include "platform/windows/error_numbers.h"
#include "platform/windows/folder_identity.h"
#include "platform/windows/open_handle.h"
#include "platform/windows/paths.h"
#include "platform/windows/utf16.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
namespace platform {
namespace {

OpenHandle openFolder(const std::wstring& path) {
    return OpenHandle(CreateFileW(path.c_str(), 0,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

/// Empty for a folder that isn't there.
std::wstring identityOf(const std::wstring& path) {
    const OpenHandle folder = openFolder(withinReach(path));
    BY_HANDLE_FILE_INFORMATION about = {};
    if (!folder.isOpen() || GetFileInformationByHandle(folder.get(), &about) == FALSE) return {};
    constexpr DWORD longest = 32768;
    std::wstring place(longest, L'\0');
    place.resize(GetFinalPathNameByHandleW(folder.get(), place.data(), longest, 0));
    return identityFrom(about, place);
}

/// Whether one of the folders that a path leads through, its last included, is `sought`.
bool leadsThrough(const std::wstring& path, const std::wstring& sought) {
    std::size_t end = 0;
    while (end != std::wstring::npos) {
        end = path.find(L'\\', end + 1);
        // With the separator behind it, as a drive without one is its current folder.
        if (identityOf(path.substr(0, end) + L'\\') == sought) return true;
    }
    return false;
}

/// What the desktop doesn't show, such as the system's own folders at the root of a drive.
constexpr DWORD hidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

bool isSubFolder(const std::wstring& folder, const WIN32_FIND_DATAW& entry) {
    const std::wstring name = entry.cFileName;
    if (name == L"." || name == L"..") return false;
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return false;
    if ((entry.dwFileAttributes & hidden) != 0) return false;
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return true;
    const std::wstring target = identityOf(folder + L'\\' + name);
    return !target.empty() && !leadsThrough(folder, target);
}

bool isOrdinaryFile(const WIN32_FIND_DATAW& entry) {
    return (entry.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | hidden)) == 0;
}

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool endsWith(std::string_view name, std::string_view extension) {
    return name.size() >= extension.size() &&
           std::equal(extension.begin(), extension.end(), name.end() - std::ssize(extension),
                      [](char a, char b) { return lowered(a) == lowered(b); });
}

struct Names {
    int error = 0;
    std::vector<std::wstring> names;
};

/// The names of the entries that `wanted` takes. Only an empty root has no entries at all.
template <class Wanted>
Names list(const std::wstring& folder, const Wanted& wanted) {
    WIN32_FIND_DATAW entry = {};
    const HANDLE search = FindFirstFileExW(withinReach(folder + L"\\*").c_str(), FindExInfoBasic,
                                           &entry, FindExSearchNameMatch, nullptr, 0);
    if (search == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        return {error == ERROR_FILE_NOT_FOUND ? 0 : errorNumberOf(error), {}};
    }
    Names found;
    do
        if (wanted(entry)) found.names.emplace_back(entry.cFileName);
    while (FindNextFileW(search, &entry) != FALSE);
    const DWORD last = GetLastError();
    FindClose(search);
    if (last != ERROR_NO_MORE_FILES) return {errorNumberOf(last), {}};
    return found;
}

std::wstring withoutSeparator(std::wstring folder) {
    if (folder.ends_with(L'\\')) folder.pop_back();
    return folder;
}

} // namespace

FolderListing listFolders(const std::string& folder) {
    const std::wstring path = withoutSeparator(toWide(folder));
    const std::wstring start = path + L'\\';
    const Names found =
        list(path, [&](const WIN32_FIND_DATAW& entry) { return isSubFolder(path, entry); });
    FolderListing listing = {found.error, {}};
    for (const std::wstring& name : found.names)
        listing.names.push_back(fromWide(start + name));
    return listing;
}

FolderListing listFiles(const std::string& folder, const std::string& extension) {
    const Names found = list(withoutSeparator(toWide(folder)), isOrdinaryFile);
    FolderListing listing = {found.error, {}};
    for (const std::wstring& wide : found.names) {
        std::string name = fromWide(wide);
        if (endsWith(name, extension)) listing.names.push_back(std::move(name));
    }
    return listing;
}

} // namespace platform
