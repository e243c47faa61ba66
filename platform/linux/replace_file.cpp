#include "platform/linux/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <random>

// How a file is replaced:
//  1. follow the links, so that the file itself is replaced and not a link to it;
//  2. make a new file beside it, under a name that nobody else has;
//  3. give it the old file's mode, write all of it, flush it to the disk;
//  4. rename it over the old file, which the system does in one step;
//  5. flush the folder, which makes the renaming last.
// Until step 4 nothing has touched the old file; a failure before it takes the new file away.

namespace platform {

namespace {

int systemOpen(const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); }

/// The folder in front of a name, with its separator; empty for the current one.
std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

/// What a link points to; empty for anything that is no link.
std::string linkTarget(const std::string& path) {
    std::string target(PATH_MAX, '\0');
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    target.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return target;
}

/// The file at the end of a chain of links, which need not exist yet.
std::string withoutLinks(std::string path) {
    constexpr int longestChain = 40;
    for (int i = 0; i < longestChain; ++i) {
        const std::string target = linkTarget(path);
        if (target.empty()) break;
        path.erase(target.starts_with('/') ? 0 : path.rfind('/') + 1);
        path += target;
    }
    return path;
}

std::string newNameBeside(const std::string& path) {
    static std::random_device source;
    char suffix[24];
    std::snprintf(suffix, sizeof suffix, ".%08x%08x.new", source(), source());
    return path + suffix;
}

/// The file that a replacement is written to, before it takes the old file's name.
struct NewFile {
    std::string path;
    int descriptor = -1;
};

/// 0, or a value of `errno`.
int createBeside(const std::string& path, mode_t mode, const FileCalls& calls, NewFile& file) {
    do {
        file.path = newNameBeside(path);
        file.descriptor =
            calls.open(file.path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    } while (file.descriptor < 0 && (errno == EEXIST || errno == EINTR));
    return file.descriptor < 0 ? errno : 0;
}

/// 0, or a value of `errno`.
int writeAll(int file, std::string_view text, const FileCalls& calls) {
    while (!text.empty()) {
        const ssize_t written = calls.write(file, text.data(), text.size());
        if (written > 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (written == 0)
            return ENOSPC;
        else if (errno != EINTR)
            return errno;
    }
    return 0;
}

/// 0, or a value of `errno`.
int syncAll(int file, const FileCalls& calls) {
    while (calls.sync(file) != 0)
        if (errno != EINTR) return errno;
    return 0;
}

/// Writes and closes the new file. 0, or a value of `errno`.
int fill(const NewFile& file, std::string_view text, const FileCalls& calls) {
    int error = writeAll(file.descriptor, text, calls);
    if (error == 0) error = syncAll(file.descriptor, calls);
    // An interrupted close has closed all the same.
    if (calls.close(file.descriptor) != 0 && error == 0 && errno != EINTR) error = errno;
    return error;
}

/// 0, or a value of `errno`.
int syncFolder(const std::string& path, const FileCalls& calls) {
    const std::string folder = folderOf(path);
    const int descriptor =
        calls.open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    // A folder that may be written but not read can't be flushed, nor can one of some file systems.
    if (descriptor < 0) return errno == EACCES ? 0 : errno;
    const int error = syncAll(descriptor, calls);
    calls.close(descriptor);
    return error == EINVAL ? 0 : error;
}

/// The old file's mode, kept whole; its owner, as far as this user may give files away.
void takeOver(const struct stat& old, int descriptor) {
    const bool given = ::fchown(descriptor, old.st_uid, old.st_gid) == 0;
    const mode_t kept = given ? mode_t{07777} : mode_t{0777};
    static_cast<void>(::fchmod(descriptor, old.st_mode & kept));
}

/// Whether an existing file may be replaced: renaming over it would ask its folder only.
int refusal(const std::string& path, const struct stat& old) {
    if (S_ISDIR(old.st_mode)) return EISDIR;
    if (!S_ISREG(old.st_mode)) return EACCES;
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

} // namespace

FileCalls FileCalls::ofTheSystem() { return {systemOpen, ::write, ::fsync, ::close, ::rename}; }

int replaceHostFile(const std::string& hostPath, std::string_view text, const FileCalls& calls) {
    const std::string path = withoutLinks(hostPath);
    struct stat old {};
    const bool exists = ::stat(path.c_str(), &old) == 0;
    int error = exists ? refusal(path, old) : errno;
    if (error != 0 && error != ENOENT) return error;

    NewFile file;
    constexpr mode_t modeOfNewFiles = 0644;
    constexpr mode_t modeUntilTakenOver = 0600;
    error = createBeside(path, exists ? modeUntilTakenOver : modeOfNewFiles, calls, file);
    if (error != 0) return error;
    if (exists) takeOver(old, file.descriptor);
    error = fill(file, text, calls);
    if (error == 0 && calls.rename(file.path.c_str(), path.c_str()) != 0) error = errno;
    if (error != 0) {
        ::unlink(file.path.c_str());
        return error;
    }
    return syncFolder(path, calls);
}

} // namespace platform
