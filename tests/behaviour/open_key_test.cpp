#include "shell/menus.h"
#include "tests/behaviour/player.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::Player;
using behaviour::PointerButton;
using simulated::world;

namespace {

constexpr const char* A = "C:\\Music\\a.mp3";

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

TEST_CASE("the open key stays down while its menu is up and 300 ms longer") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    player.press(form.pctopen);
    CHECK(openKeyIsDown(player));
    CHECK(world.menus.shown.empty());
    bool sunkInMenu = false;
    bool sunkInSleep = false;
    world.menus.dismiss([&] { sunkInMenu = openKeyIsDown(player); });
    world.watch = [&](const std::string& note) {
        if (note == "sleep 300") sunkInSleep = openKeyIsDown(player);
    };
    simulated::release();
    world.watch = nullptr;
    CHECK(sunkInMenu);
    CHECK(sunkInSleep);
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK_FALSE(openKeyIsDown(player));
    CHECK(player.list().ListCount() == 0);
    REQUIRE(world.menus.shown.size() == 1);
    REQUIRE(world.menus.shown[0].size() == 2);
    CHECK(world.menus.shown[0][0].caption == "File");
    CHECK(world.menus.shown[0][1].caption == "Directory");
}

TEST_CASE("the open key stays down during the dialog too, and rises 300 ms after it") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    bool sunkInDialog = false;
    world.menus.choose("File");
    world.dialogs.cancelFiles([&] {
        sunkInDialog = openKeyIsDown(player);
        CHECK(world.events.sleeps.empty());
    });
    player.click(form.pctopen, PointerButton::Right);
    CHECK(sunkInDialog);
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK_FALSE(openKeyIsDown(player));
    CHECK(player.list().ListCount() == 0);
}

TEST_CASE("the release of the open key frees the playlist window's open key as well") {
    Player player;
    player.start();
    player.frmPlaylist().pctPlsOpen.Visible(false);
    player.frmPlaylist().pctPlsOpenDown.Visible(true);
    world.menus.dismiss();
    player.click(player.frmPlayer().pctopen);
    CHECK(player.frmPlaylist().pctPlsOpen.Visible());
    CHECK_FALSE(player.frmPlaylist().pctPlsOpenDown.Visible());
}

TEST_CASE("an open key released far outside opens its menu all the same") {
    Player player;
    player.start();
    player.press(player.frmPlayer().pctopen);
    world.menus.dismiss();
    behaviour::releaseFarAway();
    CHECK(world.menus.shown.size() == 1);
    CHECK_FALSE(openKeyIsDown(player));
}

TEST_CASE("ticks go on while the open menu is up, and the wait behind it holds them back") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    const toolkit::Label& title = player.frmPlaylist().lblTitle;
    world.menus.dismiss([&] {
        simulated::advance(2 * 966);
        CHECK(title.Caption() == "2 / 200");
        simulated::advance(900);
    });
    player.click(player.frmPlayer().pctopen);
    CHECK(title.Caption() == "2 / 200");
    simulated::run();
    CHECK(title.Caption() == "3 / 200");
}

TEST_CASE("the open key stays down while its menu is up and for 300 ms more") {
    Player player;
    player.start();
    player.press(player.frmPlayer().pctopen);
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
    player.click(player.frmPlayer().pctopen);
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
    player.click(player.frmPlayer().pctopen);
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
    player.click(player.frmPlayer().pctopen);
    CHECK(player.list().ListCount() == 1);
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK_FALSE(openKeyIsDown(player));
}

TEST_CASE("the open key takes any button") {
    for (const PointerButton button : {PointerButton::Right, PointerButton::Middle}) {
        Player player;
        player.start();
        player.press(player.frmPlayer().pctopen, button);
        CHECK(openKeyIsDown(player));
        simulated::release(button);
        CHECK(world.menus.shown.size() == 1);
        CHECK_FALSE(openKeyIsDown(player));
    }
}

