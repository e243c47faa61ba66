#include "platform/files.h"
#include "platform/linux/error_numbers.h"
#include "platform/linux/paths.h"
#include "platform/linux/replace_file.h"
#include "runtime/errors.h"
#include "tests/linux/temporary_folder.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using platform::FileCalls;
using platform::replaceHostFile;

namespace {

/// What goes wrong in the test that runs. Plain functions stand in for the system's calls, so their
/// state can only be here.
struct Fault {
    int error = 0;
    int callsBefore = 0; ///< calls that still go well
} fault;

/// True when this call is the one that has to fail.
bool fails() {
    if (fault.callsBefore-- > 0) return false;
    errno = fault.error;
    return true;
}

int failingOpen(const char* path, int flags, mode_t mode) {
    return fails() ? -1 : ::open(path, flags, mode);
}
ssize_t failingWrite(int file, const void* bytes, std::size_t count) {
    return fails() ? -1 : ::write(file, bytes, count);
}
ssize_t fullDisk(int file, const void* bytes, std::size_t count) {
    return fails() ? -1 : ::write(file, bytes, std::min<std::size_t>(count, 3));
}
ssize_t slowWrite(int file, const void* bytes, std::size_t count) {
    if (fault.callsBefore++ % 2 == 0) {
        errno = EINTR;
        return -1;
    }
    return ::write(file, bytes, std::min<std::size_t>(count, 2));
}
int failingSync(int file) { return fails() ? -1 : ::fsync(file); }
int failingClose(int file) {
    ::close(file);
    return fails() ? -1 : 0;
}
int failingRename(const char* from, const char* to) { return fails() ? -1 : ::rename(from, to); }

/// How many system calls the process still makes before it is killed, as if by the system: without
/// another instruction. Only ever set in a child process.
int callsToLive = 0;

constexpr int killed = 3;

/// Between two calls, and between a call's effect and its return, is all the same to the disk.
void liveOn() {
    if (callsToLive-- == 0) ::_exit(killed);
}
int mortalOpen(const char* path, int flags, mode_t mode) {
    liveOn();
    return ::open(path, flags, mode);
}
ssize_t mortalWrite(int file, const void* bytes, std::size_t count) {
    liveOn();
    return ::write(file, bytes, std::min<std::size_t>(count, 3));
}
int mortalSync(int file) {
    liveOn();
    return ::fsync(file);
}
int mortalClose(int file) {
    liveOn();
    return ::close(file);
}
int mortalRename(const char* from, const char* to) {
    liveOn();
    return ::rename(from, to);
}

/// Replaces a file in a child process that is killed before its call number `calls`, from 0 on.
/// True when it was killed, false when it came to its end before.
bool killedWhileReplacing(const std::string& path, const char* text, int calls) {
    const pid_t child = ::fork();
    if (child == 0) {
        callsToLive = calls;
        const FileCalls mortal{mortalOpen, mortalWrite, mortalSync, mortalClose, mortalRename};
        ::_exit(replaceHostFile(path, text, mortal) == 0 ? 0 : 1);
    }
    int status = 0;
    REQUIRE(::waitpid(child, &status, 0) == child);
    REQUIRE(WIFEXITED(status));
    REQUIRE((WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == killed));
    return WEXITSTATUS(status) == killed;
}

/// A settings file with an old line in it, and nothing else in its folder.
struct Settings {
    TemporaryFolder folder;
    std::string path = folder / "settings";
    Settings() { writeHostFile(path, "old"); }

    /// Replaces the file while a call fails, and checks that nothing came of it.
    void checkUntouchedAfter(const FileCalls& calls, Fault expected) {
        fault = expected;
        CHECK(replaceHostFile(path, "new contents", calls) == expected.error);
        CHECK(hostFileText(path) == "old");
        CHECK(entryCount(folder.path()) == 1);
    }
};

mode_t modeOf(const std::string& path) {
    struct stat status {};
    REQUIRE(::stat(path.c_str(), &status) == 0);
    return status.st_mode & mode_t{07777};
}

} // namespace

TEST_CASE("a replaced file holds the new contents and nothing of the old") {
    Settings settings;
    const std::string path = platform::fromHost(settings.path);
    CHECK(platform::replaceFile(path, "n") == 0);
    CHECK(hostFileText(settings.path) == "n");
    CHECK(platform::replaceFile(path, "") == 0);
    CHECK(hostFileText(settings.path).empty());
    CHECK(entryCount(settings.folder.path()) == 1);
}

