#include "tests/behaviour/player.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::endsTheProcess;
using behaviour::Player;
using behaviour::PointerButton;
using behaviour::tooltipOf;
using simulated::world;

namespace {

using KeyImage = toolkit::Image FrmPlayer::*;

enum class UpImage { Hidden, Covered };

/// A key of the main window: what a press shows, and the first thing that its release sets off.
struct Key {
    const char* name;
    KeyImage up;
    KeyImage down;
    UpImage held;
    const char* sets_off;
};

const Key keys[] = {
    {"previous", &FrmPlayer::pctprev, &FrmPlayer::pctprevdown, UpImage::Hidden, "send Stop mpeg"},
    {"next", &FrmPlayer::pctnext, &FrmPlayer::pctnextdown, UpImage::Hidden, "send Stop mpeg"},
    {"stop", &FrmPlayer::pctstop, &FrmPlayer::pctstopdown, UpImage::Hidden, "send Stop mpeg"},
    {"play", &FrmPlayer::pctPlay, &FrmPlayer::pctplaydown, UpImage::Covered, "send Stop mpeg"},
    {"minimise", &FrmPlayer::pctminimise, &FrmPlayer::pctminimisedown, UpImage::Covered,
     "hide window"},
    {"quit", &FrmPlayer::pctquit, &FrmPlayer::pctquitdown, UpImage::Covered, "tray"},
};

using Commands = std::vector<std::string>;

void playTwo(Player& player) { player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"}); }

/// Whether a note was made since the last look that starts so.
bool happened(const std::string& start) {
    const auto& notes = simulated::log();
    return std::any_of(notes.begin(), notes.end(),
                       [&](const std::string& note) { return note.starts_with(start); });
}

bool atRest(FrmPlayer& form, const Key& key) {
    return (form.*key.up).shown() && !(form.*key.down).shown();
}

} // namespace

TEST_CASE("a press shows a key sunk, its release springs it back, and only then acts") {
    for (const Key& key : keys) {
        CAPTURE(key.name);
        Player player;
        playTwo(player);
        FrmPlayer& form = player.frmPlayer();
        REQUIRE(atRest(form, key));
        simulated::clearLog();

        player.press(form.*key.up);
        CHECK((form.*key.down).Visible());
        CHECK((form.*key.up).Visible() == (key.held == UpImage::Covered));
        CHECK_FALSE(happened(key.sets_off));

        bool restedThen = false;
        bool acted = false;
        world.watch = [&](const std::string& note) {
            if (acted || !note.starts_with(key.sets_off)) return;
            acted = true;
            restedThen = atRest(form, key);
        };
        endsTheProcess([] { simulated::release(); });
        CHECK(acted);
        CHECK(restedThen);
        CHECK(atRest(form, key));
        world.watch = nullptr;
    }
}

TEST_CASE("a released key is on the screen at rest before its action begins") {
    struct Row {
        const char* key;
        toolkit::Image FrmPlayer::*player;
        toolkit::Image FrmPlaylist::*playlist;
    };
    const Row rows[] = {
        {"previous", &FrmPlayer::pctprev, &FrmPlaylist::pctPlsPrev},
        {"next", &FrmPlayer::pctnext, &FrmPlaylist::pctPlsNext},
        {"stop", &FrmPlayer::pctstop, &FrmPlaylist::pctPlsStop},
        {"play", &FrmPlayer::pctPlay, &FrmPlaylist::pctPlsPlay},
    };
    const auto logOfRelease = [](Player& player, toolkit::Image& key) {
        player.press(key);
        simulated::paintWaiting();
        simulated::clearLog();
        simulated::release();
        return simulated::log();
    };
    for (const Row& row : rows) {
        for (const bool fromPlaylist : {false, true}) {
            CAPTURE(row.key);
            CAPTURE(fromPlaylist);
            Player player;
            player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
            player.frmPlaylist().window.Show();
            toolkit::Image& key =
                fromPlaylist ? player.frmPlaylist().*row.playlist : player.frmPlayer().*row.player;
            const auto window = fromPlaylist ? player.playlistWindow() : player.mainWindow();
            const auto log = logOfRelease(player, key);
            REQUIRE(log.size() > 1);
            CHECK(log[0] == "paint window " + std::to_string(window));
            CHECK(log[1].starts_with("send "));
        }
    }
}

TEST_CASE("a title key is on the screen at rest before its window goes") {
    Player player;
    player.start();
    const auto painted = [&](toolkit::Image& key, platform::WindowHandle window) {
        player.press(key);
        simulated::paintWaiting();
        simulated::clearLog();
        simulated::release();
        return simulated::log().front() == "paint window " + std::to_string(window);
    };
    player.frmPlaylist().window.Show();
    CHECK(painted(player.frmPlaylist().pctPlaylistMini, player.playlistWindow()));
    player.frmPlaylist().window.Show();
    CHECK(painted(player.frmPlaylist().pctPlaylistQuit, player.playlistWindow()));
    CHECK(painted(player.frmPlayer().pctminimise, player.mainWindow()));
}

TEST_CASE("a key released far outside the window acts all the same") {
    for (const Key& key : keys) {
        CAPTURE(key.name);
        Player player;
        playTwo(player);
        FrmPlayer& form = player.frmPlayer();
        player.press(form.*key.up);
        simulated::moveToScreen(2, 700);
        CHECK((form.*key.down).Visible());
        simulated::clearLog();
        endsTheProcess([] { simulated::release(); });
        CHECK(happened(key.sets_off));
        CHECK(atRest(form, key));
    }
}

TEST_CASE("the right and the middle button press a key as the left one does") {
    for (const PointerButton button : {PointerButton::Right, PointerButton::Middle})
        for (const Key& key : keys) {
            CAPTURE(key.name);
            Player player;
            playTwo(player);
            FrmPlayer& form = player.frmPlayer();
            player.press(form.*key.up, button);
            CHECK((form.*key.down).Visible());
            simulated::clearLog();
            endsTheProcess([&] { simulated::release(button); });
            CHECK(happened(key.sets_off));
            CHECK(atRest(form, key));
        }
}

TEST_CASE("each key does what its name says") {
    Player player;
    player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3", "C:\\Music\\c.mp3"});
    FrmPlayer& form = player.frmPlayer();
    player.click(form.pctnext, PointerButton::Right);
    CHECK(world.media.openPath() == "C:\\Music\\b.mp3");
    player.click(form.pctprev);
    CHECK(world.media.openPath() == "C:\\Music\\a.mp3");
    player.list().ListIndex(2);
    player.click(form.pctPlay);
    CHECK(world.media.openPath() == "C:\\Music\\c.mp3");
    player.click(form.pctstop);
    CHECK_FALSE(world.media.open());
    CHECK_FALSE(form.lblTimenow.Visible());
    CHECK_FALSE(form.pctprogressbar.Visible());
    player.click(form.pctminimise);
    CHECK_FALSE(form.window.Visible());
    CHECK(form.Timer1.Enabled());
    simulated::world.tray.doubleClick();
    CHECK(form.window.Visible());
    CHECK(endsTheProcess([&] { player.click(form.pctquit); }));
}

TEST_CASE("keys at rest show no tooltip and held ones do") {
    struct Row {
        KeyImage up;
        const char* text;
    };
    const Row rows[] = {
        {&FrmPlayer::pctprev, "Previous"}, {&FrmPlayer::pctnext, "Next"},
        {&FrmPlayer::pctstop, "Stop"},     {&FrmPlayer::pctPlay, "Play"},
        {&FrmPlayer::pctopen, "Open"},     {&FrmPlayer::pctminimise, ""},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        Player player;
        playTwo(player);
        FrmPlayer& form = player.frmPlayer();
        const auto window = player.mainWindow();
        player.hover(form.*row.up);
        CHECK(tooltipOf(window).empty());
        player.press(form.*row.up);
        CHECK(tooltipOf(window) == row.text);
        player.hover(form.lblTimenow);
        CHECK(tooltipOf(window).empty());
        player.moveFrom(form.*row.up, 0);
        CHECK(tooltipOf(window) == row.text);
        simulated::release();
        CHECK(tooltipOf(window).empty());
    }
}

TEST_CASE("the three latched keys show their tooltips while they are down") {
    Player player;
    playTwo(player);
    FrmPlayer& form = player.frmPlayer();
    const auto window = player.mainWindow();
    for (const KeyImage key :
         {&FrmPlayer::pctpause, &FrmPlayer::pctalarm, &FrmPlayer::pctplaylist}) {
        player.hover(form.*key);
        CHECK(tooltipOf(window).empty());
    }
    player.click(form.pctpause);
    CHECK(tooltipOf(window) == "Pause");
    player.click(form.pctalarm);
    CHECK(tooltipOf(window) == "Alarm");
    player.click(form.pctplaylist);
    CHECK(tooltipOf(window) == "Playlist");
    player.hover(form.pctpausedown);
    CHECK(tooltipOf(window) == "Pause");
    player.click(form.pctpausedown);
    CHECK(tooltipOf(window).empty());
}

TEST_CASE("the playlist key latches: each press turns the playlist window on or off") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    player.press(form.pctplaylist);
    CHECK_FALSE(form.pctplaylist.Visible());
    CHECK(form.pctplaylistdown.Visible());
    CHECK(player.frmPlaylist().window.Visible());
    simulated::release();
    CHECK(form.pctplaylistdown.Visible());
    player.press(form.pctplaylistdown, PointerButton::Right);
    CHECK(form.pctplaylist.Visible());
    CHECK_FALSE(form.pctplaylistdown.Visible());
    CHECK_FALSE(player.frmPlaylist().window.Visible());
    simulated::release(PointerButton::Right);
}

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
    player.press(form.pctpause);
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
    player.click(form.pctpause, PointerButton::Right);
    world.media.forgetCommands();
    bool sunkThen = false;
    world.watch = [&](const std::string& note) {
        if (note == "send Resume mpeg") sunkThen = form.pctpausedown.shown();
    };
    player.press(form.pctpausedown);
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
    player.press(form.pctpause);
    CHECK_FALSE(form.pctpausedown.Visible());
    CHECK(form.pctpause.Visible());
    simulated::release();
    CHECK(commandsSent().empty());
    CHECK(player.frmPlaylist().lblPlaying.Caption().empty());
    CHECK_FALSE(form.Timer1.Enabled());
}

