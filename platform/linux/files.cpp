#include "platform/files.h"

#include "platform/linux/error_numbers.h"
#include "platform/linux/paths.h"
#include "platform/linux/replace_file.h"
#include "runtime/errors.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <string_view>

namespace platform {

namespace {

/// A missing file in a missing folder is the folder's error.
int errorNumberFor(const std::string& hostPath, int errnoValue) {
    if (errnoValue != ENOENT) return errorNumberOf(errnoValue);
    const std::size_t separator = hostPath.rfind('/');
    if (separator == std::string::npos || separator == 0) return runtime::FileNotFound;
    struct stat status {};
    const bool found = ::stat(hostPath.substr(0, separator).c_str(), &status) == 0;
    return found ? runtime::FileNotFound : runtime::PathNotFound;
}

/// Opened without waiting, or a named pipe would hold the player up.
int openToRead(const std::string& hostPath) {
    int file = -1;
    do
        file = ::open(hostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    while (file < 0 && errno == EINTR);
    return file;
}

bool isOrdinary(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

FileContents readAll(int file, std::size_t limit) {
    FileContents contents;
    std::array<char, 65536> block{};
    while (contents.text.size() < limit) {
        const std::size_t wanted = std::min(block.size(), limit - contents.text.size());
        const ssize_t count = ::read(file, block.data(), wanted);
        if (count == 0) break;
        if (count > 0)
            contents.text.append(block.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return {errorNumberOf(errno), {}};
    }
    return contents;
}

bool namesADrive(std::string_view path) {
    if (path.size() < 2 || path[1] != ':') return false;
    return (path[0] >= 'a' && path[0] <= 'z') || (path[0] >= 'A' && path[0] <= 'Z');
}

} // namespace

FileContents readFile(const std::string& path, std::size_t limit) {
    const std::string hostPath = toHost(path);
    const int file = openToRead(hostPath);
    if (file < 0) return {errorNumberFor(hostPath, errno), {}};
    FileContents contents =
        isOrdinary(file) ? readAll(file, limit) : FileContents{runtime::PathFileAccess, {}};
    ::close(file);
    return contents;
}

int replaceFile(const std::string& path, const std::string& text) {
    const std::string hostPath = toHost(path);
    return errorNumberFor(hostPath, replaceHostFile(hostPath, text, FileCalls::ofTheSystem()));
}

std::string pathForPeople(const std::string& path) { return toHost(path); }

int deleteFile(const std::string& path) {
    // A drive is no folder here; by name it would be one of the working directory's.
    if (namesADrive(path)) return runtime::FileNotFound;
    const std::string hostPath = toHost(path);
    return ::unlink(hostPath.c_str()) == 0 ? 0 : errorNumberOf(errno);
}

} // namespace platform
