#include "platform/files.h"
#include "platform/windows/folder_identity.h"
#include "platform/windows/paths.h"
#include "runtime/errors.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

namespace {

bool exists(const std::string& path) {
    return GetFileAttributesW(platform::toSystem(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string makeFolderWith(const std::string& name, DWORD attributes) {
    std::string path = contract::makeFolder(name);
    SetFileAttributesW(platform::toSystem(path).c_str(), attributes);
    return path;
}

} // namespace

TEST_CASE("a file that lost its name halfway through a replacement is read, and has it again") {
    contract::makeFile("settings.mps.old", "kept");
    const std::string path = contract::scratchFolder() + "\\settings.mps";
    CHECK(platform::readFile(path, 10).text == "kept");
    CHECK(exists(path));
    CHECK_FALSE(exists(path + ".old"));
}

TEST_CASE("the name of a file that is there isn't given to what an earlier kill left behind") {
    const std::string path = contract::makeFile("settings.mps", "new");
    contract::makeFile("settings.mps.old", "old");
    CHECK(platform::readFile(path, 10).text == "new");
    CHECK(platform::replaceFile(path, "newer") == 0);
    CHECK(platform::readFile(path, 10).text == "newer");
}

TEST_CASE("a replacement leaves no second file behind") {
    const std::string path = contract::makeFile("settings.mps", "old");
    CHECK(platform::replaceFile(path, "new") == 0);
    const std::filesystem::directory_iterator files(contract::scratchFolder());
    CHECK(std::distance(begin(files), end(files)) == 1);
}

TEST_CASE("folders that the desktop hides are not listed") {
    const std::string shown = contract::makeFolder("tree\\shown");
    makeFolderWith("tree\\hidden", FILE_ATTRIBUTE_HIDDEN);
    makeFolderWith("tree\\system", FILE_ATTRIBUTE_SYSTEM);
    makeFolderWith("tree\\both", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    const platform::FolderListing listing =
        platform::listFolders(contract::scratchFolder() + "\\tree");
    CHECK(listing.error == 0);
    CHECK(listing.names == std::vector<std::string>{shown});
}

TEST_CASE("a file system that numbers nothing doesn't make all folders one") {
    BY_HANDLE_FILE_INFORMATION unnumbered = {};
    unnumbered.dwVolumeSerialNumber = 7;
    CHECK(platform::identityFrom(unnumbered, L"N:\\a") !=
          platform::identityFrom(unnumbered, L"N:\\b"));
    CHECK(platform::identityFrom(unnumbered, L"N:\\a") ==
          platform::identityFrom(unnumbered, L"N:\\a"));
}

TEST_CASE("a numbered folder is itself by whatever path, and no other volume's") {
    BY_HANDLE_FILE_INFORMATION first = {};
    first.dwVolumeSerialNumber = 7;
    first.nFileIndexLow = 5;
    BY_HANDLE_FILE_INFORMATION second = first;
    CHECK(platform::identityFrom(first, L"C:\\a") == platform::identityFrom(second, L"D:\\b"));
    second.dwVolumeSerialNumber = 8;
    CHECK(platform::identityFrom(first, L"C:\\a") != platform::identityFrom(second, L"C:\\a"));
}

TEST_CASE("files and folders behind paths longer than the system's limit are there all the same") {
    std::string path = contract::makeFolder("deep");
    for (int depth = 0; depth < 5; ++depth) {
        path += '\\' + std::string(60, 'x');
        REQUIRE(CreateDirectoryW(platform::toSystem(path).c_str(), nullptr) != FALSE);
    }
    REQUIRE(path.size() > MAX_PATH);
    CHECK(platform::replaceFile(path + "\\song.mp3", "x") == 0);
    CHECK(platform::readFile(path + "\\song.mp3", 10).text == "x");
    CHECK(platform::listFiles(path, ".mp3").names == std::vector<std::string>{"song.mp3"});
    const std::string above = path.substr(0, path.rfind('\\'));
    CHECK(platform::listFolders(above).names == std::vector<std::string>{path});
    CHECK(platform::deleteFile(path + "\\song.mp3") == 0);
    CHECK(platform::listFiles(path, ".mp3").names.empty());
}

TEST_CASE("a path without a limit and back is the same, on a drive and on a share") {
    using platform::withLimit;
    using platform::withoutLimit;
    CHECK(withoutLimit(L"C:\\a") == L"\\\\?\\C:\\a");
    CHECK(withoutLimit(L"\\\\server\\share\\a") == L"\\\\?\\UNC\\server\\share\\a");
    CHECK(withoutLimit(L"a") == L"a");
    CHECK(withoutLimit(withoutLimit(L"C:\\a")) == L"\\\\?\\C:\\a");
    CHECK(withLimit(withoutLimit(L"C:\\a")) == L"C:\\a");
    CHECK(withLimit(withoutLimit(L"\\\\server\\share\\a")) == L"\\\\server\\share\\a");
    CHECK(withLimit(L"C:\\a") == L"C:\\a");
}
