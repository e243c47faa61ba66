#include "tests/behaviour/hands.h"

#include <algorithm>
#include <functional>

using behaviour::clickOn;
using behaviour::commandsSent;
using behaviour::endsTheProcess;
using behaviour::hoverOver;
using behaviour::Player;
using behaviour::pressOn;
using behaviour::tooltipOf;
using platform::PointerButton;
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

        pressOn(player.mainWindow(), form.*key.up);
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

TEST_CASE("a key released far outside the window acts all the same") {
    for (const Key& key : keys) {
        CAPTURE(key.name);
        Player player;
        playTwo(player);
        FrmPlayer& form = player.frmPlayer();
        pressOn(player.mainWindow(), form.*key.up);
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
            pressOn(player.mainWindow(), form.*key.up, button);
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
    const auto window = player.mainWindow();
    clickOn(window, form.pctnext, PointerButton::Right);
    CHECK(world.media.openPath() == "C:\\Music\\b.mp3");
    clickOn(window, form.pctprev);
    CHECK(world.media.openPath() == "C:\\Music\\a.mp3");
    player.list().ListIndex(2);
    clickOn(window, form.pctPlay);
    CHECK(world.media.openPath() == "C:\\Music\\c.mp3");
    clickOn(window, form.pctstop);
    CHECK_FALSE(world.media.open());
    CHECK_FALSE(form.lblTimenow.Visible());
    CHECK_FALSE(form.pctprogressbar.Visible());
    clickOn(window, form.pctminimise);
    CHECK_FALSE(form.window.Visible());
    CHECK(form.Timer1.Enabled());
    simulated::world.tray.doubleClick();
    CHECK(form.window.Visible());
    CHECK(endsTheProcess([&] { clickOn(window, form.pctquit); }));
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
        hoverOver(window, form.*row.up);
        CHECK(tooltipOf(window).empty());
        pressOn(window, form.*row.up);
        CHECK(tooltipOf(window) == row.text);
        simulated::moveTo(window, 100, 25);
        CHECK(tooltipOf(window).empty());
        hoverOver(window, form.*row.up);
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
        hoverOver(window, form.*key);
        CHECK(tooltipOf(window).empty());
    }
    clickOn(window, form.pctpause);
    CHECK(tooltipOf(window) == "Pause");
    clickOn(window, form.pctalarm);
    CHECK(tooltipOf(window) == "Alarm");
    clickOn(window, form.pctplaylist);
    CHECK(tooltipOf(window) == "Playlist");
    hoverOver(window, form.pctpausedown);
    CHECK(tooltipOf(window) == "Pause");
    clickOn(window, form.pctpausedown);
    CHECK(tooltipOf(window).empty());
}

TEST_CASE("the playlist key latches: each press turns the playlist window on or off") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    pressOn(player.mainWindow(), form.pctplaylist);
    CHECK_FALSE(form.pctplaylist.Visible());
    CHECK(form.pctplaylistdown.Visible());
    CHECK(player.frmPlaylist().window.Visible());
    simulated::release();
    CHECK(form.pctplaylistdown.Visible());
    pressOn(player.mainWindow(), form.pctplaylistdown, PointerButton::Right);
    CHECK(form.pctplaylist.Visible());
    CHECK_FALSE(form.pctplaylistdown.Visible());
    CHECK_FALSE(player.frmPlaylist().window.Visible());
    simulated::release(PointerButton::Right);
}

TEST_CASE("a click on the time flips it at the next tick and not before") {
    Player player;
    playTwo(player);
    FrmPlayer& form = player.frmPlayer();
    simulated::advance(966);
    const std::string remaining = form.lblTimenow.Caption();
    CHECK(remaining == "-03:19");
    clickOn(player.mainWindow(), form.lblTimenow);
    CHECK(form.showElapsed == runtime::True16);
    simulated::advance(965);
    CHECK(form.lblTimenow.Caption() == remaining);
    simulated::advance(1);
    CHECK(form.lblTimenow.Caption() == "00:02");
    clickOn(player.mainWindow(), form.lblTimenow, PointerButton::Right);
    CHECK(form.showElapsed == runtime::False16);
    CHECK(form.lblTimenow.Caption() == "00:02");
    simulated::advance(966);
    CHECK(form.lblTimenow.Caption() == "-03:17");
}

TEST_CASE("a press on the time that slides off it is no click") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    pressOn(player.mainWindow(), form.lblTimenow);
    simulated::releaseAt(player.mainWindow(), 100, 40);
    CHECK(form.showElapsed == runtime::False16);
}

TEST_CASE("any value but true becomes elapsed time at a click") {
    Player player;
    player.start();
    player.frmPlayer().showElapsed = 7;
    clickOn(player.mainWindow(), player.frmPlayer().lblTimenow);
    CHECK(player.frmPlayer().showElapsed == runtime::True16);
}

TEST_CASE("the labels have their texts, fonts and colours") {
    struct Row {
        toolkit::Label FrmPlayer::*label;
        const char* caption;
        platform::Font font;
    };
    const platform::Font large{"MS Sans Serif", 12, false, false};
    const platform::Font medium{"MS Sans Serif", 9.75, false, false};
    const platform::Font tiny{"Terminal", 6, true, true};
    const Row rows[] = {
        {&FrmPlayer::lblshowtime, "Timer off", large},
        {&FrmPlayer::lblTimenow, "", large},
        {&FrmPlayer::lblTimer, "", large},
        {&FrmPlayer::lblHr, "Hour", medium},
        {&FrmPlayer::lblMin, "Minute", medium},
        {&FrmPlayer::cmdSet, "Set", medium},
        {&FrmPlayer::lblRepeat, "Repeat", tiny},
        {&FrmPlayer::lblShuffle, "Shuffle", tiny},
    };
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    for (const Row& row : rows) {
        toolkit::Label& label = form.*row.label;
        CAPTURE(label.name());
        CHECK(label.Caption() == row.caption);
        CHECK(label.ForeColor() == 65535);
        label.Visible(true);
        label.Caption("shown");
        world.text.drawn.clear();
        const platform::Picture face = simulated::picture(player.mainWindow());
        const auto drawn =
            std::find_if(world.text.drawn.begin(), world.text.drawn.end(), [&](const auto& text) {
                return text.text == "shown" && text.clip.left == label.area().left &&
                       text.clip.top == label.area().top;
            });
        REQUIRE(drawn != world.text.drawn.end());
        CHECK(drawn->font == row.font);
        CHECK(drawn->colour == 0xFFFFFF00U);
        // The box is opaque: its last pixel is black.
        CHECK(face.row(label.area().bottom - 1)[label.area().right - 1] == 0xFF000000U);
        label.Caption("");
    }
}
