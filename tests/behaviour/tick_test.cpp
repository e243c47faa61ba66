#include "mainwindow/time_text.h"
#include "tests/behaviour/ticks.h"

#include <cstdint>
#include <string>
#include <vector>

using namespace behaviour;
using runtime::Fixed;
using simulated::world;

namespace {

using Commands = std::vector<std::string>;

} // namespace

TEST_CASE("the clock ticks every 966 ms once a track has been started, and not before") {
    Player player;
    player.start();
    player.addTracks({A});
    simulated::advance(5000);
    CHECK(statusText(player).empty());
    player.list().ListIndex(0);
    player.frmPlayer().startfile();
    world.media.forgetCommands();
    simulated::advance(965);
    CHECK(commandsSent().empty());
    simulated::advance(1);
    CHECK(commandsSent().size() == 6);
    simulated::advance(965);
    CHECK(commandsSent().empty());
    simulated::advance(1);
    CHECK(commandsSent().size() == 6);
}

TEST_CASE("starting another track leaves the beat of the clock as it is") {
    Player player;
    playOne(player, 200'000);
    simulated::advance(500);
    player.frmPlayer().startfile();
    world.media.forgetCommands();
    simulated::advance(465);
    CHECK(commandsSent().empty());
    simulated::advance(1);
    CHECK(commandsSent().size() == 6);
}

TEST_CASE("a tick asks for position and length, then for length and position again") {
    Player player;
    playOne(player, 200'000);
    simulated::advance(tick);
    CHECK(commandsSent() == Commands{"status mpeg position", "set mpeg time format frames",
                                     "status mpeg length", "set mpeg time format frames",
                                     "status mpeg length", "status mpeg position"});
}

TEST_CASE("the counter takes the first answers, time and thumb the second") {
    Player player;
    playOne(player, 200'000);
    world.media.answer("status mpeg position", "10000");
    world.media.answer("status mpeg length", "100000");
    world.media.reportPosition(50'000);
    simulated::advance(tick);
    CHECK(counter(player) == "10 / 100");
    CHECK(timeNow(player) == "-02:30");
    CHECK(player.frmPlayer().trackLengthSeconds == 200);
    CHECK(player.frmPlayer().trackPositionSeconds == 50);
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240 + 805);
}

TEST_CASE("a tick writes the counter before it asks again, and the time when it has all answers") {
    Player player;
    playOne(player, 200'000);
    std::string counterThen;
    std::string timeThen = "not asked";
    int asked = 0;
    world.watch = [&](const std::string& note) {
        if (note != "send status mpeg length" || ++asked != 2) return;
        counterThen = counter(player);
        timeThen = timeNow(player);
    };
    tickAt(20'000);
    world.watch = nullptr;
    CHECK(counterThen == "20 / 200");
    CHECK(timeThen.empty());
    CHECK(timeNow(player) == "-03:00");
}

TEST_CASE("while idle or paused a tick asks the device nothing") {
    Player player;
    playOne(player, 200'000);
    simulated::advance(tick);
    pauseByKey(player);
    REQUIRE(player.status() == "Paused");
    world.media.forgetCommands();
    simulated::advance(10 * tick);
    CHECK(commandsSent().empty());
    player.engine().StopM();
    world.media.forgetCommands();
    simulated::advance(10 * tick);
    CHECK(commandsSent().empty());
}

TEST_CASE("the playlist window tells whether the player plays or is idle") {
    Player player;
    playOne(player, 200'000);
    simulated::advance(tick);
    CHECK(statusText(player) == "Playing");
    player.engine().StopM();
    simulated::advance(tick);
    CHECK(statusText(player) == "Idle");
}

TEST_CASE("a track that can't be opened shows as idle at the next tick") {
    Player player;
    player.start();
    player.addTracks({A});
    world.files.remove(A);
    player.list().ListIndex(0);
    player.frmPlayer().startfile();
    simulated::advance(tick);
    CHECK(statusText(player) == "Idle");
    CHECK(player.frmPlayer().lblTimenow.Visible());
}

TEST_CASE("the counter shows position and length in whole seconds, ties to even") {
    struct Row {
        std::int64_t position;
        std::int64_t length;
        const char* text;
    };
    const Row rows[] = {
        {0, 200'000, "0 / 200"},
        {499, 200'000, "0 / 200"},
        {500, 200'000, "0 / 200"},
        {501, 200'000, "1 / 200"},
        {1500, 200'000, "2 / 200"},
        {2500, 200'000, "2 / 200"},
        {2501, 200'500, "3 / 200"},
        {61'000, 201'500, "61 / 202"},
        {3'725'000, 7'200'000, "3725 / 7200"},
        {0, 32'767'499, "0 / 32767"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        Player player;
        playOne(player, row.length);
        tickAt(row.position);
        CHECK(counter(player) == row.text);
    }
}

TEST_CASE("times read in minutes and seconds, ties to even, minutes past an hour") {
    struct Row {
        double seconds;
        const char* text;
    };
    const Row rows[] = {
        {0, "00:00"},      {0.4999, "00:00"}, {0.5, "00:00"},   {0.5001, "00:01"},
        {1.5, "00:02"},    {2.5, "00:02"},    {3.4, "00:03"},   {59.4999, "00:59"},
        {59.5, "01:00"},   {59.6, "01:00"},   {60.5, "01:00"},  {61.5, "01:02"},
        {89.5, "01:30"},   {119.5, "02:00"},  {125.2, "02:05"}, {599.5, "10:00"},
        {3599.4, "59:59"}, {3600, "60:00"},   {6000, "100:00"}, {32767, "546:07"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.seconds);
        CHECK(timeText(Fixed(100'000), Fixed(row.seconds), true) == row.text);
        CHECK(timeText(Fixed(row.seconds), Fixed(0), false) == std::string("-") + row.text);
    }
}

TEST_CASE("the time to go is the length less the position") {
    CHECK(timeText(Fixed(10.0), Fixed(6.6), false) == "-00:03");
    CHECK(timeText(Fixed(200.0), Fixed(200.0), false) == "-00:00");
    CHECK(timeText(Fixed(200.0), Fixed(74.8), false) == "-02:05");
}

TEST_CASE("the time counts down at first, and a click turns it over at the next tick") {
    Player player;
    playOne(player, 200'000);
    tickAt(20'000);
    CHECK(timeNow(player) == "-03:00");
    clickTime(player);
    CHECK(timeNow(player) == "-03:00");
    CHECK(player.frmPlayer().showElapsed);
    tickAt(20'000);
    CHECK(timeNow(player) == "00:20");
    clickTime(player);
    CHECK_FALSE(player.frmPlayer().showElapsed);
    tickAt(20'000);
    CHECK(timeNow(player) == "-03:00");
}

TEST_CASE("the thumb stands at the played share of its travel") {
    struct Row {
        std::int64_t position;
        std::int64_t length;
        std::int64_t offset; ///< ten-thousandths of a twip
    };
    const Row rows[] = {
        {1, 200'000, 161},
        {50'000, 200'000, 8'050'000},
        {100'000, 200'000, 16'100'000},
        {199'999, 200'000, 32'199'839},
        {1000, 3000, 10'733'333},
        {2000, 3000, 21'466'667},
        {1, 32'000'000, 1},
    };
    for (const Row& row : rows) {
        CAPTURE(row.position);
        Player player;
        playOne(player, row.length);
        tickAt(row.position);
        const double left = 240 + static_cast<double>(row.offset) / 10000;
        CHECK(player.frmPlayer().seekOffset.units() == row.offset);
        CHECK(player.frmPlayer().pctprogressbar.Left() == static_cast<float>(left));
        CHECK(player.frmPlayer().pctprogressbardown.Left() == static_cast<float>(left));
        CHECK(player.frmPlayer().pctprogressbar.Top() == 480);
    }
}

TEST_CASE("a share that hasn't grown leaves the thumb where it is, wherever that be") {
    Player player;
    playOne(player, 200'000);
    tickAt(100'000);
    player.frmPlayer().pctprogressbar.Left(1000);
    tickAt(100'000);
    tickAt(90'000);
    CHECK(player.frmPlayer().pctprogressbar.Left() == 1000);
    CHECK(player.frmPlayer().seekOffset == 1610);
    tickAt(110'000);
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240 + 1771);
}

TEST_CASE("after a seek the first larger share takes the thumb, whatever the seek left") {
    Player player;
    playOne(player, 200'000);
    player.frmPlayer().pctprogressbar.Left(3000);
    player.frmPlayer().seekOffset = 100;
    tickAt(20'000);
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240 + 322);
    player.frmPlayer().seekOffset = 2000;
    player.frmPlayer().pctprogressbar.Left(500);
    tickAt(100'000);
    CHECK(player.frmPlayer().pctprogressbar.Left() == 500);
    tickAt(150'000);
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240 + 2415);
}

TEST_CASE("a distance larger than the track's share leaves the thumb until the track catches up") {
    Player player;
    playOne(player, 200'000);
    world.media.reportPosition(10'000);
    FrmPlayer& form = player.frmPlayer();
    form.seekOffset = 1000;
    form.pctprogressbar.Left(2000);
    simulated::advance(966);
    CHECK(form.pctprogressbar.Left() == 2000);
    CHECK(form.seekOffset == 1000);
    world.media.reportPosition(70'000);
    simulated::advance(966);
    CHECK(form.pctprogressbar.Left() == 1367);
}

TEST_CASE("pausing freezes the texts and the thumb, and the paused word stays") {
    Player player;
    playOne(player, 200'000);
    tickAt(20'000);
    pauseByKey(player);
    const auto left = player.frmPlayer().pctprogressbar.Left();
    simulated::advance(20 * tick);
    CHECK(statusText(player) == "Paused");
    CHECK(counter(player) == "20 / 200");
    CHECK(timeNow(player) == "-03:00");
    CHECK(player.frmPlayer().pctprogressbar.Left() == left);
    CHECK(player.status() == "Paused");
}

TEST_CASE("queries that fail show as 0, and when both fail the track counts as ended") {
    Player player;
    player.play({A, B});
    world.media.fail("status", 263, 4);
    simulated::advance(tick);
    CHECK(counter(player) == "0 / 0");
    CHECK(player.frmPlayer().trackLengthSeconds == Fixed(-0.001));
    CHECK(player.list().ListIndex() == 1);
    CHECK(world.media.openPath() == B);
}

TEST_CASE("a failed position alone is no end and moves nothing") {
    Player player;
    playOne(player, 200'000);
    tickAt(100'000);
    world.media.fail("status mpeg position", 263, 2);
    simulated::advance(tick);
    CHECK(counter(player) == "0 / 200");
    CHECK(timeNow(player) == "-03:20");
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240 + 1610);
    CHECK(player.status() == "Playing");
}

TEST_CASE("a length of nothing while playing is the fatal end") {
    Player player;
    playOne(player, 200'000);
    for (int i = 0; i < 2; ++i)
        world.media.answer("status mpeg length", "0");
    const auto message = fatalMessageOf([] { tickAt(500); });
    REQUIRE(message);
    CHECK(*message == "Run-time error 11: Division by zero");
    // The time stands there by then.
    CHECK(player.frmPlayer().lblTimenow.Caption() == "-00:00");
}

TEST_CASE("a length and a position of nothing while playing are the fatal end") {
    Player player;
    playOne(player, 200'000);
    for (int i = 0; i < 2; ++i)
        world.media.answer("status mpeg length", "0");
    const auto message = fatalMessageOf([] { tickAt(0); });
    REQUIRE(message);
    CHECK(*message == "Run-time error 6: Overflow");
}

TEST_CASE("a track of more whole seconds than 16 bits hold is the fatal end") {
    Player player;
    playOne(player, 32'767'501);
    const auto message = fatalMessageOf([] { tickAt(0); });
    REQUIRE(message);
    CHECK(*message == "Run-time error 6: Overflow");
}

TEST_CASE("no tick runs behind the fatal message") {
    Player player;
    playOne(player, 32'767'501);
    world.messages.whileOpen([] { simulated::advance(10 * tick); });
    CHECK(fatalMessageOf([] { simulated::advance(tick); }));
    CHECK(commandsSent().size() == 3);
}

TEST_CASE("a click on the time flips it at the next tick and not before") {
    Player player;
    player.play({A, B});
    FrmPlayer& form = player.frmPlayer();
    simulated::advance(966);
    const std::string remaining = form.lblTimenow.Caption();
    CHECK(remaining == "-03:19");
    player.click(form.lblTimenow);
    CHECK(form.showElapsed);
    simulated::advance(965);
    CHECK(form.lblTimenow.Caption() == remaining);
    simulated::advance(1);
    CHECK(form.lblTimenow.Caption() == "00:02");
    player.click(form.lblTimenow, PointerButton::Right);
    CHECK_FALSE(form.showElapsed);
    CHECK(form.lblTimenow.Caption() == "00:02");
    simulated::advance(966);
    CHECK(form.lblTimenow.Caption() == "-03:17");
}

TEST_CASE("a click on the time between two ticks waits for the one that is due, and asks nothing") {
    Player player;
    player.play({A});
    simulated::advance(966 + 400);
    commandsSent();
    clickTime(player);
    CHECK(commandsSent().empty());
    CHECK(timeNow(player) == "-03:19");
    simulated::advance(565);
    CHECK(timeNow(player) == "-03:19");
    simulated::advance(1);
    CHECK(timeNow(player) == "00:02");
}

TEST_CASE("a click on the time counts while nothing plays and in a pause too") {
    Player player;
    player.start();
    player.addTracks({A});
    clickTime(player);
    CHECK(player.frmPlayer().showElapsed);
    CHECK(timeNow(player).empty());
    player.list().ListIndex(0);
    player.frmPlayer().startfile();
    simulated::advance(966);
    CHECK(timeNow(player) == "00:01");
    player.click(player.frmPlayer().pctpause);
    clickTime(player);
    CHECK_FALSE(player.frmPlayer().showElapsed);
    simulated::advance(966);
    CHECK(timeNow(player) == "00:01");
}

TEST_CASE("a press on the time that slides off it is no click") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    player.press(form.lblTimenow);
    behaviour::releaseFarAway();
    CHECK_FALSE(form.showElapsed);
}
