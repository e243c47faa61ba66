#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// The system calls by which a file is replaced. Tests put failing ones in their place.
struct FileCalls {
    int (*open)(const char* path, int flags, mode_t mode);
    ssize_t (*write)(int file, const void* bytes, std::size_t count);
    int (*sync)(int file);
    int (*close)(int file);
    int (*rename)(const char* from, const char* to);

    /// The system's own.
    static FileCalls ofTheSystem();
};

/// Puts new contents in the place of a host file's old ones, as `replaceFile` tells. A symbolic
/// link stays and what it points to is replaced; the file keeps its mode. 0, or a value of `errno`.
int replaceHostFile(const std::string& hostPath, std::string_view text, const FileCalls& calls);

} // namespace platform
