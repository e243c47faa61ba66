#include "tests/behaviour/hands.h"

using behaviour::clickOn;
using behaviour::commandsSent;
using behaviour::Player;
using behaviour::pressOn;
using platform::PointerButton;
using simulated::world;

namespace {

using Commands = std::vector<std::string>;

bool openKeySunk(FrmPlayer& form) { return form.pctopendown.shown() && !form.pctopen.shown(); }

bool openKeyUp(FrmPlayer& form) { return form.pctopen.shown() && !form.pctopendown.shown(); }

} // namespace

TEST_CASE("the pause key acts at the press and latches over its up image") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    FrmPlayer& form = player.frmPlayer();
    simulated::advance(966);
    world.media.forgetCommands();
    bool sunkThen = false;
    std::string captionThen;
    world.watch = [&](const std::string& note) {
        if (note != "send Pause mpeg") return;
        sunkThen = form.pctpausedown.shown();
        captionThen = player.frmPlaylist().lblPlaying.Caption();
    };
    pressOn(player.mainWindow(), form.pctpause);
    world.watch = nullptr;
    CHECK(sunkThen);
    CHECK(captionThen == "Playing");
    CHECK(commandsSent() == Commands{"Pause mpeg"});
    CHECK(player.status() == "Paused");
    CHECK(form.pctpause.Visible());
    CHECK(form.pctpausedown.Visible());
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Paused");
    // The release adds nothing: the press took place on the up image.
    simulated::release();
    CHECK(commandsSent().empty());
    CHECK(form.pctpausedown.Visible());
}

TEST_CASE("a press on the sunk pause key plays on and then lifts the key") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    FrmPlayer& form = player.frmPlayer();
    simulated::advance(966);
    clickOn(player.mainWindow(), form.pctpause, PointerButton::Right);
    world.media.forgetCommands();
    bool sunkThen = false;
    world.watch = [&](const std::string& note) {
        if (note == "send Resume mpeg") sunkThen = form.pctpausedown.shown();
    };
    pressOn(player.mainWindow(), form.pctpausedown);
    world.watch = nullptr;
    CHECK(sunkThen);
    CHECK(commandsSent() == Commands{"Resume mpeg"});
    CHECK(player.status() == "Playing");
    CHECK_FALSE(form.pctpausedown.Visible());
    // The caption waits for the tick.
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Paused");
    simulated::release();
    simulated::advance(966);
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Playing");
}

TEST_CASE("a press on pause while nothing plays shows and changes nothing") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    pressOn(player.mainWindow(), form.pctpause);
    CHECK_FALSE(form.pctpausedown.Visible());
    CHECK(form.pctpause.Visible());
    simulated::release();
    CHECK(commandsSent().empty());
    CHECK(player.frmPlaylist().lblPlaying.Caption().empty());
}

TEST_CASE("a pause that the device refuses leaves the key down and the player playing") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    world.media.fail("Pause");
    clickOn(player.mainWindow(), player.frmPlayer().pctpause);
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlayer().pctpausedown.Visible());
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Paused");
}

TEST_CASE("a sunk pause key without a pause stays down when it is pressed") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    clickOn(player.mainWindow(), player.frmPlayer().pctpause);
    // The playlist window's stop ends the pause but leaves this key.
    player.frmPlaylist().pctPlsStop_MouseUp();
    REQUIRE(player.status() == "Idle");
    world.media.forgetCommands();
    clickOn(player.mainWindow(), player.frmPlayer().pctpausedown);
    CHECK(commandsSent().empty());
    CHECK(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("a second press on the pause key while paused never reaches its up image") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    simulated::doubleClick(player.mainWindow(), 145, 56);
    CHECK(player.status() == "Playing");
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("the open key stays down while its menu is up and 300 ms longer") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    pressOn(player.mainWindow(), form.pctopen);
    CHECK(openKeySunk(form));
    CHECK(world.menus.shown.empty());
    bool sunkInMenu = false;
    bool sunkInSleep = false;
    world.menus.dismiss([&] { sunkInMenu = openKeySunk(form); });
    world.watch = [&](const std::string& note) {
        if (note == "sleep 300") sunkInSleep = openKeySunk(form);
    };
    simulated::release();
    world.watch = nullptr;
    CHECK(sunkInMenu);
    CHECK(sunkInSleep);
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK(openKeyUp(form));
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
        sunkInDialog = openKeySunk(form);
        CHECK(world.events.sleeps.empty());
    });
    clickOn(player.mainWindow(), form.pctopen, PointerButton::Right);
    CHECK(sunkInDialog);
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK(openKeyUp(form));
    CHECK(player.list().ListCount() == 0);
}

TEST_CASE("the release of the open key frees the playlist window's open key as well") {
    Player player;
    player.start();
    player.frmPlaylist().pctPlsOpen.Visible(false);
    player.frmPlaylist().pctPlsOpenDown.Visible(true);
    world.menus.dismiss();
    clickOn(player.mainWindow(), player.frmPlayer().pctopen);
    CHECK(player.frmPlaylist().pctPlsOpen.Visible());
    CHECK_FALSE(player.frmPlaylist().pctPlsOpenDown.Visible());
}

TEST_CASE("an open key released far outside opens its menu all the same") {
    Player player;
    player.start();
    pressOn(player.mainWindow(), player.frmPlayer().pctopen);
    simulated::moveToScreen(1, 1);
    world.menus.dismiss();
    simulated::release();
    CHECK(world.menus.shown.size() == 1);
    CHECK(openKeyUp(player.frmPlayer()));
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
    clickOn(player.mainWindow(), player.frmPlayer().pctopen);
    CHECK(title.Caption() == "2 / 200");
    simulated::run();
    CHECK(title.Caption() == "3 / 200");
}