TEST_CASE("a press on pause after a stop shows and changes nothing") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    FrmPlayer& form = player.frmPlayer();
    simulated::advance(966);
    player.click(form.pctstop);
    world.media.forgetCommands();
    const platform::Picture face = simulated::picture(player.mainWindow());
    player.press(form.pctpause);
    CHECK(simulated::picture(player.mainWindow()) == face);
    CHECK_FALSE(form.pctpausedown.Visible());
    simulated::release();
    CHECK(commandsSent().empty());
    CHECK(player.status() == "Idle");
    CHECK(player.frmPlaylist().lblPlaying.Caption().empty());
    CHECK(player.frmPlaylist().pctPlsPause.Visible());
}

TEST_CASE("a pause that the device refuses leaves the key down and the player playing") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    world.media.fail("Pause");
    player.click(player.frmPlayer().pctpause);
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlayer().pctpausedown.Visible());
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Paused");
}

TEST_CASE("a sunk pause key without a pause stays down when it is pressed") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    player.click(player.frmPlayer().pctpause);
    // The playlist window's stop ends the pause but leaves this key.
    player.frmPlaylist().pctPlsStop_MouseUp();
    REQUIRE(player.status() == "Idle");
    world.media.forgetCommands();
    player.click(player.frmPlayer().pctpausedown);
    CHECK(commandsSent().empty());
    CHECK(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("a sunk pause key stays down while a track plays on, as after a pause that was refused") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    world.media.fail("Pause");
    player.click(player.frmPlayer().pctpause);
    REQUIRE(player.status() == "Playing");
    world.media.forgetCommands();
    player.click(player.frmPlayer().pctpausedown);
    CHECK(commandsSent().empty());
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("a second press on the pause key while paused never reaches its up image") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    player.doubleClick(player.frmPlayer().pctpause);
    CHECK(player.status() == "Playing");
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
}