TEST_CASE("the open key's menu comes wherever the button is released") {
    Player player;
    player.start();
    player.press(player.frmPlayer().pctopen);
    behaviour::releaseFarAway();
    CHECK(world.menus.shown.size() == 1);
}

TEST_CASE("the playlist's open key works the same way, from its own window") {
    Player player;
    player.start();
    player.frmPlaylist().window.Show();
    player.press(player.frmPlaylist().pctPlsOpen);
    CHECK(playlistOpenKeyIsDown(player));
    CHECK_FALSE(openKeyIsDown(player));
    bool duringMenu = false;
    world.menus.dismiss([&] { duringMenu = playlistOpenKeyIsDown(player); });
    simulated::release();
    CHECK(duringMenu);
    REQUIRE(world.menus.shown.size() == 1);
    REQUIRE(world.menus.shown[0].size() == 2);
    CHECK(world.menus.shown[0][0].caption == "File");
    CHECK(world.menus.shown[0][1].caption == "Directory");
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
        popUpOpenMenu(player.frmPlayer(),
                      fromPlaylist ? player.frmPlaylist().window : player.frmPlayer().window);
        CHECK_FALSE(openKeyIsDown(player));
        CHECK_FALSE(playlistOpenKeyIsDown(player));
    }
}

TEST_CASE("no tick runs in the 300 ms behind the open key's menu, the late one comes after") {
    Player player;
    player.play({A});
    simulated::advance(900); // the first tick is due 66 ms from here
    world.menus.dismiss([] { commandsSent(); });
    player.click(player.frmPlayer().pctopen);
    CHECK(commandsSent().empty());
    simulated::advance(0);
    CHECK_FALSE(commandsSent().empty());
}

TEST_CASE("dialogs from the tray menu wait no 300 ms and touch no open key") {
    Player player;
    player.start();
    bool downDuring = true;
    world.dialogs.cancelFiles([&] { downDuring = openKeyIsDown(player); });
    world.menus.choose("Open File");
    world.tray.clickRight();
    CHECK_FALSE(downDuring);
    CHECK(world.events.sleeps.empty());
}

TEST_CASE("both open keys open the same menu with any button") {
    for (const bool ofPlaylist : {false, true})
        for (const PointerButton button :
             {PointerButton::Left, PointerButton::Right, PointerButton::Middle}) {
            CAPTURE(ofPlaylist);
            Player player;
            player.start();
            player.frmPlaylist().window.Show();
            const toolkit::Image& key =
                ofPlaylist ? player.frmPlaylist().pctPlsOpen : player.frmPlayer().pctopen;
            player.press(key, button);
            CHECK((ofPlaylist ? playlistOpenKeyIsDown(player) : openKeyIsDown(player)));
            world.menus.dismiss();
            behaviour::releaseFarAway(button);
            REQUIRE(world.menus.shown.size() == 1);
            REQUIRE(world.menus.shown[0].size() == 2);
            CHECK(world.menus.shown[0][0].caption == "File");
            CHECK(world.menus.shown[0][1].caption == "Directory");
            CHECK_FALSE(openKeyIsDown(player));
            CHECK_FALSE(playlistOpenKeyIsDown(player));
        }
}

TEST_CASE("a dialog of the open key's menu that is cancelled leaves list and sound as they are") {
    Player player;
    player.play({A, "C:\\Music\\b.mp3"});
    player.list().ListIndex(1);
    commandsSent();
    world.dialogs.foldersOpened.clear();
    for (const char* entry : {"File", "Directory"}) {
        world.menus.choose(entry); // and an unscripted dialog is cancelled
        player.click(player.frmPlayer().pctopen);
        CHECK(player.list().ListCount() == 2);
        CHECK(player.frmPlayer().trackCount == 2);
        CHECK(player.list().ListIndex() == 1);
        CHECK_FALSE(openKeyIsDown(player));
    }
    CHECK(world.dialogs.opened.size() == 1);
    CHECK(world.dialogs.foldersOpened.size() == 1);
    CHECK(commandsSent().empty());
    CHECK(player.status() == "Playing");
}
