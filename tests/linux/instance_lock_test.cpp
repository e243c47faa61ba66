#include "platform/linux/instance_lock.h"
#include "tests/linux/temporary_folder.h"

#include <doctest/doctest.h>

#include <csignal>
#include <filesystem>
#include <string>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using platform::LockResult;
using platform::takeLock;

namespace {

/// Another process that takes a lock and holds it until it is ended.
class Holder {
  public:
    explicit Holder(const std::string& path) {
        int ready[2] = {-1, -1};
        REQUIRE(::pipe(ready) == 0);
        process_ = ::fork();
        REQUIRE(process_ >= 0);
        if (process_ == 0) hold(path, ready[1]);
        ::close(ready[1]);
        char result = 0;
        CHECK(::read(ready[0], &result, 1) == 1);
        taken_ = result == 't';
        ::close(ready[0]);
    }
    ~Holder() { kill(); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    [[nodiscard]] bool taken() const { return taken_; }

    /// Ends the process as a crash would.
    void kill() {
        if (process_ <= 0) return;
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
        process_ = 0;
    }

  private:
    [[noreturn]] static void hold(const std::string& path, int ready) {
        const char result = takeLock(path) == LockResult::Taken ? 't' : 'f';
        if (::write(ready, &result, 1) == 1)
            while (true)
                ::pause();
        ::_exit(1);
    }

    pid_t process_ = 0;
    bool taken_ = false;
};

} // namespace

TEST_CASE("a second copy finds the lock held, until the first has crashed") {
    const TemporaryFolder folder;
    Holder first(folder / "lock");
    REQUIRE(first.taken());
    CHECK(takeLock(folder / "lock") == LockResult::HeldByAnother);
    const Holder second(folder / "lock");
    CHECK_FALSE(second.taken());
    first.kill();
    CHECK(takeLock(folder / "lock") == LockResult::Taken);
}

TEST_CASE("a lock file left over from an earlier run holds nobody back") {
    const TemporaryFolder folder;
    writeHostFile(folder / "lock", "12345\n");
    CHECK(takeLock(folder / "lock") == LockResult::Taken);
}

TEST_CASE("a lock that can't be made is neither taken nor held") {
    const TemporaryFolder folder;
    CHECK(takeLock(folder / "none/lock") == LockResult::Failed);
    std::filesystem::create_symlink("elsewhere", folder / "link");
    CHECK(takeLock(folder / "link") == LockResult::Failed);
}

TEST_CASE("the lock is one for all screens of a display and one for each display") {
    CHECK(platform::lockNameOf(":0") == platform::lockNameOf(":0.0"));
    CHECK(platform::lockNameOf(":0") == platform::lockNameOf(":0.1"));
    CHECK(platform::lockNameOf(":0") != platform::lockNameOf(":1"));
    CHECK(platform::lockNameOf("a.example:10.0") == platform::lockNameOf("a.example:10"));
    CHECK(platform::lockNameOf("a.example:10") != platform::lockNameOf("b.example:10"));
    CHECK(platform::lockNameOf("/tmp/socket:0").find('/') == std::string::npos);
}

TEST_CASE("the lock lies in the session's folder, else in one that is this user's alone") {
    const TemporaryFolder folder;
    const std::string session = folder.makeFolder("session");
    const std::string fallback = folder / "fallback";
    CHECK(platform::lockFolder(session, fallback) == session);
    CHECK_FALSE(std::filesystem::exists(fallback));
    CHECK(platform::lockFolder("", fallback) == fallback);
    CHECK(platform::lockFolder(folder / "none", fallback) == fallback);
    CHECK(platform::lockFolder("relative", fallback) == fallback);
}

TEST_CASE("a folder that others can write into or that is a link is not used for the lock") {
    const TemporaryFolder folder;
    const std::string open = folder.makeFolder("open");
    REQUIRE(::chmod(open.c_str(), 0777) == 0);
    CHECK(platform::lockFolder("", open).empty());
    std::filesystem::create_directory_symlink(folder.makeFolder("target"), folder / "link");
    CHECK(platform::lockFolder("", folder / "link").empty());
}
