#include "tests/behaviour/player.h"

#include <algorithm>

using behaviour::commandsSent;
using behaviour::Player;
using simulated::PointerButton;
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

void pressOpenKey(Player& player, PointerButton button = PointerButton::Left) {
    simulated::pressAt(player.mainWindow(), 110, 55, button);
}

bool openKeyIsDown(Player& player) {
    const bool down = player.frmPlayer().pctopendown.Visible();
    CHECK(player.frmPlayer().pctopen.Visible() == !down);
    return down;
}

bool playlistOpenKeyIsDown(Player& player) {
    const bool down = player.frmPlaylist().pctPlsOpenDown.Visible();
    CHECK(player.frmPlaylist().pctPlsOpen.Visible() == !down);
    return down;
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
    simulated::click(player.mainWindow(), 110, 55);
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

TEST_CASE("the open key stays down while its menu is up and for 300 ms more") {
    Player player;
    player.start();
    pressOpenKey(player);
    CHECK(openKeyIsDown(player));
    bool duringMenu = false;
    world.menus.dismiss([&] { duringMenu = openKeyIsDown(player); });
    const std::uint64_t before = simulated::now();
    simulated::release();
    CHECK(duringMenu);
    CHECK(simulated::now() == before + 300);
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK_FALSE(openKeyIsDown(player));
    CHECK(world.dialogs.opened.empty());
    CHECK(world.dialogs.foldersOpened.empty());
}

TEST_CASE("the open key stays down during the dialog that is picked, and 300 ms more") {
    Player player;
    player.start();
    bool duringDialog = false;
    std::size_t sleptDuringDialog = 1;
    world.menus.choose("File");
    world.dialogs.cancelFiles([&] {
        simulated::advance(5000);
        duringDialog = openKeyIsDown(player);
        sleptDuringDialog = world.events.sleeps.size();
    });
    const std::uint64_t before = simulated::now();
    simulated::click(player.mainWindow(), 110, 55);
    CHECK(duringDialog);
    CHECK(sleptDuringDialog == 0);
    CHECK(simulated::now() == before + 5300);
    CHECK_FALSE(openKeyIsDown(player));
    CHECK(player.list().ListCount() == 0);
}

TEST_CASE("a file picked by the open key plays before the key is up") {
    Player player;
    player.start();
    world.media.addFile(A, 200'000);
    world.menus.choose("File");
    world.dialogs.pickFiles({A});
    simulated::click(player.mainWindow(), 110, 55);
    CHECK(world.media.openPath() == A);
    CHECK(world.media.position() > 1);
    CHECK_FALSE(openKeyIsDown(player));
}

TEST_CASE("a directory picked by the open key is added, and the 300 ms pass all the same") {
    Player player;
    player.start();
    world.files.addFile(A);
    world.menus.choose("Directory");
    world.dialogs.pickFolder("C:\\Music");
    simulated::click(player.mainWindow(), 110, 55);
    CHECK(player.list().ListCount() == 1);
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK_FALSE(openKeyIsDown(player));
}

TEST_CASE("the open key takes any button") {
    for (const PointerButton button : {PointerButton::Right, PointerButton::Middle}) {
        Player player;
        player.start();
        pressOpenKey(player, button);
        CHECK(openKeyIsDown(player));
        simulated::release(button);
        CHECK(world.menus.shown.size() == 1);
        CHECK_FALSE(openKeyIsDown(player));
    }
}

TEST_CASE("the open key's menu comes wherever the button is released") {
    Player player;
    player.start();
    pressOpenKey(player);
    simulated::releaseAt(player.mainWindow(), -50, 300);
    CHECK(world.menus.shown.size() == 1);
}

TEST_CASE("the playlist's open key works the same way, from its own window") {
    Player player;
    player.start();
    player.frmPlaylist().window.Show();
    simulated::pressAt(player.playlistWindow(), 110, 75);
    CHECK(playlistOpenKeyIsDown(player));
    CHECK_FALSE(openKeyIsDown(player));
    bool duringMenu = false;
    world.menus.dismiss([&] { duringMenu = playlistOpenKeyIsDown(player); });
    simulated::release();
    CHECK(duringMenu);
    REQUIRE(world.menus.shown.size() == 1);
    CHECK(describe(world.menus.shown[0]) == "File, Directory");
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK_FALSE(playlistOpenKeyIsDown(player));
}

TEST_CASE("either open key releases both pairs") {
    for (const bool fromPlaylist : {false, true}) {
        Player player;
        player.start();
        player.frmPlaylist().window.Show();
        for (toolkit::Image* up : {&player.frmPlayer().pctopen, &player.frmPlaylist().pctPlsOpen})
            up->Visible(false);
        for (toolkit::Image* down :
             {&player.frmPlayer().pctopendown, &player.frmPlaylist().pctPlsOpenDown})
            down->Visible(true);
        player.frmPlayer().popUpOpenMenu(fromPlaylist ? player.frmPlaylist().window
                                                      : player.frmPlayer().window);
        CHECK_FALSE(openKeyIsDown(player));
        CHECK_FALSE(playlistOpenKeyIsDown(player));
    }
}

TEST_CASE("no tick runs in the 300 ms behind the open key's menu, the late one comes after") {
    Player player;
    player.play({A});
    simulated::advance(900); // the first tick is due 66 ms from here
    world.menus.dismiss([] { commandsSent(); });
    simulated::click(player.mainWindow(), 110, 55);
    CHECK(commandsSent().empty());
    simulated::advance(0);
    CHECK_FALSE(commandsSent().empty());
}

TEST_CASE("dialogs from the tray menu wait no 300 ms and touch no open key") {
    Player player;
    player.start();
    bool downDuring = true;
    world.dialogs.cancelFiles([&] { downDuring = openKeyIsDown(player); });
    pickFromTray("Open File");
    CHECK_FALSE(downDuring);
    CHECK(world.events.sleeps.empty());
}
