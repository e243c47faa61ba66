#include "tests/behaviour/player.h"

#include <algorithm>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::Player;
using simulated::world;

namespace {

using Texts = std::vector<std::string>;

constexpr const char* A = "C:\\Music\\a.mp3";
constexpr const char* B = "C:\\Music\\b.mp3";

/// A menu as "Caption" or "Caption > (entries)", in order.
std::string describe(const std::vector<platform::MenuItem>& items) {
    std::string text;
    for (const platform::MenuItem& item : items) {
        if (!text.empty()) text += ", ";
        text += item.caption;
        if (!item.children.empty()) text += " > (" + describe(item.children) + ")";
    }
    return text;
}

void names(const toolkit::Menu& menu, Texts& found) {
    found.push_back(menu.name);
    for (const toolkit::Menu& entry : menu.entries)
        names(entry, found);
}

void pickFromTray(const std::string& caption) {
    world.menus.choose(caption);
    world.tray.clickRight();
}

} // namespace

TEST_CASE("the tray menu has its entries in their order") {
    Player player;
    player.start();
    world.tray.clickRight();
    REQUIRE(world.menus.shown.size() == 1);
    CHECK(describe(world.menus.shown[0]) ==
          "Maximized, Open > (Open File, Open Directory), Main > (Play, Stop, Next), About, Exit");
}

TEST_CASE("the open key's menu has a file and a directory") {
    Player player;
    player.start();
    player.click(player.frmPlayer().pctopen);
    REQUIRE(world.menus.shown.size() == 1);
    CHECK(describe(world.menus.shown[0]) == "File, Directory");
}

TEST_CASE("the menus carry their names") {
    Player player;
    Texts found;
    names(player.frmPlayer().mnuPopup, found);
    names(player.frmPlayer().mnuOpenDialog, found);
    CHECK(found == Texts{"mnuPopup", "mnuMaximized", "MnuOpen", "mnuOpenFile", "MnuOpenDir",
                         "mnuMain", "mnuPlay", "mnuStop", "mnuNext", "mnuAbout", "mnuExit",
                         "mnuOpenDialog", "mnuList", "mnuDir"});
}

TEST_CASE("open file and open directory in the tray menu run their dialogs") {
    Player player;
    player.start();
    pickFromTray("Open File");
    CHECK(world.dialogs.opened.size() == 1);
    CHECK(world.dialogs.foldersOpened.empty());
    pickFromTray("Open Directory");
    CHECK(world.dialogs.opened.size() == 1);
    CHECK(world.dialogs.foldersOpened.size() == 1);
}

TEST_CASE("the tray menu plays, goes on to the next track and stops") {
    Player player;
    player.start();
    player.addTracks({A, B});
    player.list().ListIndex(0);
    pickFromTray("Play");
    CHECK(world.media.openPath() == A);
    pickFromTray("Next");
    CHECK(world.media.openPath() == B);
    CHECK(player.status() == "Playing");
    pickFromTray("Stop");
    CHECK(player.status() == "Idle");
    CHECK_FALSE(world.media.open());
}

TEST_CASE("play in the tray menu opens the file dialog for an empty list") {
    Player player;
    player.start();
    world.media.addFile(A, 200'000);
    world.dialogs.pickFiles({A});
    pickFromTray("Play");
    CHECK(world.media.openPath() == A);
}

TEST_CASE("no entry of a menu that is closed runs anything") {
    Player player;
    player.play({A, B});
    commandsSent();
    world.menus.dismiss();
    world.tray.clickRight();
    CHECK(commandsSent().empty());
    CHECK(world.dialogs.opened.empty());
    CHECK(player.list().ListIndex() == 0);
}

TEST_CASE("the tray menu opened while a dialog runs still ends the player") {
    Player player;
    player.start();
    world.dialogs.cancelFiles([] { pickFromTray("Exit"); });
    CHECK_THROWS_AS(player.frmPlayer().openfiles(), simulated::ProcessEnded);
}
