#include "tests/behaviour/open_playlist.h"

#include <cstdint>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::OpenPlaylist;
using behaviour::PointerButton;
using simulated::world;

namespace {

/// A key that springs back, and the first thing that its release sets off.
struct KeyPair {
    toolkit::Image& up;
    toolkit::Image& down;
    const char* setsOff = "send Stop mpeg";
};

std::vector<KeyPair> springingKeys(FrmPlaylist& form) {
    return {{form.pctPlsPrev, form.pctPlsPrevDown},
            {form.pctPlsNext, form.pctPlsNextDown},
            {form.pctPlsStop, form.pctPlsStopDown},
            {form.pctPlsPlay, form.pctPlsPlayDown},
            {form.pctPlsOpen, form.pctPlsOpenDown, "open menu"}};
}

} // namespace

TEST_CASE("every key of the playlist goes down at the press and up at the release") {
    OpenPlaylist player;
    player.playLetters(3);
    for (const KeyPair& key : springingKeys(player.frmPlaylist())) {
        CAPTURE(key.up.name());
        CHECK(key.up.Visible());
        CHECK_FALSE(key.down.Visible());
        player.press(key.up);
        CHECK_FALSE(key.up.Visible());
        CHECK(key.down.Visible());
        simulated::release();
        CHECK(key.up.Visible());
        CHECK_FALSE(key.down.Visible());
    }
}

TEST_CASE("a key of the playlist springs back before it acts, but for the open key") {
    for (const std::size_t n : {0U, 1U, 2U, 3U, 4U}) {
        OpenPlaylist player;
        player.playLetters(3);
        const KeyPair key = springingKeys(player.frmPlaylist())[n];
        CAPTURE(key.up.name());
        player.press(key.up);
        bool acted = false;
        bool sunkThen = false;
        world.watch = [&](const std::string& note) {
            if (acted || note != key.setsOff) return;
            acted = true;
            sunkThen = key.down.shown() && !key.up.shown();
            CHECK(key.down.shown() != key.up.shown());
        };
        simulated::release();
        world.watch = nullptr;
        CHECK(acted);
        CHECK(sunkThen == (&key.up == &player.form.pctPlsOpen));
    }
}

TEST_CASE("a key of the playlist fires at the release, wherever that is, and with any button") {
    OpenPlaylist player;
    player.playLetters(4);
    player.press(player.form.pctPlsNext);
    CHECK(player.selected() == 0);
    simulated::release();
    CHECK(player.selected() == 1);
    player.clickAndSlideOff(player.form.pctPlsNext);
    CHECK(player.selected() == 2);
    player.click(player.form.pctPlsNext, PointerButton::Right);
    CHECK(player.selected() == 3);
    CHECK(player.sounding() == "C:\\Music\\d.mp3");
}

TEST_CASE("every key of the playlist acts though it is let go far outside the window") {
    for (std::size_t n = 0; n < 7; ++n) {
        OpenPlaylist player;
        player.playLetters(3);
        std::vector<KeyPair> all = springingKeys(player.form);
        all.push_back(
            {player.form.pctPlaylistQuit, player.form.pctPlaylistQuitDown, "hide window"});
        all.push_back(
            {player.form.pctPlaylistMini, player.form.pctPlaylistMiniDown, "hide window"});
        const KeyPair key = all.at(n);
        CAPTURE(key.up.name());
        bool acted = false;
        world.watch = [&](const std::string& note) { acted |= note.starts_with(key.setsOff); };
        player.press(key.up);
        simulated::moveToScreen(-500, -500);
        CHECK_FALSE(acted);
        CHECK(key.down.Visible());
        simulated::release();
        world.watch = nullptr;
        CHECK(acted);
        CHECK(key.up.Visible());
        CHECK_FALSE(key.down.Visible());
    }
}

