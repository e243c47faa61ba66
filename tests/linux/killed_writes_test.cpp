#include "platform/files.h"
#include "platform/linux/paths.h"
#include "tests/linux/temporary_folder.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <random>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Microseconds = std::chrono::duration<double, std::micro>;

/// The lines of two runs of the player, as long as its longest that can be read again.
const std::string oldLine = "3*" + std::string(32000, 'o') + "*";
const std::string newLine = "3*" + std::string(31000, 'n') + "*";

/// Has the kernel kill this process so many microseconds from now, whatever it is doing.
bool setDeath(Microseconds moment) {
    sigevent death = {};
    death.sigev_notify = SIGEV_SIGNAL;
    death.sigev_signo = SIGKILL;
    timer_t timer = {};
    if (::timer_create(CLOCK_MONOTONIC, &death, &timer) != 0) return false;
    itimerspec when = {};
    const auto nanoseconds = std::chrono::ceil<std::chrono::nanoseconds>(moment).count();
    when.it_value.tv_sec = nanoseconds / 1'000'000'000;
    when.it_value.tv_nsec = std::max<long>(nanoseconds % 1'000'000'000, 1);
    return ::timer_settime(timer, 0, &when, nullptr) == 0;
}

/// Replaces the file in this process, tells by a byte that it is done, and waits for its end.
[[noreturn]] void replaceAndWait(const std::string& path, Microseconds moment, int told) {
    if (!setDeath(moment) || platform::replaceFile(path, newLine) != 0) ::_exit(1);
    if (::write(told, "d", 1) != 1) ::_exit(1);
    while (true)
        ::pause();
}

/// Kills a process so long after it has begun to replace the file. False if it was done before.
bool killedInTheWrite(const std::string& path, Microseconds moment) {
    int ends[2] = {};
    REQUIRE(::pipe(ends) == 0);
    const pid_t writer = ::fork();
    REQUIRE(writer >= 0);
    if (writer == 0) replaceAndWait(path, moment, ends[1]);
    ::close(ends[1]);
    int status = 0;
    REQUIRE(::waitpid(writer, &status, 0) == writer);
    REQUIRE(WIFSIGNALED(status));
    char told = 0;
    const bool done = ::read(ends[0], &told, 1) == 1;
    ::close(ends[0]);
    return !done;
}

/// More of them by hand: ORVAN_KILLS=1000.
int killsWanted() {
    const char* given = std::getenv("ORVAN_KILLS");
    return given == nullptr ? 200 : std::atoi(given);
}

} // namespace

TEST_CASE("a kill at any moment of a write leaves the old settings or the new ones, whole") {
    const TemporaryFolder folder;
    const std::string file = folder / "settings";
    const std::string path = platform::fromHost(file);
    std::mt19937 random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same moments every time
    // Grows and shrinks with the time that a write takes here.
    Microseconds span{1000};
    int kills = 0;
    int oldOnes = 0;
    while (kills < killsWanted()) {
        writeHostFile(file, oldLine);
        double share = std::uniform_real_distribution<double>()(random);
        // The bytes are written early; the rest of the time is the disk's.
        if (kills % 2 == 0) share = share * share * share;
        const bool within = killedInTheWrite(path, share * span);
        span *= within ? 1.02 : 0.9;
        const std::string text = hostFileText(file);
        const bool isOld = text == oldLine;
        const bool whole = isOld || text == newLine;
        CHECK(whole);
        if (!within) CHECK_FALSE(isOld);
        if (!whole) break;
        if (within) ++kills;
        if (within && isOld) ++oldOnes;
        std::filesystem::remove_all(folder.path());
        std::filesystem::create_directory(folder.path());
    }
    MESSAGE(kills << " kills, of which " << oldOnes << " left the old settings");
    CHECK(oldOnes > 0);
}
