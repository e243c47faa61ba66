#include "mainwindow/time_text.h"
#include "tests/behaviour/player.h"
#include "tests/behaviour/strip_rows.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::Player;
using behaviour::PointerButton;
using simulated::world;
namespace strip = behaviour::strip;

namespace {

using Commands = std::vector<std::string>;

/// A player in the middle of the first of two tracks of 200 seconds, the device standing still, the
/// thumb at its true place.
void playHalfway(Player& player) {
    player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    world.media.reportPosition(100'000);
    simulated::advance(966);
    REQUIRE(player.frmPlayer().pctprogressbar.Left() == 1850);
    world.media.forgetCommands();
}

/// A column of the strip to the left of that thumb, in pixels.
constexpr int leftOfThumb = 60;

/// Clicks a column of the strip, in pixels; in its middle row, if no other is given.
void clickStrip(Player& player, int x, int y = strip::MiddleRow) {
    simulated::click(player.mainWindow(), x, y);
}

bool sought(const Commands& commands) {
    for (const std::string& command : commands)
        if (command.starts_with("seek")) return true;
    return false;
}

} // namespace

TEST_CASE("the strip is the pixel rows 34 to 40, and presses beside it start a window drag") {
    struct Row {
        int y;
        bool strip;
    };
    for (const Row& row : {Row{strip::RowAbove, false}, Row{strip::FirstRow, true},
                           Row{strip::LastRow, true}, Row{strip::RowBelow, false}}) {
        CAPTURE(row.y);
        Player player;
        playHalfway(player);
        simulated::pressAt(player.mainWindow(), leftOfThumb, row.y);
        CHECK(sought(commandsSent()) == row.strip);
        CHECK(player.frmPlayer().mouseHeld != row.strip);
        simulated::release();
    }
}

TEST_CASE("the strip reaches over the whole width of the window") {
    for (const int x : {0, 5, 240, 275}) {
        CAPTURE(x);
        Player player;
        playHalfway(player);
        simulated::pressAt(player.mainWindow(), x, strip::MiddleRow, PointerButton::Middle);
        CHECK_FALSE(commandsSent().empty());
        CHECK_FALSE(player.frmPlayer().mouseHeld);
        simulated::release(PointerButton::Middle);
    }
}

TEST_CASE("with nothing playing the strip neither seeks nor drags") {
    for (const bool paused : {false, true}) {
        CAPTURE(paused);
        Player player;
        if (paused) {
            playHalfway(player);
            player.engine().PauseM();
        } else {
            player.start();
        }
        world.media.forgetCommands();
        const toolkit::Twips windowLeft = player.frmPlayer().window.Left();
        simulated::pressAt(player.mainWindow(), 200, strip::MiddleRow);
        simulated::moveTo(player.mainWindow(), 230, strip::MiddleRow + 53);
        simulated::release();
        CHECK(commandsSent().empty());
        CHECK(player.frmPlayer().window.Left() == windowLeft);
        CHECK_FALSE(player.frmPlayer().mouseHeld);
    }
}

TEST_CASE("what the rows of the strip do while a track plays, and what they do while none does") {
    struct Row {
        int y;
        bool strip;
    };
    for (const Row& row : {Row{strip::RowAbove, false}, Row{strip::FirstRow, true},
                           Row{strip::LastRow, true}, Row{strip::RowBelow, false}})
        for (const char* status : {"Playing", "Paused", "Idle"}) {
            CAPTURE(row.y);
            CAPTURE(status);
            Player player;
            playHalfway(player);
            if (status == std::string("Paused")) player.click(player.frmPlayer().pctpause);
            if (status == std::string("Idle")) player.click(player.frmPlayer().pctstop);
            REQUIRE(player.status() == status);
            world.media.forgetCommands();
            const toolkit::Twips thumb = player.frmPlayer().pctprogressbar.Left();
            const platform::Point before = simulated::window(player.mainWindow()).position;
            simulated::pressAt(player.mainWindow(), leftOfThumb, row.y);
            const bool seeks = row.strip && status == std::string("Playing");
            CHECK(sought(commandsSent()) == seeks);
            CHECK((player.frmPlayer().pctprogressbar.Left() != thumb) == seeks);
            simulated::moveToScreen(500, 400);
            simulated::release();
            CHECK((simulated::window(player.mainWindow()).position == before) == row.strip);
            CHECK(commandsSent().empty());
        }
}

TEST_CASE("after a stop the strip is dead, at the hidden thumb's place too") {
    for (const int x : {5, leftOfThumb, 130, 250}) {
        CAPTURE(x);
        Player player;
        playHalfway(player);
        player.click(player.frmPlayer().pctstop);
        world.media.forgetCommands();
        const platform::Point before = simulated::window(player.mainWindow()).position;
        simulated::pressAt(player.mainWindow(), x, strip::MiddleRow);
        simulated::moveToScreen(700, 600);
        simulated::release();
        CHECK(commandsSent().empty());
        CHECK(simulated::window(player.mainWindow()).position == before);
        CHECK(player.frmPlayer().pctprogressbar.Left() == 1850);
        CHECK_FALSE(player.frmPlayer().mouseHeld);
    }
}

TEST_CASE("after a stop that failed the strip seeks, its thumb hidden, even at the thumb's place") {
    for (const int x : {leftOfThumb, 130}) {
        CAPTURE(x);
        Player player;
        playHalfway(player);
        world.media.fail("stop");
        player.click(player.frmPlayer().pctstop);
        REQUIRE(player.status() == "Playing");
        REQUIRE_FALSE(player.frmPlayer().pctprogressbar.Visible());
        world.media.forgetCommands();
        clickStrip(player, x);
        CHECK(sought(commandsSent()));
        CHECK(player.frmPlayer().pctprogressbar.Left() == static_cast<float>(15 * x) - 232.5F);
        CHECK_FALSE(player.frmPlayer().pctprogressbar.Visible());
    }
}

TEST_CASE("a click at the left edge puts the thumb beyond it") {
    Player player;
    playHalfway(player);
    clickStrip(player, 2);
    CHECK(player.frmPlayer().pctprogressbar.Left() == -202.5F);
    CHECK(player.frmPlayer().pctprogressbardown.Left() == -202.5F);
    CHECK(player.frmPlayer().seekOffset == runtime::Fixed(-2052.5));
}

TEST_CASE("left of 472.5 twips a click asks for less than the start, and the tick puts it right") {
    // Pixel 31 is 465 twips, pixel 32 is 480.
    for (const int x : {31, 32}) {
        CAPTURE(x);
        Player player;
        player.play({"C:\\Music\\a.mp3"});
        simulated::advance(21 * 966);
        FrmPlayer& form = player.frmPlayer();
        const std::int64_t before = world.media.position();
        REQUIRE(form.seekOffset == runtime::Fixed(static_cast<double>(before) / 200'000 * 3220));
        world.media.forgetCommands();
        clickStrip(player, x);
        const Commands sent = commandsSent();
        REQUIRE(sent.size() == 5);
        const bool refused = x == 31;
        CHECK(sent[1] == (refused ? "seek mpeg to -489" : "seek mpeg to 442"));
        CHECK(world.media.position() == (refused ? before : 442));
        CHECK(form.lblTimenow.Caption() == "-03:20");
        CHECK(player.frmPlaylist().lblTitle.Caption() == "0 / 200");
        simulated::advance(966);
        const std::int64_t now = world.media.position();
        CHECK(now == (refused ? before : 442) + 966);
        CHECK(form.lblTimenow.Caption() ==
              timeText(200, runtime::Fixed(static_cast<double>(now) / 1000), false));
        CHECK(player.frmPlaylist().lblTitle.Caption() ==
              std::to_string((now + 500) / 1000) + " / 200");
    }
}

TEST_CASE("where the thumb stands after the yield decides between a seek and the next track") {
    Player player;
    playHalfway(player);
    FrmPlayer& form = player.frmPlayer();
    // A tick that is let through puts the thumb back on its bar.
    simulated::post([&] {
        world.media.reportPosition(190'000);
        form.Timer1_Timer();
    });
    clickStrip(player, 250);
    CHECK(player.list().ListIndex() == 0);
    CHECK(sought(commandsSent()));
    CHECK(form.pctprogressbar.Left() == 240 + 3059);
}

TEST_CASE("a click on the strip jumps by the distance from the thumb to the pointer") {
    Player player;
    playHalfway(player);
    FrmPlayer& form = player.frmPlayer();
    simulated::pressAt(player.mainWindow(), 180, strip::MiddleRow);
    // 180 pixels less half a thumb, from 1850.
    CHECK(form.pctprogressbar.Left() == 2467.5F);
    CHECK(form.pctprogressbardown.Left() == 2467.5F);
    CHECK(form.seekOffset == runtime::Fixed(617.5));
    CHECK(form.trackPositionSeconds == runtime::Fixed(138.3540));
    CHECK(commandsSent() == Commands{"status mpeg position", "seek mpeg to 138354", "Play mpeg",
                                     "set mpeg time format frames", "status mpeg length"});
    CHECK(form.lblTimenow.Caption() == "-01:02");
    CHECK(player.frmPlaylist().lblTitle.Caption() == "138 / 200");
    CHECK(form.pctprogressbar.Visible());
    CHECK(form.Timer1.Enabled());
    // A single jump: nothing follows the pointer.
    simulated::moveTo(player.mainWindow(), 200, strip::MiddleRow);
    simulated::release();
    CHECK(commandsSent().empty());
    CHECK(form.pctprogressbar.Left() == 2467.5F);
}

TEST_CASE("the distance counts from the thumb's place in whole twips") {
    Player player;
    playHalfway(player);
    FrmPlayer& form = player.frmPlayer();
    form.pctprogressbar.Left(1850.5F); // halfway between: the even one counts
    clickStrip(player, 180);
    CHECK(form.seekOffset == runtime::Fixed(617.5));
    form.pctprogressbar.Left(1850.6F);
    clickStrip(player, 180);
    CHECK(form.seekOffset == runtime::Fixed(616.5));
}

TEST_CASE("after a click on the strip the next tick puts the thumb where the track is") {
    Player player;
    playHalfway(player);
    world.media.reportPosition({});
    FrmPlayer& form = player.frmPlayer();
    clickStrip(player, 200);
    const toolkit::Twips clicked = form.pctprogressbar.Left();
    simulated::advance(966);
    const double share = form.trackPositionSeconds.toDouble() / 200.0;
    CHECK(form.pctprogressbar.Left() != clicked);
    CHECK(std::fabs(static_cast<double>(form.pctprogressbar.Left()) - (240 + share * 3220)) < 0.01);
}

TEST_CASE("a click right of the bar's end is the next track, at any row of the strip") {
    for (const int y : {strip::FirstRow, strip::MiddleRow, strip::LastRow}) {
        CAPTURE(y);
        Player player;
        playHalfway(player);
        clickStrip(player, 246, y); // 3690 twips
        CHECK(player.list().ListIndex() == 0);
        clickStrip(player, 270, y);
        CHECK(player.list().ListIndex() == 1);
        CHECK(player.frmPlayer().pctprogressbar.Left() == 240);
        CHECK(world.media.openPath() == "C:\\Music\\b.mp3");
    }
    Player player;
    playHalfway(player);
    clickStrip(player, 247); // 3705 twips
    CHECK(player.list().ListIndex() == 1);
}

TEST_CASE("texts are written after a click that went to the next track too") {
    Player player;
    playHalfway(player);
    player.frmPlayer().lblTimenow.Caption("old");
    world.media.reportPosition(100'000);
    clickStrip(player, 247);
    CHECK(player.frmPlayer().lblTimenow.Caption() == "-00:-01");
    CHECK(player.frmPlaylist().lblTitle.Caption() == "201 / 200");
}

TEST_CASE("a click right of the end of the last track without repeat changes no track") {
    Player player;
    playHalfway(player);
    player.list().ListIndex(1);
    clickStrip(player, 250);
    const Commands sent = commandsSent();
    CHECK_FALSE(sought(sent));
    CHECK(world.media.openPath() == "C:\\Music\\a.mp3");
}

TEST_CASE("a click far to the left sends a negative seek, which the device refuses") {
    Player player;
    playHalfway(player);
    world.media.reportPosition({});
    FrmPlayer& form = player.frmPlayer();
    const std::int64_t before = world.media.position();
    clickStrip(player, 20);
    const Commands sent = commandsSent();
    REQUIRE(sent.size() == 5);
    CHECK(sent[1].starts_with("seek mpeg to -"));
    CHECK(sent[2] == "Play mpeg");
    CHECK(world.media.playing());
    CHECK(world.media.position() == before);
    // The texts are those of the start, until the tick puts them right.
    CHECK(form.trackPositionSeconds == 0);
    CHECK(form.lblTimenow.Caption() == "-03:20");
    CHECK(player.frmPlaylist().lblTitle.Caption() == "0 / 200");
    simulated::advance(966);
    CHECK(form.trackPositionSeconds.toDouble() * 1000 >= static_cast<double>(before));
}

TEST_CASE("a press on the thumb itself is no click on the strip") {
    Player player;
    playHalfway(player);
    player.press(player.frmPlayer().pctprogressbar);
    CHECK(player.frmPlayer().mouseHeld);
    CHECK_FALSE(sought(commandsSent()));
    simulated::release();
}

TEST_CASE("a click uses the length of the last tick") {
    Player player;
    playHalfway(player);
    player.frmPlayer().trackLengthSeconds = 100;
    clickStrip(player, 180);
    CHECK(player.frmPlayer().trackPositionSeconds == runtime::Fixed(100 * (617.5 / 3220) + 100));
}

TEST_CASE("events that wait run in the middle of a click, before the seek goes out") {
    Player player;
    playHalfway(player);
    simulated::post([] { simulated::note("in between"); });
    simulated::clearLog();
    simulated::pressAt(player.mainWindow(), 180, strip::MiddleRow);
    const auto& notes = simulated::log();
    REQUIRE(notes.size() >= 3);
    CHECK(notes[0] == "send status mpeg position");
    CHECK(notes[1] == "in between");
    CHECK(notes[2].starts_with("send seek"));
    simulated::release();
}
