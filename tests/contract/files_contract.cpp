#include "platform/files.h"
#include "platform/system.h"
#include "runtime/errors.h"
#include "tests/contract/world.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <doctest/doctest.h>
#include <string>
#include <vector>

TEST_CASE("a file reads back as it was written") {
    const std::string path = contract::scratchFolder() + "\\settings.mps";
    const std::string text("one\r\ntwo \0three", 15);
    CHECK(platform::replaceFile(path, text) == 0);
    const platform::FileContents contents = platform::readFile(path, 1000);
    CHECK(contents.error == 0);
    CHECK(contents.text == text);
}

TEST_CASE("a replaced file holds the new contents only") {
    const std::string path = contract::makeFile("settings.mps", "a long line of old contents");
    CHECK(platform::replaceFile(path, "new") == 0);
    CHECK(platform::readFile(path, 1000).text == "new");
    CHECK(platform::replaceFile(path, "") == 0);
    CHECK(platform::readFile(path, 1000).text.empty());
}

TEST_CASE("a read stops at its limit") {
    const std::string path = contract::makeFile("settings.mps", "0123456789");
    CHECK(platform::readFile(path, 4).text == "0123");
    CHECK(platform::readFile(path, 10).text == "0123456789");
}

TEST_CASE("files that are not there are told by their numbers") {
    const std::string folder = contract::scratchFolder();
    CHECK(platform::readFile(folder + "\\none.txt", 10).error == runtime::FileNotFound);
    CHECK(platform::readFile(folder + "\\none\\none.txt", 10).error == runtime::PathNotFound);
    CHECK(platform::deleteFile(folder + "\\none.txt") == runtime::FileNotFound);
    CHECK(platform::replaceFile(folder + "\\none\\new.txt", "x") == runtime::PathNotFound);
}

TEST_CASE("a folder can't be read or replaced as a file") {
    const std::string folder = contract::makeFolder("folder");
    CHECK(platform::readFile(folder, 10).error != 0);
    CHECK(platform::replaceFile(folder, "x") != 0);
}

TEST_CASE("a deleted file is gone") {
    const std::string path = contract::makeFile("old.txt", "x");
    CHECK(platform::deleteFile(path) == 0);
    CHECK(platform::readFile(path, 10).error == runtime::FileNotFound);
}

TEST_CASE("sub-folders are listed as full paths") {
    const std::string beta = contract::makeFolder("tree\\beta");
    const std::string alpha = contract::makeFolder("tree\\Alpha");
    const std::string gamma = contract::makeFolder("tree\\Gamma");
    contract::makeFolder("tree\\beta\\deeper");
    contract::makeFile("tree\\file.mp3", "x");
    platform::FolderListing listing = platform::listFolders(contract::scratchFolder() + "\\tree");
    CHECK(listing.error == 0);
    std::sort(listing.names.begin(), listing.names.end());
    CHECK(listing.names == std::vector<std::string>{alpha, gamma, beta});
}

TEST_CASE("a folder that the desktop hides isn't listed, but may be asked for its own folders") {
    const std::string hidden = contract::makeHiddenFolder("trash");
    const std::string shown = contract::makeFolder("music");
    CHECK(platform::listFolders(contract::scratchFolder()).names ==
          std::vector<std::string>{shown});
    CHECK(platform::listFolders(hidden).error == 0);
}

TEST_CASE("files are listed by bare names, their extension matched in any case") {
    contract::makeFile("tree\\one.mp3", "x");
    contract::makeFile("tree\\TWO.MP3", "x");
    contract::makeFile("tree\\three.wav", "x");
    contract::makeFile("tree\\mp3", "x");
    contract::makeHiddenFile("tree\\.hidden.mp3");
    contract::makeFolder("tree\\folder.mp3");
    platform::FolderListing listing =
        platform::listFiles(contract::scratchFolder() + "\\tree", ".mp3");
    std::sort(listing.names.begin(), listing.names.end());
    CHECK(listing.error == 0);
    CHECK(listing.names == std::vector<std::string>{"TWO.MP3", "one.mp3"});
}

TEST_CASE("an empty folder lists nothing, without an error") {
    const std::string folder = contract::makeFolder("empty");
    CHECK(platform::listFolders(folder).error == 0);
    CHECK(platform::listFolders(folder).names.empty());
    CHECK(platform::listFiles(folder, ".mp3").error == 0);
    CHECK(platform::listFiles(folder, ".mp3").names.empty());
}

TEST_CASE("a folder that isn't there can't be listed") {
    CHECK(platform::listFolders(contract::scratchFolder() + "\\none").error != 0);
    CHECK(platform::listFiles(contract::scratchFolder() + "\\none", ".mp3").error != 0);
}

TEST_CASE("a short name has no blank, fewer than 64 characters, and its length is the result") {
    const std::string deep = "a folder with a rather long name\\another one below it\\";
    for (const char* name : {"plain.mp3", "with some blanks.mp3"}) {
        const std::string path = contract::makeFile(deep + name, "x");
        char buffer[255] = {};
        const std::uint32_t length = platform::GetShortPathNameA(path.c_str(), buffer, 255);
        CHECK(length > 0);
        CHECK(length < 64);
        CHECK(std::strlen(buffer) == length);
        CHECK(std::strchr(buffer, ' ') == nullptr);
    }
}

TEST_CASE("a short name stays the same, and two files never share one") {
    const std::string first = contract::makeFile("one file.mp3", "x");
    const std::string second = contract::makeFile("one filf.mp3", "x");
    char names[3][255] = {};
    platform::GetShortPathNameA(first.c_str(), names[0], 255);
    platform::GetShortPathNameA(second.c_str(), names[1], 255);
    platform::GetShortPathNameA(first.c_str(), names[2], 255);
    CHECK(std::string(names[0]) == names[2]);
    CHECK(std::string(names[0]) != names[1]);
}

TEST_CASE("a file that isn't there has no short name") {
    char buffer[255] = {};
    const std::string path = contract::scratchFolder() + "\\none.mp3";
    CHECK(platform::GetShortPathNameA(path.c_str(), buffer, 255) == 0);
    CHECK(platform::GetShortPathNameA("", buffer, 255) == 0);
}

TEST_CASE("a buffer too small for a short name is told the size it needs") {
    const std::string path = contract::makeFile("with some blanks.mp3", "x");
    char buffer[255] = {};
    const std::uint32_t length = platform::GetShortPathNameA(path.c_str(), buffer, 255);
    REQUIRE(length > 1);
    CHECK(platform::GetShortPathNameA(path.c_str(), buffer, length) == length + 1);
    CHECK(platform::GetShortPathNameA(path.c_str(), buffer, length + 1) == length);
}
