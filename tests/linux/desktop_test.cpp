#include "platform/desktop.h"
#include "platform/linux/application_folder.h"
#include "platform/linux/command_line.h"
#include "platform/linux/paths.h"
#include "tests/linux/temporary_folder.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

using namespace std::string_view_literals;
using platform::fromHost;
using platform::tailOf;

namespace {

/// An environment variable that has its old value back after the test.
class EnvironmentValue {
  public:
    EnvironmentValue(const char* name, const char* value) : name_(name) {
        const char* old = std::getenv(name);
        wasSet_ = old != nullptr;
        if (wasSet_) old_ = old;
        ::setenv(name, value, 1);
    }
    ~EnvironmentValue() {
        if (wasSet_)
            ::setenv(name_, old_.c_str(), 1);
        else
            ::unsetenv(name_);
    }
    EnvironmentValue(const EnvironmentValue&) = delete;
    EnvironmentValue& operator=(const EnvironmentValue&) = delete;

  private:
    const char* name_;
    bool wasSet_ = false;
    std::string old_;
};

} // namespace

TEST_CASE("the settings lie beside a program whose folder can be written") {
    const TemporaryFolder folder;
    const std::string program = folder.makeFolder("program");
    CHECK(platform::chooseApplicationFolder(program, folder / "config") == program);
    CHECK(entryCount(program) == 0);
    CHECK(entryCount(folder.path()) == 1);
}

TEST_CASE("the settings lie in the configuration folder when the program's can't be written") {
    const TemporaryFolder folder;
    const std::string chosen = platform::chooseApplicationFolder("/proc", folder / "deep/config");
    CHECK(chosen == folder / "deep/config/orvan");
    CHECK(std::filesystem::is_directory(chosen));
    CHECK(platform::chooseApplicationFolder("/proc", folder / "deep/config") == chosen);
}

TEST_CASE("a program installed for all users keeps no settings beside it, whoever starts it") {
    const TemporaryFolder folder;
    for (const char* program : {"/usr/bin", "/usr/local/bin", "/usr", "/usr/share/games"})
        CHECK(platform::chooseApplicationFolder(program, folder / "config") ==
              folder / "config/orvan");
}

TEST_CASE("a folder that isn't there can't be written into") {
    const TemporaryFolder folder;
    CHECK(platform::canWriteInto(folder.path()));
    CHECK_FALSE(platform::canWriteInto(folder / "none"));
    CHECK_FALSE(platform::canWriteInto("/proc"));
}

TEST_CASE("the application folder is an absolute path without a separator behind it") {
    const std::string folder = platform::applicationFolder();
    CHECK(folder.starts_with('\\'));
    CHECK((folder.size() == 1 || !folder.ends_with('\\')));
    CHECK(std::filesystem::is_directory(platform::toHost(folder)));
}

TEST_CASE("the arguments are joined by one blank, in the player's form") {
    CHECK(tailOf("orvan\0"sv, "/home").empty());
    CHECK(tailOf(""sv, "/home").empty());
    CHECK(tailOf("orvan\0/music/a.mp3\0"sv, "/home") == "\\music\\a.mp3");
    CHECK(tailOf("orvan\0/music/a\0b.mp3\0"sv, "/home") == "\\music\\a b.mp3");
    CHECK(tailOf("orvan\0one\0\0two\0"sv, "/home") == "one  two");
    CHECK(tailOf("orvan\0/m/\xFF*.mp3\0"sv, "/home") == fromHost("/m/\xFF*.mp3"));
}

TEST_CASE("a tail that names an existing file by a relative path becomes absolute") {
    const TemporaryFolder folder;
    static_cast<void>(folder.makeFolder("sub"));
    writeHostFile(folder / "a b.mp3", "x");
    writeHostFile(folder / "sub/c.mp3", "x");
    CHECK(tailOf("orvan\0a b.mp3\0"sv, folder.path()) == fromHost(folder / "a b.mp3"));
    CHECK(tailOf("orvan\0a\0b.mp3\0"sv, folder.path()) == fromHost(folder / "a b.mp3"));
    CHECK(tailOf("orvan\0.//./sub/c.mp3\0"sv, folder.path()) == fromHost(folder / "sub/c.mp3"));
    CHECK(tailOf("orvan\0none.mp3\0"sv, folder.path()) == "none.mp3");
    CHECK(tailOf("orvan\0sub\0"sv, folder.path()) == "sub");
    CHECK(tailOf("orvan\0\"a b.mp3\"\0"sv, folder.path()) == "\"a b.mp3\"");
}

TEST_CASE("the tail of this very process is that of its arguments") {
    // The test runner gives its programs arguments; an empty tail is right without them.
    const std::string tail = platform::commandLineTail();
    CHECK(tail.find('/') == std::string::npos);
    CHECK(tail.find('\0') == std::string::npos);
}

TEST_CASE("the decimal sign follows the user's locale and not that of the process") {
    const EnvironmentValue all("LC_ALL", "C");
    CHECK(platform::decimalSign() == '.');
    const EnvironmentValue none("LC_ALL", "no_such_LOCALE");
    CHECK(platform::decimalSign() == '.');
}

TEST_CASE("a locale with a decimal comma gives a comma, one with another sign a point") {
    const TemporaryFolder folder;
    const EnvironmentValue place("LOCPATH", folder.path().c_str());
    for (const auto& [name, sign] : {std::pair("de_DE", ','), {"ps_AF", '.'}}) {
        // Needs the locale sources of the system (Debian: locales).
        const std::string make =
            std::string("localedef --no-archive -i ") + name + " -f UTF-8 '" + folder / name + "'";
        CAPTURE(make);
        REQUIRE(std::system(make.c_str()) == 0); // NOLINT(*-env33-c,bugprone-command-processor)
        const EnvironmentValue all("LC_ALL", name);
        CHECK(platform::decimalSign() == sign);
    }
}

TEST_CASE("the time of day is local and counts from midnight") {
    const EnvironmentValue zone("TZ", "XYZ-5:30");
    const std::int32_t before = platform::secondsSinceMidnight();
    const std::time_t now = std::time(nullptr);
    const std::int32_t after = platform::secondsSinceMidnight();
    constexpr std::time_t aheadOfGreenwich = 5 * 3600 + 30 * 60;
    const auto expected = static_cast<std::int32_t>((now + aheadOfGreenwich) % 86400);
    CHECK((before <= after ? before <= expected && expected <= after
                           : expected >= before || expected <= after));
}
