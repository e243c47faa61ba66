#include "platform/files.h"
#include "platform/linux/paths.h"
#include "runtime/errors.h"
#include "tests/linux/temporary_folder.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

using Names = std::vector<std::string>;

namespace {

/// The names of a folder's sub-folders, sorted, their common prefix taken off.
Names subFolders(const TemporaryFolder& folder, const std::string& of = "") {
    const std::string path = platform::fromHost(of.empty() ? folder.path() : folder / of);
    const platform::FolderListing listing = platform::listFolders(path);
    REQUIRE(listing.error == 0);
    Names names;
    for (const std::string& full : listing.names) {
        REQUIRE(full.starts_with(path + '\\'));
        names.push_back(full.substr(path.size() + 1));
    }
    std::sort(names.begin(), names.end());
    return names;
}

Names sortedFiles(const TemporaryFolder& folder) {
    platform::FolderListing listing =
        platform::listFiles(platform::fromHost(folder.path()), ".mp3");
    REQUIRE(listing.error == 0);
    std::sort(listing.names.begin(), listing.names.end());
    return listing.names;
}

/// Takes the superuser's rights away for a while, since every folder is open to those.
class OrdinaryUser {
  public:
    OrdinaryUser() : user_(::geteuid()) {
        constexpr uid_t nobody = 65534;
        if (user_ == 0) REQUIRE(::seteuid(nobody) == 0);
    }
    ~OrdinaryUser() {
        if (user_ == 0) CHECK(::seteuid(user_) == 0);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  private:
    uid_t user_;
};

/// Every folder below one, as the player walks: each folder listed once, its children behind.
std::size_t walkedFolders(const TemporaryFolder& folder) {
    Names queue{platform::fromHost(folder.path())};
    for (std::size_t i = 0; i < queue.size() && queue.size() < 1000; ++i) {
        const platform::FolderListing listing = platform::listFolders(queue[i]);
        CHECK(listing.error == 0);
        queue.insert(queue.end(), listing.names.begin(), listing.names.end());
    }
    return queue.size();
}

} // namespace

TEST_CASE("sub-folders come as full paths, without the hidden ones") {
    const TemporaryFolder folder;
    for (const char* name :
         {"beta", "Alpha", "\xC3\x89tude", "gamma", "\xC3\xA9toile", "ALPHA", ".x", "..y"})
        static_cast<void>(folder.makeFolder(name));
    static_cast<void>(folder.makeFolder("beta/deeper"));
    writeHostFile(folder / "file.mp3", "x");
    CHECK(subFolders(folder) ==
          Names{"ALPHA", "Alpha", "beta", "gamma", "\xC3\x89tude", "\xC3\xA9toile"});
}

TEST_CASE("sub-folders of the root have one separator in front") {
    const platform::FolderListing listing = platform::listFolders("\\");
    CHECK(listing.error == 0);
    CHECK(std::count(listing.names.begin(), listing.names.end(), "\\proc") == 1);
}

TEST_CASE("a folder's name of any bytes can be walked into") {
    const TemporaryFolder folder;
    const std::string inner = folder.makeFolder("a\\b*c\n\xFF");
    writeHostFile(inner + "/\xE9.mp3", "x");
    const platform::FolderListing outer = platform::listFolders(platform::fromHost(folder.path()));
    REQUIRE(outer.names.size() == 1);
    const platform::FolderListing files = platform::listFiles(outer.names[0], ".mp3");
    REQUIRE(files.names.size() == 1);
    CHECK(platform::toHost(outer.names[0] + '\\' + files.names[0]) == inner + "/\xE9.mp3");
}

TEST_CASE("a link to a folder elsewhere counts as a sub-folder, a broken one doesn't") {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    static_cast<void>(elsewhere.makeFolder("inner"));
    std::filesystem::create_directory_symlink(elsewhere.path(), folder / "link");
    std::filesystem::create_directory_symlink("nowhere", folder / "broken");
    std::filesystem::create_symlink("/dev/null", folder / "device");
    CHECK(subFolders(folder) == Names{"link"});
    CHECK(subFolders(folder, "link") == Names{"inner"});
}

TEST_CASE("a link that leads back to a folder on the way is left out") {
    const TemporaryFolder folder;
    static_cast<void>(folder.makeFolder("a/b"));
    std::filesystem::create_directory_symlink(".", folder / "a/self");
    std::filesystem::create_directory_symlink("../..", folder / "a/b/up");
    std::filesystem::create_directory_symlink("/", folder / "a/b/root");
    CHECK(subFolders(folder, "a") == Names{"b"});
    CHECK(subFolders(folder, "a/b").empty());
}

TEST_CASE("a folder that is reached by two paths is listed by both") {
    const TemporaryFolder folder;
    static_cast<void>(folder.makeFolder("a/inner"));
    std::filesystem::create_directory_symlink("a", folder / "link");
    CHECK(subFolders(folder) == Names{"a", "link"});
    CHECK(subFolders(folder, "a") == Names{"inner"});
    CHECK(subFolders(folder, "link") == Names{"inner"});
}

TEST_CASE("a link back to a folder that was reached by a link is left out") {
    const TemporaryFolder folder;
    static_cast<void>(folder.makeFolder("a/b"));
    static_cast<void>(folder.makeFolder("elsewhere/x"));
    std::filesystem::create_directory_symlink(folder / "elsewhere", folder / "a/b/link");
    std::filesystem::create_directory_symlink(folder / "a", folder / "elsewhere/x/back");
    std::filesystem::create_directory_symlink("..", folder / "elsewhere/x/up");
    CHECK(subFolders(folder, "a/b/link/x").empty());
    CHECK(subFolders(folder, "elsewhere/x") == Names{"back"});
}

TEST_CASE("a walk through folders that link to each other ends") {
    const TemporaryFolder folder;
    static_cast<void>(folder.makeFolder("one"));
    static_cast<void>(folder.makeFolder("two"));
    std::filesystem::create_directory_symlink("../two", folder / "one/to-two");
    std::filesystem::create_directory_symlink("../one", folder / "two/to-one");
    CHECK(walkedFolders(folder) == 5); // the folder, one, two, and each once more by its link
}

TEST_CASE("a folder that isn't there or is none gives a path error") {
    const TemporaryFolder folder;
    writeHostFile(folder / "file", "x");
    const std::string path = platform::fromHost(folder.path());
    CHECK(platform::listFolders(path + "\\none").error == runtime::PathNotFound);
    CHECK(platform::listFolders(path + "\\file").error == runtime::PathNotFound);
    CHECK(platform::listFiles(path + "\\none", ".mp3").error == runtime::PathNotFound);
}

TEST_CASE("a folder that may not be entered gives an access error") {
    const TemporaryFolder folder;
    REQUIRE(::chmod(folder.path().c_str(), 0755) == 0);
    const std::string closed = folder.makeFolder("closed");
    REQUIRE(::chmod(closed.c_str(), 0) == 0);
    const OrdinaryUser ordinary;
    CHECK(platform::listFolders(platform::fromHost(closed)).error == runtime::PathFileAccess);
    CHECK(platform::listFiles(platform::fromHost(closed), ".mp3").error == runtime::PathFileAccess);
}

TEST_CASE("files are ordinary ones with the extension in any case, not hidden ones") {
    const TemporaryFolder folder;
    for (const char* name :
         {"a.mp3", "B.MP3", "c.Mp3", ".hidden.mp3", ".mp3", "d.wav", "mp3", "e.mp3x"})
        writeHostFile(folder / name, "x");
    static_cast<void>(folder.makeFolder("folder.mp3"));
    std::filesystem::create_symlink("a.mp3", folder / "link.mp3");
    std::filesystem::create_symlink("nowhere", folder / "broken.mp3");
    std::filesystem::create_symlink("folder.mp3", folder / "folderlink.mp3");
    REQUIRE(::mkfifo((folder / "pipe.mp3").c_str(), 0600) == 0);
    CHECK(sortedFiles(folder) == Names{"B.MP3", "a.mp3", "c.Mp3", "link.mp3"});
}

TEST_CASE("files come in the file system's order") {
    const TemporaryFolder folder;
    for (const char* name : {"m.mp3", "z.mp3", "a.mp3", "q.mp3", "b.mp3"})
        writeHostFile(folder / name, "x");
    Names expected;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        expected.push_back(entry.path().filename().native());
    CHECK(platform::listFiles(platform::fromHost(folder.path()), ".mp3").names == expected);
}
