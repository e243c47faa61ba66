#include "platform/linux/instance_lock.h"

#include "platform/desktop.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace platform {

namespace {

/// True for a folder that only this user can put anything into; a link is none.
bool isPrivateFolder(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

std::string environmentValue(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

bool askForPreviousInstance() {
    const std::string folder = lockFolder(environmentValue("XDG_RUNTIME_DIR"),
                                          "/tmp/orvan-" + std::to_string(::geteuid()));
    // Where no lock can be had, starting twice is the lesser evil than not starting at all.
    return !folder.empty() && takeLock(folder + '/' + lockNameOf(environmentValue("DISPLAY"))) ==
                                  LockResult::HeldByAnother;
}

} // namespace

std::string lockNameOf(std::string_view display) {
    const std::size_t colon = display.rfind(':');
    const std::size_t screen = colon == std::string_view::npos ? colon : display.find('.', colon);
    std::string name = "orvan-" + std::string(display.substr(0, screen)) + ".lock";
    for (char& c : name)
        if (c == '/') c = '_';
    return name;
}

std::string lockFolder(const std::string& runtimeFolder, const std::string& fallback) {
    if (runtimeFolder.starts_with('/') && isPrivateFolder(runtimeFolder) &&
        ::access(runtimeFolder.c_str(), W_OK | X_OK) == 0)
        return runtimeFolder;
    ::mkdir(fallback.c_str(), 0700);
    return isPrivateFolder(fallback) ? fallback : std::string();
}

LockResult takeLock(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0) return LockResult::Failed;
    // The descriptor stays open on purpose: it is what holds the lock.
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) return LockResult::Taken;
    const bool held = errno == EWOULDBLOCK;
    ::close(file);
    return held ? LockResult::HeldByAnother : LockResult::Failed;
}

bool previousInstance() {
    static const bool answer = askForPreviousInstance();
    return answer;
}

} // namespace platform
