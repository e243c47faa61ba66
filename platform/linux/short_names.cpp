#include "platform/linux/short_names.h"

#include "platform/linux/paths.h"
#include "platform/system.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <unordered_map>

namespace platform {

namespace {

/// A name may have this many characters at most, so that a whole media command stays short.
constexpr std::size_t longestName = 63;

/// Every alias begins with this, so a path that does too is never taken as its own alias.
constexpr std::string_view aliasFolder = "\\~orvan\\";

/// The aliases given so far, to be found from both sides.
struct Aliases {
    std::unordered_map<std::string, std::string> aliasOfPath;
    std::unordered_map<std::string, std::string> pathOfAlias;
};

Aliases& aliases() {
    static Aliases table;
    return table;
}

bool printable(char c) { return c > ' ' && c < '\x7F' && c != '"'; }

/// True for a path that a command can hold as it stands.
bool isItsOwnName(std::string_view path) {
    return path.size() <= longestName && path.starts_with('\\') && !path.starts_with(aliasFolder) &&
           std::all_of(path.begin(), path.end(), printable);
}

bool letterOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// The name's extension with its dot, as long as it is one that needs no alias of its own.
std::string_view plainExtension(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    if (dot == std::string_view::npos || path.size() - dot > 5) return {};
    const std::string_view extension = path.substr(dot);
    return std::all_of(extension.begin() + 1, extension.end(), letterOrDigit) ? extension
                                                                              : std::string_view();
}

std::string aliasOf(const std::string& hostPath) {
    Aliases& table = aliases();
    const auto [entry, added] = table.aliasOfPath.try_emplace(hostPath);
    if (!added) return entry->second;
    char number[20];
    std::snprintf(number, sizeof number, "%08zX", table.aliasOfPath.size());
    entry->second = std::string(aliasFolder) + number;
    entry->second += plainExtension(hostPath);
    table.pathOfAlias[entry->second] = hostPath;
    return entry->second;
}

} // namespace

std::string hostPathOfShortName(std::string_view name) {
    const Aliases& table = aliases();
    const auto entry = table.pathOfAlias.find(std::string(name));
    return entry == table.pathOfAlias.end() ? toHost(name) : entry->second;
}

std::uint32_t GetShortPathNameA(const char* path, char* buffer, std::uint32_t size) {
    const std::string hostPath = toHost(path);
    struct stat status {};
    if (::stat(hostPath.c_str(), &status) != 0) return 0;
    const std::string name = isItsOwnName(path) ? path : aliasOf(hostPath);
    if (name.size() >= size) return static_cast<std::uint32_t>(name.size() + 1);
    buffer[name.copy(buffer, name.size())] = '\0';
    return static_cast<std::uint32_t>(name.size());
}

} // namespace platform
