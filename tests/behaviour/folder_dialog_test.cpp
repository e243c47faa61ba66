#include "shell/COpenDirDialog.h"
#include "tests/behaviour/player.h"

#include <string>

using behaviour::fatalMessageOf;
using behaviour::Player;
using simulated::world;

namespace {

std::string browse(Player& player) {
    return COpenDirDialog().BrowseForFolder(player.frmPlayer().window, "Browse for folder");
}

} // namespace

TEST_CASE("a cancelled folder dialog gives an empty text and no message") {
    Player player;
    player.start();
    world.dialogs.cancelFolder();
    CHECK(browse(player).empty());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("a folder comes back without a backslash at its end, a drive's root with one") {
    Player player;
    player.start();
    world.dialogs.pickFolder("C:\\Music");
    CHECK(browse(player) == "C:\\Music");
    world.dialogs.pickFolder("C:\\");
    CHECK(browse(player) == "C:\\");
}

TEST_CASE("a folder's blanks are kept, at its end too") {
    Player player;
    player.start();
    world.dialogs.pickFolder("C:\\My music ");
    CHECK(browse(player) == "C:\\My music ");
}

TEST_CASE("a folder of 259 characters comes back whole") {
    Player player;
    player.start();
    const std::string folder = "C:\\" + std::string(256, 'x');
    world.dialogs.pickFolder(folder);
    CHECK(browse(player) == folder);
}

TEST_CASE("a folder of 259 characters comes back whole, whatever their bytes, and a longer one is "
          "refused") {
    Player player;
    player.start();
    for (const std::string character : {"\xD0\xB6", "\xE9\x9F\xB3", "\xF0\x9F\x8E\xB5"}) {
        std::string folder = "C:\\";
        for (int i = 0; i < 256; ++i)
            folder += character;
        world.dialogs.pickFolder(folder);
        CHECK(browse(player) == folder);
        CHECK(world.messages.shown.empty());
        world.dialogs.pickFolder(folder + character);
        CHECK(browse(player).empty());
        CHECK(world.messages.shown.size() == 1);
        world.messages.shown.clear();
    }
}

TEST_CASE("an item without a path is the fatal end") {
    Player player;
    player.start();
    world.dialogs.pickFolder("");
    CHECK(fatalMessageOf([&] { player.frmPlayer().opendir(); }) ==
          "Run-time error 5: Invalid procedure call or argument");
}

TEST_CASE("the folder dialog is owned by the main window and asks for folders only") {
    Player player;
    player.start();
    player.frmPlayer().opendir();
    REQUIRE(world.dialogs.foldersOpened.size() == 1);
    const auto& opened = world.dialogs.foldersOpened.front();
    CHECK(opened.owner == player.mainWindow());
    CHECK(opened.title == "Browse for folder");
    CHECK(opened.flags == 7);
}

TEST_CASE("the folder dialog keeps the main window from clicks and leaves the playlist alive") {
    Player player;
    player.start();
    player.addTracks({"C:\\a.mp3", "C:\\b.mp3"});
    player.frmPlaylist().window.Show();
    world.dialogs.cancelFolder([&] {
        player.click(player.frmPlayer().lblRepeat);
        player.click(player.list());
    });
    player.frmPlayer().opendir();
    CHECK_FALSE(player.frmPlayer().repeatOn);
    CHECK(player.list().ListIndex() == 1);
    player.click(player.frmPlayer().lblRepeat);
    CHECK(player.frmPlayer().repeatOn);
}

TEST_CASE("the time goes on while the folder dialog is up") {
    Player player;
    player.play({"C:\\a.mp3"});
    const std::string before = player.frmPlayer().lblTimenow.Caption();
    std::string during;
    world.dialogs.cancelFolder([&] {
        simulated::advance(10'000);
        during = player.frmPlayer().lblTimenow.Caption();
    });
    player.frmPlayer().opendir();
    CHECK(during != before);
}
