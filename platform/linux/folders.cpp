#include "platform/files.h"
#include "platform/linux/error_numbers.h"
#include "platform/linux/paths.h"
#include "runtime/errors.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

/// A folder that isn't there is a path error, not a file's.
int folderError(int errnoValue) {
    return errnoValue == ENOENT ? int{runtime::PathNotFound} : errorNumberOf(errnoValue);
}

/// The entry's kind as readdir tells it; only some file systems leave it to be asked for.
unsigned char kindOf(DIR* folder, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type;
    struct stat status {};
    if (::fstatat(::dirfd(folder), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return DT_UNKNOWN;
    return static_cast<unsigned char>(IFTODT(status.st_mode));
}

/// So are the folder itself and the one above it.
bool isHidden(const dirent& entry) { return entry.d_name[0] == '.'; }

/// A folder's path without links, by which it is known; numbers are given by some file systems
/// only.
std::string realPath(const std::string& path) {
    struct Free {
        void operator()(char* text) const { std::free(text); }
    };
    const std::unique_ptr<char, Free> real(::realpath(path.c_str(), nullptr));
    return real == nullptr ? std::string() : std::string(real.get());
}

/// Whether one of the folders that a host path leads through, its last included, is `sought`.
bool leadsThrough(const std::string& path, const std::string& sought) {
    if (sought == "/") return path.starts_with('/');
    std::size_t end = 0;
    while (end != std::string::npos) {
        end = path.find('/', end + 1);
        if (realPath(path.substr(0, end)) == sought) return true;
    }
    return false;
}

/// Whether a link is to a folder that may be walked into without ever coming back.
bool isLinkToFolder(DIR* folder, const std::string& path, const char* name) {
    struct stat status {};
    if (::fstatat(::dirfd(folder), name, &status, 0) != 0 || !S_ISDIR(status.st_mode)) return false;
    return !leadsThrough(path, realPath(path + '/' + name));
}

bool isSubFolder(DIR* folder, const std::string& path, const dirent& entry) {
    if (isHidden(entry)) return false;
    const unsigned char kind = kindOf(folder, entry);
    return kind == DT_DIR || (kind == DT_LNK && isLinkToFolder(folder, path, entry.d_name));
}

bool isOrdinaryFile(DIR* folder, const dirent& entry) {
    const unsigned char kind = kindOf(folder, entry);
    if (kind != DT_LNK) return kind == DT_REG;
    struct stat status {};
    return ::fstatat(::dirfd(folder), entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
}

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool endsWith(std::string_view name, std::string_view extension) {
    return name.size() >= extension.size() &&
           std::equal(extension.begin(), extension.end(), name.end() - std::ssize(extension),
                      [](char a, char b) { return lowered(a) == lowered(b); });
}

/// Lists the names of the entries that `wanted` takes, as the host has them.
template <typename Wanted>
FolderListing list(const std::string& hostPath, const Wanted& wanted) {
    const OpenFolder folder(::opendir(hostPath.c_str()));
    if (!folder) return {folderError(errno), {}};
    FolderListing listing;
    errno = 0;
    while (const dirent* entry = ::readdir(folder.get())) {
        if (wanted(folder.get(), *entry)) listing.names.emplace_back(entry->d_name);
        errno = 0;
    }
    if (errno != 0) return {folderError(errno), {}};
    return listing;
}

} // namespace

FolderListing listFolders(const std::string& folder) {
    const std::string hostPath = toHost(folder);
    FolderListing listing = list(hostPath, [&](DIR* open, const dirent& entry) {
        return isSubFolder(open, hostPath, entry);
    });
    const std::string prefix = folder.ends_with('\\') ? folder : folder + '\\';
    for (std::string& name : listing.names)
        name = fromHost(name).insert(0, prefix);
    return listing;
}

FolderListing listFiles(const std::string& folder, const std::string& extension) {
    FolderListing listing = list(toHost(folder), [&](DIR* open, const dirent& entry) {
        return !isHidden(entry) && endsWith(entry.d_name, extension) && isOrdinaryFile(open, entry);
    });
    for (std::string& name : listing.names)
        name = fromHost(name);
    return listing;
}

} // namespace platform
