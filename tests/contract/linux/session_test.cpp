#include "platform/events.h"
#include "platform/window.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include <sys/wait.h>

using namespace platform;

TEST_CASE("a signal to end closes the first window, then leaves the event loop") {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        CAPTURE(signal);
        int first = 0;
        int second = 0;
        WindowEvents firstEvents;
        firstEvents.closing = [&] { ++first; };
        WindowEvents secondEvents;
        secondEvents.closing = [&] { ++second; };
        const contract::Window player(std::move(firstEvents));
        const contract::Window playlist(std::move(secondEvents));
        const contract::Timer timer(20, [&] {
            if (first == 0) std::raise(signal);
        });
        CHECK(runEvents() == 0);
        CHECK(first == 1);
        CHECK(second == 0);
    }
}

TEST_CASE("a signal to end is heeded inside a message box") {
    int closings = 0;
    WindowEvents events;
    events.closing = [&] { ++closings; };
    const contract::Window player(std::move(events));
    bool opened = false;
    const contract::Timer timer(20, [&] {
        if (opened) {
            if (closings == 0) std::raise(SIGTERM);
            return;
        }
        opened = true;
        messageBox("Text", "Title", MessageIcon::None);
    });
    CHECK(runEvents() == 0);
    CHECK(closings == 1);
}

TEST_CASE("without a display the program says so and ends with status 1") {
    const auto log = std::filesystem::temp_directory_path() / "orvan-no-display.log";
    const auto self = std::filesystem::read_symlink("/proc/self/exe").string();
    const std::string command = "env -u DISPLAY '" + self +
                                "' --test-case='handles are never*' >/dev/null 2>'" + log.string() +
                                "'";
    const int status = std::system(command.c_str()); // NOLINT(cert-env33-c)
    REQUIRE(WIFEXITED(status));
    CHECK(WEXITSTATUS(status) == 1);
    std::ifstream file(log);
    std::string said;
    std::getline(file, said);
    CHECK(said.find("no X display") != std::string::npos);
    std::filesystem::remove(log);
}