TEST_CASE("a file that isn't there yet is made, for all to read") {
    const TemporaryFolder folder;
    const mode_t mask = ::umask(022);
    CHECK(platform::replaceFile(platform::fromHost(folder / "new"), "line\r\n") == 0);
    ::umask(mask);
    CHECK(hostFileText(folder / "new") == "line\r\n");
    CHECK(modeOf(folder / "new") == 0644);
}

TEST_CASE("a replaced file keeps its mode") {
    Settings settings;
    for (const mode_t mode : {mode_t{0600}, mode_t{0640}, mode_t{0664}}) {
        REQUIRE(::chmod(settings.path.c_str(), mode) == 0);
        CHECK(replaceHostFile(settings.path, "new", FileCalls::ofTheSystem()) == 0);
        CHECK(modeOf(settings.path) == mode);
    }
}

TEST_CASE("a link to a file stays a link when the file is replaced") {
    Settings settings;
    std::filesystem::create_directory(settings.folder / "sub");
    std::filesystem::create_symlink("../settings", settings.folder / "sub/link");
    std::filesystem::create_symlink("link", settings.folder / "sub/second");
    const std::string path = platform::fromHost(settings.folder / "sub/second");
    CHECK(platform::replaceFile(path, "new") == 0);
    CHECK(std::filesystem::is_symlink(settings.folder / "sub/second"));
    CHECK(std::filesystem::is_symlink(settings.folder / "sub/link"));
    CHECK(hostFileText(settings.path) == "new");
}

TEST_CASE("a link to a file that isn't there yet makes that file") {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("target", folder / "link");
    CHECK(platform::replaceFile(platform::fromHost(folder / "link"), "new") == 0);
    CHECK(std::filesystem::is_symlink(folder / "link"));
    CHECK(hostFileText(folder / "target") == "new");
}

TEST_CASE("links in a circle are no file to replace") {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("two", folder / "one");
    std::filesystem::create_symlink("one", folder / "two");
    CHECK(platform::replaceFile(platform::fromHost(folder / "one"), "new") ==
          runtime::PathNotFound);
    CHECK(std::filesystem::is_symlink(folder / "one"));
    CHECK(std::filesystem::is_symlink(folder / "two"));
}

TEST_CASE("short writes and interrupted writes go on until all is written") {
    Settings settings;
    FileCalls calls = FileCalls::ofTheSystem();
    calls.write = slowWrite;
    fault = {};
    CHECK(replaceHostFile(settings.path, "seven bytes and more", calls) == 0);
    CHECK(hostFileText(settings.path) == "seven bytes and more");
}

TEST_CASE("a failure at any step before the renaming leaves the old file and nothing else") {
    Settings settings;
    SUBCASE("the new file can't be made") {
        FileCalls calls = FileCalls::ofTheSystem();
        calls.open = failingOpen;
        settings.checkUntouchedAfter(calls, {EROFS, 0});
    }
    SUBCASE("the first write fails") {
        FileCalls calls = FileCalls::ofTheSystem();
        calls.write = failingWrite;
        settings.checkUntouchedAfter(calls, {EIO, 0});
    }
    SUBCASE("the disk is full after a part of it") {
        FileCalls calls = FileCalls::ofTheSystem();
        calls.write = fullDisk;
        settings.checkUntouchedAfter(calls, {ENOSPC, 2});
    }
    SUBCASE("the flush fails") {
        FileCalls calls = FileCalls::ofTheSystem();
        calls.sync = failingSync;
        settings.checkUntouchedAfter(calls, {EIO, 0});
    }
    SUBCASE("the close fails") {
        FileCalls calls = FileCalls::ofTheSystem();
        calls.close = failingClose;
        settings.checkUntouchedAfter(calls, {EIO, 0});
    }
    SUBCASE("the renaming fails") {
        FileCalls calls = FileCalls::ofTheSystem();
        calls.rename = failingRename;
        settings.checkUntouchedAfter(calls, {EACCES, 0});
    }
}

TEST_CASE("a kill between any two steps leaves the old file or the new one, whole") {
    const Settings settings;
    int calls = 0;
    int oldOnes = 0;
    while (killedWhileReplacing(settings.path, "new contents", calls)) {
        CAPTURE(calls);
        const std::string text = hostFileText(settings.path);
        CHECK((text == "old" || text == "new contents"));
        if (text == "old") ++oldOnes;
        writeHostFile(settings.path, "old");
        ++calls;
    }
    // Open, four writes, flush, close and rename stand before the new file; its folder's open,
    // flush and close behind it.
    CHECK(calls == 11);
    CHECK(oldOnes == 8);
    CHECK(hostFileText(settings.path) == "new contents");
}