TEST_CASE("the keys of the playlist leave the main window's keys alone") {
    OpenPlaylist player;
    player.playLetters(3);
    FrmPlayer& main = player.frmPlayer();
    player.press(player.form.pctPlsNext);
    CHECK(main.pctnext.Visible());
    CHECK_FALSE(main.pctnextdown.Visible());
    simulated::release();
    player.press(player.form.pctPlsPlay);
    CHECK_FALSE(main.pctplaydown.Visible());
    simulated::release();
    player.press(player.form.pctPlsStop);
    CHECK(main.pctstop.Visible());
    CHECK_FALSE(main.pctstopdown.Visible());
    simulated::release();
}

TEST_CASE("previous, next, play and stop of the playlist do what the main window's do") {
    OpenPlaylist player;
    player.playLetters(3);
    player.click(player.form.pctPlsNext);
    CHECK(player.sounding() == "C:\\Music\\b.mp3");
    player.click(player.form.pctPlsPrev);
    player.click(player.form.pctPlsPrev);
    CHECK(player.sounding() == "C:\\Music\\c.mp3");
    player.click(player.form.pctPlsStop);
    CHECK(player.status() == "Idle");
    CHECK_FALSE(player.frmPlayer().lblTimenow.Visible());
    CHECK_FALSE(player.frmPlayer().pctprogressbar.Visible());
    player.click(player.form.pctPlsPlay);
    CHECK(player.status() == "Playing");
    CHECK(player.sounding() == "C:\\Music\\c.mp3");
}

TEST_CASE("stop of the playlist empties both labels") {
    OpenPlaylist player;
    player.playLetters(1);
    simulated::advance(1500);
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Playing");
    CHECK(player.frmPlaylist().lblTitle.Caption() == "1 / 200");
    player.click(player.form.pctPlsStop);
    CHECK(player.frmPlaylist().lblPlaying.Caption().empty());
    CHECK(player.frmPlaylist().lblTitle.Caption().empty());
    simulated::advance(966);
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Idle");
}

TEST_CASE("the playlist's open key stays down through menu and dialog, and 300 ms more") {
    OpenPlaylist player;
    FrmPlaylist& form = player.frmPlaylist();
    world.media.addFile("C:\\Music\\a.mp3", 3000);
    const auto checkDown = [&] {
        CHECK_FALSE(form.pctPlsOpen.Visible());
        CHECK(form.pctPlsOpenDown.Visible());
        CHECK(player.frmPlayer().pctopen.Visible());
        CHECK(world.events.sleeps.empty());
    };
    world.menus.choose("File", checkDown);
    world.dialogs.pickFiles({"C:\\Music\\a.mp3"}, checkDown);
    const std::uint64_t before = simulated::now();
    player.click(player.form.pctPlsOpen);
    REQUIRE(world.menus.shown.size() == 1);
    CHECK(world.menus.shown[0].size() == 2);
    CHECK(simulated::scriptsLeft() == 0);
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK(simulated::now() == before + 300);
    CHECK(form.pctPlsOpen.Visible());
    CHECK_FALSE(form.pctPlsOpenDown.Visible());
    CHECK(player.status() == "Playing");
}

TEST_CASE("the playlist's open key comes up 300 ms after a dismissed menu too") {
    OpenPlaylist player;
    player.click(player.form.pctPlsOpen);
    CHECK(world.dialogs.opened.empty());
    CHECK(world.events.sleeps == std::vector<std::uint32_t>{300});
    CHECK(player.frmPlaylist().pctPlsOpen.Visible());
}

TEST_CASE("the playlist's open key lifts the main window's as well") {
    OpenPlaylist player;
    player.frmPlayer().pctopen.Visible(false);
    player.frmPlayer().pctopendown.Visible(true);
    player.click(player.form.pctPlsOpen);
    CHECK(player.frmPlayer().pctopen.Visible());
    CHECK_FALSE(player.frmPlayer().pctopendown.Visible());
}

TEST_CASE("the playlist's pause latches at the press and ends at the next press") {
    OpenPlaylist player;
    player.playLetters(1);
    FrmPlaylist& form = player.frmPlaylist();
    player.press(player.form.pctPlsPause);
    CHECK(player.status() == "Paused");
    CHECK_FALSE(form.pctPlsPause.Visible());
    CHECK(form.pctPlsPauseDown.Visible());
    CHECK(form.lblPlaying.Caption() == "Paused");
    simulated::release();
    CHECK(player.status() == "Paused");
    player.press(player.form.pctPlsPauseDown);
    CHECK(player.status() == "Playing");
    CHECK(form.pctPlsPause.Visible());
    CHECK_FALSE(form.pctPlsPauseDown.Visible());
    CHECK(form.lblPlaying.Caption() == "Paused"); // until the next tick
    simulated::release();
    simulated::advance(966);
    CHECK(form.lblPlaying.Caption() == "Playing");
}

