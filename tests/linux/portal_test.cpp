#include "platform/linux/paths.h"
#include "platform/linux/portal_chooser.h"
#include "platform/linux/users_places.h"
#include "tests/linux/temporary_folder.h"

#include <doctest/doctest.h>

#include <QUrl>

#include <cstdlib>
#include <string>

using platform::pathOfUri;
using namespace std::string_literals;

TEST_CASE("a file's URI gives its path, byte for byte") {
    CHECK(pathOfUri("file:///music/a%20b.mp3") == "\\music\\a b.mp3");
    CHECK(pathOfUri("file://here/music/%C3%BC.mp3") == "\\music\\\xC3\xBC.mp3");
    CHECK(pathOfUri("file:///%2541%25.mp3") == "\\%41%.mp3");
    CHECK(pathOfUri("file:///odd%FF.mp3") == platform::fromHost("/odd\xFF.mp3"));
    CHECK(pathOfUri("file:///back%5Cslash") == platform::fromHost("/back\\slash"));
}

TEST_CASE("a folder's URI gives a path without a separator behind it, except at the root") {
    CHECK(pathOfUri("file:///music/") == "\\music");
    CHECK(pathOfUri("file:///") == "\\");
}

TEST_CASE("what is no file's URI gives no path") {
    for (const char* uri : {"", "file://", "file://host", "http://host/a.mp3", "/music/a.mp3"})
        CHECK(pathOfUri(uri).empty());
}

TEST_CASE("the places of a file dialog are home, music and desktop, as far as they are there") {
    const TemporaryFolder home;
    ::setenv("HOME", home.path().c_str(), 1);
    ::unsetenv("XDG_CONFIG_HOME");
    const auto has = [&](const std::string& folder) {
        return platform::usersPlaces().contains(
            QUrl::fromLocalFile(QString::fromStdString(folder)));
    };
    CHECK(has(home.path()));
    CHECK_FALSE(has(home / "Music"));
    CHECK_FALSE(home.makeFolder("Music").empty());
    CHECK_FALSE(home.makeFolder("Desktop").empty());
    CHECK(has(home / "Music"));
    CHECK(has(home / "Desktop"));
}