TEST_CASE("a folder that can't be flushed is an error, with the new file whole") {
    Settings settings;
    FileCalls calls = FileCalls::ofTheSystem();
    calls.sync = failingSync;
    fault = {EIO, 1};
    CHECK(replaceHostFile(settings.path, "new", calls) == EIO);
    CHECK(hostFileText(settings.path) == "new");
    CHECK(entryCount(settings.folder.path()) == 1);
}

TEST_CASE("a folder or a device is never replaced by a file") {
    const TemporaryFolder folder;
    CHECK(platform::replaceFile(platform::fromHost(folder.path()), "new") ==
          runtime::PathFileAccess);
    CHECK(platform::replaceFile("\\dev\\null", "new") == runtime::PathFileAccess);
    CHECK(std::filesystem::is_character_file("/dev/null"));
}

TEST_CASE("a file in a folder that isn't there can't be replaced") {
    CHECK(platform::replaceFile("\\no\\such\\folder\\file", "new") == runtime::PathNotFound);
}

TEST_CASE("a file is read whole up to the limit") {
    const TemporaryFolder folder;
    const std::string text = std::string(200000, 'x') + std::string("\0\xFF\n", 3);
    writeHostFile(folder / "file", text);
    const std::string path = platform::fromHost(folder / "file");
    CHECK(platform::readFile(path, 1000000).text == text);
    CHECK(platform::readFile(path, text.size()).text == text);
    CHECK(platform::readFile(path, 5).text == "xxxxx");
    CHECK(platform::readFile(path, 0).text.empty());
    CHECK(platform::readFile(path, 5).error == 0);
}

TEST_CASE("reading what isn't there or is no file gives the error's number") {
    const TemporaryFolder folder;
    const std::string path = platform::fromHost(folder.path());
    CHECK(platform::readFile(path + "\\none", 10).error == runtime::FileNotFound);
    CHECK(platform::readFile(path + "\\none\\none", 10).error == runtime::PathNotFound);
    CHECK(platform::readFile(path, 10).error == runtime::PathFileAccess);
    REQUIRE(::mkfifo((folder / "pipe").c_str(), 0600) == 0);
    CHECK(platform::readFile(path + "\\pipe", 10).error == runtime::PathFileAccess);
}

TEST_CASE("a deleted file is gone, and deleting it again is file not found") {
    Settings settings;
    const std::string path = platform::fromHost(settings.path);
    CHECK(platform::deleteFile(path) == 0);
    CHECK(entryCount(settings.folder.path()) == 0);
    CHECK(platform::deleteFile(path) == runtime::FileNotFound);
    CHECK(platform::deleteFile("c:\\nowhere.txt") == runtime::FileNotFound);
    CHECK(platform::deleteFile(platform::fromHost(settings.folder.path())) ==
          runtime::PathFileAccess);
}

TEST_CASE("each kind of system error has its number") {
    CHECK(platform::errorNumberOf(0) == 0);
    CHECK(platform::errorNumberOf(ENOENT) == runtime::FileNotFound);
    CHECK(platform::errorNumberOf(ENOTDIR) == runtime::PathNotFound);
    CHECK(platform::errorNumberOf(EACCES) == runtime::PathFileAccess);
    CHECK(platform::errorNumberOf(EROFS) == runtime::PermissionDenied);
    CHECK(platform::errorNumberOf(ENOSPC) == runtime::DiskFull);
    CHECK(platform::errorNumberOf(EDQUOT) == runtime::DiskFull);
    CHECK(platform::errorNumberOf(EIO) == runtime::DeviceError);
    CHECK(platform::errorNumberOf(EMFILE) == runtime::TooManyFiles);
}

TEST_CASE("a path on a drive names no file, whatever the working directory holds") {
    const TemporaryFolder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const std::string file = folder.makeFolder("c:") + "/old.txt";
    writeHostFile(file, "x");
    writeHostFile(folder / "C:old.txt", "x");
    CHECK(platform::deleteFile("c:\\old.txt") == runtime::FileNotFound);
    CHECK(platform::deleteFile("C:old.txt") == runtime::FileNotFound);
    CHECK(std::filesystem::exists(file));
    CHECK(std::filesystem::exists(folder / "C:old.txt"));
    std::filesystem::current_path(before);
}