TEST_CASE("the playlist's pause key moves before the device is told, unlike the main window's") {
    OpenPlaylist player;
    player.playLetters(1);
    FrmPlaylist& form = player.form;
    simulated::advance(966);
    std::string downThen;
    world.watch = [&](const std::string& note) {
        if (!note.starts_with("send ")) return;
        CHECK(form.pctPlsPause.shown() != form.pctPlsPauseDown.shown());
        downThen = note + (form.pctPlsPauseDown.shown() ? ": down, " : ": up, ") +
                   form.lblPlaying.Caption();
    };
    player.click(form.pctPlsPause);
    CHECK(downThen == "send Pause mpeg: down, Playing");
    player.click(form.pctPlsPauseDown);
    CHECK(downThen == "send Resume mpeg: up, Paused");
    world.watch = nullptr;
}

TEST_CASE("the playlist's pause does nothing while nothing plays") {
    OpenPlaylist player;
    player.addLetters(1);
    commandsSent();
    player.click(player.form.pctPlsPause);
    CHECK(player.frmPlaylist().pctPlsPause.Visible());
    CHECK_FALSE(player.frmPlaylist().pctPlsPauseDown.Visible());
    CHECK(player.frmPlaylist().lblPlaying.Caption().empty());
    CHECK(commandsSent().empty());
    CHECK_FALSE(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("the playlist's pause does nothing after a stop either, from whichever window") {
    for (const bool main : {false, true}) {
        CAPTURE(main);
        OpenPlaylist player;
        player.playLetters(1);
        simulated::advance(966);
        player.click(main ? player.frmPlayer().pctstop : player.form.pctPlsStop);
        commandsSent();
        player.press(player.form.pctPlsPause);
        CHECK(player.form.pctPlsPause.Visible());
        CHECK_FALSE(player.form.pctPlsPauseDown.Visible());
        CHECK(player.form.lblPlaying.Caption().empty());
        simulated::release();
        CHECK(player.status() == "Idle");
        CHECK(commandsSent().empty());
        CHECK(player.form.pctPlsPause.Visible());
        CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
    }
}

TEST_CASE("a pause made in the main window shows and ends there only") {
    OpenPlaylist player;
    player.playLetters(1);
    player.click(player.frmPlayer().pctpause);
    CHECK(player.status() == "Paused");
    CHECK(player.frmPlayer().pctpausedown.Visible());
    CHECK(player.frmPlayer().pctpause.Visible());
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Paused");
    CHECK(player.frmPlaylist().pctPlsPause.Visible());
    commandsSent();
    player.click(player.form.pctPlsPause);
    CHECK(commandsSent().empty());
    CHECK(player.status() == "Paused");
    CHECK(player.frmPlaylist().pctPlsPause.Visible());
    CHECK_FALSE(player.frmPlaylist().pctPlsPauseDown.Visible());
    player.click(player.frmPlayer().pctpausedown);
    CHECK(player.status() == "Playing");
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("a pause made in the playlist shows and ends there only") {
    OpenPlaylist player;
    player.playLetters(1);
    player.click(player.form.pctPlsPause);
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
    player.click(player.frmPlayer().pctpause);
    CHECK(player.status() == "Paused");
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("stopped from the playlist while paused there, its pause key stays down until play") {
    OpenPlaylist player;
    player.playLetters(1);
    player.click(player.form.pctPlsPause);
    player.click(player.form.pctPlsStop);
    CHECK(player.status() == "Idle");
    CHECK(player.frmPlaylist().pctPlsPauseDown.Visible());
    player.click(player.form.pctPlsPauseDown);
    CHECK(player.status() == "Idle");
    player.click(player.form.pctPlsPlay);
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlaylist().pctPlsPause.Visible());
    CHECK_FALSE(player.frmPlaylist().pctPlsPauseDown.Visible());
    player.click(player.form.pctPlsPause);
    CHECK(player.status() == "Paused");
}

TEST_CASE("paused in the main window and stopped from the playlist, play frees the pause key") {
    OpenPlaylist player;
    player.playLetters(1);
    player.click(player.frmPlayer().pctpause);
    player.click(player.form.pctPlsStop);
    CHECK(player.frmPlayer().pctpausedown.Visible());
    player.click(player.form.pctPlsPlay);
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
    player.click(player.frmPlayer().pctpause);
    CHECK(player.status() == "Paused");
}

TEST_CASE("closed by the system, the playlist hides as by its minimise key and opens again whole") {
    OpenPlaylist player;
    player.addLetters(2);
    FrmPlaylist& form = player.frmPlaylist();
    form.playlistdockX = true;
    const platform::WindowHandle window = player.playlistWindow();
    const platform::Point place = simulated::window(window).position;
    simulated::closeByUser(window);
    CHECK_FALSE(simulated::window(window).visible);
    CHECK(player.frmPlayer().pctplaylist.Visible());
    CHECK_FALSE(player.frmPlayer().pctplaylistdown.Visible());
    CHECK(form.playlistdockX);

    player.click(player.frmPlayer().pctplaylist);
    CHECK(player.playlistWindow() == window);
    CHECK(simulated::window(window).visible);
    CHECK(simulated::window(window).position == place);
    CHECK(simulated::window(window).shape.has_value());
    CHECK(player.list().ListCount() == 2);
}

TEST_CASE("play ends a pause made in the playlist and lifts its key") {
    OpenPlaylist player;
    player.playLetters(1);
    player.click(player.form.pctPlsPause);
    player.click(player.form.pctPlsPlay);
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlaylist().pctPlsPause.Visible());
    CHECK_FALSE(player.frmPlaylist().pctPlsPauseDown.Visible());
}

TEST_CASE("a pause that the device refuses leaves the key down and the word") {
    OpenPlaylist player;
    player.playLetters(1);
    world.media.fail("Pause");
    player.click(player.form.pctPlsPause);
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlaylist().pctPlsPauseDown.Visible());
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Paused");
    // There is no pause that a press on it could end.
    commandsSent();
    player.click(player.form.pctPlsPauseDown);
    CHECK(commandsSent().empty());
    CHECK(player.status() == "Playing");
    CHECK(player.form.pctPlsPauseDown.Visible());
    CHECK_FALSE(player.form.pctPlsPause.Visible());
}

TEST_CASE("tooltips of the playlist show over what is pressed, and pause's over the key at rest") {
    OpenPlaylist player;
    player.playLetters(1);
    const auto tooltip = [&] { return simulated::window(player.playlistWindow()).tooltip; };
    struct Row {
        toolkit::Image& key;
        const char* pressed;
    };
    FrmPlaylist& form = player.form;
    for (const Row& row : {Row{form.pctPlsPrev, "Previous"}, Row{form.pctPlsNext, "Next"},
                           Row{form.pctPlsStop, "Remove"}, Row{form.pctPlsPlay, "Play"},
                           Row{form.pctPlsOpen, "Open"}}) {
        player.hover(row.key);
        CHECK(tooltip().empty());
        player.press(row.key);
        CHECK(tooltip() == row.pressed);
        simulated::release();
    }
    player.click(form.pctPlsPlay);
    player.hover(form.pctPlsPause);
    CHECK(tooltip() == "Pause");
    player.press(form.pctPlsPause);
    CHECK(tooltip().empty());
    simulated::release();
}

TEST_CASE("with an empty list only play does something: it opens the file dialog") {
    OpenPlaylist player;
    player.click(player.form.pctPlsPrev);
    player.click(player.form.pctPlsNext);
    CHECK(world.dialogs.opened.empty());
    player.click(player.form.pctPlsPlay);
    CHECK(world.dialogs.opened.size() == 1);
    CHECK(world.messages.shown.empty());
}
