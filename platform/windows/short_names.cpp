#include "platform/windows/short_names.h"

#include "platform/system.h"
#include "platform/windows/open_handle.h"
#include "platform/windows/paths.h"
#include "platform/windows/utf16.h"
#include "runtime/characters.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <vector>

namespace platform {
namespace {

/// A name may have this many characters at most, so that a whole media command stays short.
constexpr std::size_t longestName = 63;

/// Every alias begins with this, so a path that does too is never taken as its own name.
constexpr std::string_view aliasFolder = "\\~orvan\\";

/// The paths that have an alias; their places, from 1 on, are in the aliases.
std::vector<std::wstring>& aliased() {
    static std::vector<std::wstring> all;
    return all;
}

std::string aliasAt(std::size_t place) {
    char number[20];
    std::snprintf(number, sizeof number, "%08zX", place);
    return std::string(aliasFolder) + number;
}

std::string aliasOf(const std::wstring& path) {
    const auto found = std::find(aliased().begin(), aliased().end(), path);
    const auto place = static_cast<std::size_t>(found - aliased().begin()) + 1;
    if (found == aliased().end()) aliased().push_back(path);
    return aliasAt(place);
}

bool isPlain(wchar_t unit) { return unit > L' ' && unit < 0x7F && unit != L'"'; }

/// The short form of an existing file's path, as far as its volume has one; else the path itself.
std::wstring systemNameOf(const std::wstring& path) {
    const DWORD room = GetShortPathNameW(path.c_str(), nullptr, 0);
    std::wstring name(room, L'\0');
    name.resize(GetShortPathNameW(path.c_str(), name.data(), room));
    return withLimit(name.empty() ? path : name);
}

bool opensAsItStands(const std::wstring& path) {
    return OpenHandle(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr))
        .isOpen();
}

/// Splits the first word off.
std::string_view takeWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    return word;
}

bool isOpen(std::string_view word) {
    constexpr std::string_view open = "open";
    return std::equal(word.begin(), word.end(), open.begin(), open.end(),
                      [](char given, char small) { return (given | 0x20) == small; });
}

} // namespace

std::string mediaNameOf(const std::wstring& systemName) {
    const bool plain = systemName.size() <= longestName &&
                       std::all_of(systemName.begin(), systemName.end(), isPlain);
    const std::string name = plain ? fromWide(systemName) : aliasOf(systemName);
    return plain && name.starts_with(aliasFolder) ? aliasOf(systemName) : name;
}

std::wstring commandWithPath(std::string_view command) {
    if (!isOpen(takeWord(command))) return {};
    const std::string_view name = takeWord(command);
    for (std::size_t place = 1; place <= aliased().size(); ++place) {
        if (name != aliasAt(place)) continue;
        const std::wstring& path = aliased()[place - 1];
        // Beyond the limit it depends on the system's settings which form it takes.
        const bool reached = path.size() < MAX_PATH || opensAsItStands(path);
        const std::wstring given = reached ? path : withoutLimit(path);
        return L"open \"" + given + L'"' + toWide(command);
    }
    return {};
}

std::uint32_t GetShortPathNameA(const char* path, char* buffer, std::uint32_t size) {
    const std::wstring wide = toSystem(path);
    if (GetFileAttributesW(wide.c_str()) == INVALID_FILE_ATTRIBUTES) return 0;
    const std::string name = mediaNameOf(systemNameOf(wide));
    const auto length = static_cast<std::uint32_t>(runtime::characterCount(name));
    if (length >= size) return length + 1;
    buffer[name.copy(buffer, name.size())] = '\0';
    return length;
}

} // namespace platform
