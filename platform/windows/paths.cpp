#include "platform/windows/paths.h"

#include "platform/windows/utf16.h"
#include "platform/windows/win32.h"

namespace platform {
namespace {

constexpr std::wstring_view onDrive = L"\\\\?\\";
constexpr std::wstring_view onShare = L"\\\\?\\UNC\\";
constexpr std::wstring_view share = L"\\\\";

/// A folder's path must leave room for a name of the old kind, "12345678.123".
constexpr std::size_t longestWithLimit = MAX_PATH - 12;

/// Without doubled separators, dots and the current folder's part; empty for what names nothing.
std::wstring fullPath(const std::wstring& path) {
    const DWORD room = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(room, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), room, full.data(), nullptr));
    return full;
}

} // namespace

std::wstring withoutLimit(const std::wstring& path) {
    if (path.starts_with(onDrive)) return path;
    if (path.starts_with(share)) return std::wstring(onShare) + path.substr(share.size());
    return path.size() > 1 && path[1] == L':' ? std::wstring(onDrive) + path : path;
}

std::wstring withLimit(const std::wstring& path) {
    if (path.starts_with(onShare)) return std::wstring(share) + path.substr(onShare.size());
    return path.starts_with(onDrive) ? path.substr(onDrive.size()) : path;
}

std::wstring withinReach(const std::wstring& path) {
    return path.size() < longestWithLimit ? path : withoutLimit(fullPath(path));
}

std::wstring toSystem(std::string_view path) { return withinReach(toWide(path)); }

} // namespace platform
