#include "tests/behaviour/three_tracks.h"

#include <functional>
#include <string>

using behaviour::commandsSent;
using behaviour::Player;
using simulated::world;
using namespace behaviour::three;

namespace {

void clickStop(Player& player) { player.click(player.frmPlayer().pctstop); }

void clickPlaylistStop(Player& player) {
    player.frmPlaylist().window.Show();
    player.click(player.frmPlaylist().pctPlsStop);
}

bool pauseKeysAreDown(Player& player) {
    return player.frmPlayer().pctpausedown.Visible() &&
           !player.frmPlaylist().pctPlsPause.Visible() &&
           player.frmPlaylist().pctPlsPauseDown.Visible();
}

struct AfterStop {
    bool time;
    bool thumb;
    const char* playing;
    const char* title;
};

void checkAfterStop(Player& player, const AfterStop& expected) {
    CHECK(player.status() == "Idle");
    CHECK_FALSE(world.media.open());
    CHECK(player.frmPlayer().lblTimenow.Visible() == expected.time);
    CHECK(player.frmPlayer().pctprogressbar.Visible() == expected.thumb);
    CHECK(player.frmPlaylist().lblPlaying.Caption() == expected.playing);
    CHECK(player.frmPlaylist().lblTitle.Caption() == expected.title);
}

void stopFromTray() {
    world.menus.choose("Stop");
    world.tray.clickRight();
}

} // namespace

TEST_CASE("stop in the tray menu hides the thumb only") {
    ThreeTracks three(0);
    simulated::advance(10'000);
    world.media.forgetCommands();
    stopFromTray();
    CHECK(commandsSent() == stopAndClose);
    checkAfterStop(three.player, {true, false, "Playing", "10 / 200"});
}

TEST_CASE("stop on the main window hides time and thumb and empties the playlist's texts") {
    ThreeTracks three(0);
    simulated::advance(10'000);
    world.media.forgetCommands();
    clickStop(three.player);
    CHECK(commandsSent() == stopAndClose);
    checkAfterStop(three.player, {false, false, "", ""});
    CHECK(three.form().pctstop.Visible());
    CHECK_FALSE(three.form().pctstopdown.Visible());
}

TEST_CASE("stop on the playlist window does the same") {
    ThreeTracks three(0);
    simulated::advance(10'000);
    world.media.forgetCommands();
    clickPlaylistStop(three.player);
    CHECK(commandsSent() == stopAndClose);
    checkAfterStop(three.player, {false, false, "", ""});
    CHECK(three.player.frmPlaylist().pctPlsStop.Visible());
    CHECK_FALSE(three.player.frmPlaylist().pctPlsStopDown.Visible());
}

TEST_CASE("stop in the tray menu or on the main window while paused lifts the pause keys") {
    for (const bool tray : {true, false}) {
        CAPTURE(tray);
        ThreeTracks three(0);
        pauseInBothWindows(three.player);
        if (tray)
            stopFromTray();
        else
            clickStop(three.player);
        CHECK(three.player.status() == "Idle");
        CHECK(pauseKeysAreUp(three.player));
    }
}

TEST_CASE("stop in the tray menu or on the main window lifts the pause keys even if it fails") {
    for (const bool tray : {true, false}) {
        CAPTURE(tray);
        ThreeTracks three(0);
        pauseInBothWindows(three.player);
        world.media.fail("stop");
        if (tray)
            stopFromTray();
        else
            clickStop(three.player);
        CHECK(three.player.status() == "Paused");
        CHECK(pauseKeysAreUp(three.player));
    }
}

TEST_CASE("stop on the playlist window while paused ends play and leaves the pause keys pressed") {
    ThreeTracks three(0);
    pauseInBothWindows(three.player);
    clickPlaylistStop(three.player);
    CHECK(commandsSent() == stopAndClose);
    CHECK(three.player.status() == "Idle");
    CHECK(pauseKeysAreDown(three.player));
}

TEST_CASE("only a stop on the playlist window that fails lifts the pause keys") {
    ThreeTracks three(0);
    pauseInBothWindows(three.player);
    world.media.fail("stop");
    clickPlaylistStop(three.player);
    CHECK(commandsSent() == Commands{"Stop mpeg"});
    CHECK(three.player.status() == "Paused");
    CHECK(pauseKeysAreUp(three.player));
}

TEST_CASE("the stop key is seen at rest before the pause key is lifted") {
    ThreeTracks three(0);
    clickPause(three.player);
    REQUIRE(three.player.status() == "Paused");
    three.player.press(three.form().pctstop);
    const std::string paints = "paint window " + std::to_string(three.player.mainWindow());
    bool seen = false;
    world.watch = [&](const std::string& note) {
        if (seen || note != paints) return;
        seen = true;
        CHECK_FALSE(three.form().pctstopdown.Visible());
        CHECK(three.form().pctpausedown.Visible());
    };
    simulated::release();
    world.watch = nullptr;
    CHECK(seen);
    CHECK_FALSE(three.form().pctpausedown.Visible());
}

TEST_CASE("every stop tells the device before it hides anything or empties the texts") {
    const std::function<void(Player&)> stops[] = {[](Player& /*player*/) { stopFromTray(); },
                                                  clickStop, clickPlaylistStop};
    for (const auto& stop : stops) {
        ThreeTracks three(0);
        simulated::advance(10'000);
        int told = 0;
        world.watch = [&](const std::string& note) {
            if (note != "send Stop mpeg") return;
            ++told;
            CHECK(three.form().lblTimenow.Visible());
            CHECK(three.form().pctprogressbar.Visible());
            CHECK(three.player.frmPlaylist().lblPlaying.Caption() == "Playing");
            CHECK(three.player.frmPlaylist().lblTitle.Caption() == "10 / 200");
        };
        stop(three.player);
        world.watch = nullptr;
        CHECK(told == 1);
    }
}

TEST_CASE("no stop touches the timer, the seek offset or the thumb's place") {
    const std::function<void(Player&)> stops[] = {[](Player&) { stopFromTray(); }, clickStop,
                                                  clickPlaylistStop};
    for (const auto& stop : stops) {
        ThreeTracks three(0);
        simulated::advance(100'000);
        const toolkit::Twips left = three.form().pctprogressbar.Left();
        const runtime::Fixed offset = three.form().seekOffset;
        REQUIRE(left > 1500);
        stop(three.player);
        CHECK(three.form().Timer1.Enabled());
        CHECK(three.form().pctprogressbar.Left() == left);
        CHECK(three.form().pctprogressbardown.Left() == left);
        CHECK(three.form().seekOffset == offset);
    }
}

TEST_CASE("a stop without anything open stays quiet") {
    Player player;
    player.start();
    clickStop(player);
    CHECK(commandsSent() == Commands{"Stop mpeg"});
    CHECK(player.status() == "Idle");
    CHECK(world.messages.shown.empty());
}

TEST_CASE("the tick after a stop shows that the player is idle") {
    ThreeTracks three(0);
    simulated::advance(10'000);
    clickStop(three.player);
    REQUIRE(three.player.frmPlaylist().lblPlaying.Caption().empty());
    simulated::advance(966);
    CHECK(three.player.frmPlaylist().lblPlaying.Caption() == "Idle");
    CHECK(three.player.frmPlaylist().lblTitle.Caption().empty());
}
