#include "platform/windows/short_names.h"

#include "platform/media.h"
#include "platform/system.h"
#include "platform/windows/paths.h"
#include "platform/windows/utf16.h"
#include "platform/windows/win32.h"
#include "tests/contract/tone.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <fstream>
#include <string>

namespace {

bool isAlias(const std::string& name) {
    return name.starts_with("\\~orvan\\") && name.size() < 64 &&
           name.find_first_of(" \"") == std::string::npos;
}

/// The length that the media layer tells of a file under a name, in milliseconds; -1 if it doesn't
/// open.
int lengthOf(const std::string& name) {
    char reply[64] = {};
    const std::string open = "open " + name + " type MpegVideo Alias mpeg parent 0";
    if (platform::mciSendStringA(open.c_str(), nullptr, 0, 0) != 0) return -1;
    platform::mciSendStringA("set mpeg time format milliseconds", nullptr, 0, 0);
    platform::mciSendStringA("status mpeg length", reply, sizeof reply, 0);
    platform::mciSendStringA("close mpeg", nullptr, 0, 0);
    return std::stoi("0" + std::string(reply));
}

/// A folder of the scratch folder's, some two hundred letters deeper.
std::string deepFolder() {
    std::string path = contract::scratchFolder();
    for (const char letter : {'a', 'b', 'c', 'd'}) {
        path += '\\' + std::string(60, letter);
        CreateDirectoryW(platform::toSystem(path).c_str(), nullptr);
    }
    return path;
}

std::string shortNameOf(const std::string& path) {
    char buffer[255] = {};
    return {buffer, platform::GetShortPathNameA(path.c_str(), buffer, sizeof buffer)};
}

} // namespace

TEST_CASE("a short path without a blank is its own name for the media layer") {
    CHECK(platform::mediaNameOf(L"E:\\MYMUSI~1\\ASONG~1.MP3") == "E:\\MYMUSI~1\\ASONG~1.MP3");
    CHECK(platform::mediaNameOf(L"a.mp3") == "a.mp3");
}

TEST_CASE("where a volume has no short names an alias without a blank stands for the path") {
    const std::string song = platform::mediaNameOf(L"E:\\My Music\\a song.mp3");
    CHECK(isAlias(song));
    CHECK(platform::mediaNameOf(L"E:\\My Music\\a song.mp3") == song);
    CHECK(platform::mediaNameOf(L"E:\\My Music\\another song.mp3") != song);
    CHECK(isAlias(platform::mediaNameOf(L"E:\\\u041F\u0435\u0441\u043D\u044F.mp3")));
    CHECK(isAlias(platform::mediaNameOf(L"E:\\" + std::wstring(61, L'x'))));
    CHECK_FALSE(isAlias(platform::mediaNameOf(L"E:\\" + std::wstring(60, L'x'))));
}

TEST_CASE("a path that looks like an alias gets one of its own") {
    const std::string name = platform::mediaNameOf(L"\\~orvan\\00000001");
    CHECK(isAlias(name));
    CHECK(platform::commandWithPath("open " + name) == L"open \"\\~orvan\\00000001\"");
}

TEST_CASE("an open command of an alias goes out with the path in quotes, all others as they are") {
    const std::string alias = platform::mediaNameOf(L"E:\\\u041F one.mp3");
    CHECK(platform::commandWithPath("Open  " + alias + " type MpegVideo Alias mpeg") ==
          L"open \"E:\\\u041F one.mp3\" type MpegVideo Alias mpeg");
    CHECK(platform::commandWithPath("open E:\\one.mp3 alias mpeg").empty());
    CHECK(platform::commandWithPath("play " + alias).empty());
    CHECK(platform::commandWithPath("open " + alias + "0").empty());
    CHECK(platform::commandWithPath("").empty());
}

TEST_CASE("a file with blanks and letters of all kinds plays from a volume without short names") {
    for (const char* name : {"a folder\\a song.wav", "\u041F\u0435\u0441\u043D\u044F \u6B4C.wav",
                             "a \U0001F3B5 song.wav"}) {
        CAPTURE(name);
        const std::string path = contract::makeWave(name, 500);
        const std::string alias = platform::mediaNameOf(platform::toWide(path));
        CHECK(isAlias(alias));
        CHECK(lengthOf(alias) == 500);
        CHECK(lengthOf(shortNameOf(path)) == 500);
    }
}

TEST_CASE("a file with a path longer than the system's limit plays, by an alias or by itself") {
    const std::string path = deepFolder() + "\\a song.wav";
    REQUIRE(path.size() > MAX_PATH);
    const std::string wave = contract::makeWave("short.wav", 500);
    REQUIRE(CopyFileW(platform::toSystem(wave).c_str(), platform::toSystem(path).c_str(), TRUE) !=
            FALSE);
    const std::string name = shortNameOf(path);
    CHECK(isAlias(name));
    CHECK(lengthOf(name) == 500);
}
