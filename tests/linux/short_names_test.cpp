#include "platform/linux/paths.h"
#include "platform/linux/short_names.h"
#include "platform/system.h"
#include "tests/linux/temporary_folder.h"

#include <doctest/doctest.h>

#include <array>
#include <cstdint>
#include <string>

namespace {

std::string shortName(const std::string& hostPath) {
    std::array<char, 255> buffer{};
    const std::uint32_t length = platform::GetShortPathNameA(platform::fromHost(hostPath).c_str(),
                                                             buffer.data(), buffer.size());
    return {buffer.data(), length};
}

} // namespace

TEST_CASE("a path with nothing special in it is its own short name") {
    CHECK(shortName("/dev/null") == "\\dev\\null");
    CHECK(platform::hostPathOfShortName("\\dev\\null") == "/dev/null");
}

TEST_CASE("any existing file gets a short name without blanks that leads back to it") {
    const TemporaryFolder folder;
    const std::string longName(200, 'x');
    for (const std::string& name :
         {std::string("a b.mp3"), longName, std::string("type MpegVideo Alias x"),
          std::string("\xE9t\xE9.mp3"), std::string("na\xC3\xAFve.wav"),
          std::string("a\nb\\c*d.mp3"), std::string("\"quoted\".mp3"), std::string("tab\there")}) {
        const std::string path = folder / name;
        writeHostFile(path, "x");
        const std::string alias = shortName(path);
        CAPTURE(alias);
        REQUIRE(!alias.empty());
        CHECK(alias.size() < 64);
        for (const char c : alias)
            CHECK((c > ' ' && c < '\x7F' && c != '"'));
        CHECK(platform::hostPathOfShortName(alias) == path);
        CHECK(shortName(path) == alias);
    }
}

TEST_CASE("two files never share a short name") {
    const TemporaryFolder folder;
    writeHostFile(folder / "a b.mp3", "x");
    writeHostFile(folder / "a c.mp3", "x");
    CHECK(shortName(folder / "a b.mp3") != shortName(folder / "a c.mp3"));
}

TEST_CASE("a short name keeps the file's extension") {
    const TemporaryFolder folder;
    writeHostFile(folder / "a b.MP3", "x");
    CHECK(shortName(folder / "a b.MP3").ends_with(".MP3"));
}

TEST_CASE("a file that isn't there has no short name") {
    std::array<char, 8> buffer{'k', 'e', 'p', 't'};
    CHECK(platform::GetShortPathNameA("\\no such\\file.mp3", buffer.data(), buffer.size()) == 0);
    CHECK(std::string(buffer.data()) == "kept");
    CHECK(platform::GetShortPathNameA("", buffer.data(), buffer.size()) == 0);
}

TEST_CASE("a buffer too small for the short name learns the size that is needed") {
    std::array<char, 10> buffer{'k', 'e', 'p', 't'};
    CHECK(platform::GetShortPathNameA("\\dev\\null", buffer.data(), 9) == 10);
    CHECK(std::string(buffer.data()) == "kept");
    CHECK(platform::GetShortPathNameA("\\dev\\null", nullptr, 0) == 10);
    CHECK(platform::GetShortPathNameA("\\dev\\null", buffer.data(), 10) == 9);
    CHECK(std::string(buffer.data()) == "\\dev\\null");
}

TEST_CASE("a text that is no short name resolves as a path") {
    CHECK(platform::hostPathOfShortName("\\a\\b.mp3") == "/a/b.mp3");
    CHECK(platform::hostPathOfShortName("\\~orvan\\FFFFFFFF.mp3") == "/~orvan/FFFFFFFF.mp3");
}
