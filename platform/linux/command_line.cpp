#include "platform/linux/command_line.h"

#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/linux/paths.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace platform {

namespace {

/// The arguments behind the program's name, joined by one blank, as the host has them.
std::string joined(std::string_view arguments) {
    const std::size_t endOfProgram = arguments.find('\0');
    if (endOfProgram == std::string_view::npos) return {};
    arguments.remove_prefix(endOfProgram + 1);
    if (arguments.ends_with('\0')) arguments.remove_suffix(1);
    std::string tail(arguments);
    std::replace(tail.begin(), tail.end(), '\0', ' ');
    return tail;
}

bool isFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

/// "./" in front says nothing that the folder doesn't.
std::string_view withoutDots(std::string_view path) {
    while (path.starts_with("./")) {
        path.remove_prefix(2);
        path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
    }
    return path;
}

} // namespace

std::string tailOf(std::string_view arguments, const std::string& currentFolder) {
    const std::string tail = joined(arguments);
    if (tail.empty() || tail.starts_with('/')) return fromHost(tail);
    std::string absolute = currentFolder.ends_with('/') ? currentFolder : currentFolder + '/';
    absolute += withoutDots(tail);
    return fromHost(isFile(absolute) ? absolute : tail);
}

std::string commandLineTail() {
    constexpr std::size_t longestCommandLine = 16'000'000;
    const FileContents arguments = readFile(fromHost("/proc/self/cmdline"), longestCommandLine);
    std::error_code ignored;
    return tailOf(arguments.text, std::filesystem::current_path(ignored).native());
}

} // namespace platform
