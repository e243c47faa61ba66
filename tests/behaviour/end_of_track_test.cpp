#include "tests/behaviour/ticks.h"

#include <string>
#include <vector>

using namespace behaviour;
using simulated::world;

namespace {

using Commands = std::vector<std::string>;

} // namespace

TEST_CASE("pausing before the first tick of a run counts as the end of the track") {
    Player player;
    playOne(player, 200'000);
    pauseByKey(player);
    REQUIRE(player.status() == "Paused");
    simulated::advance(tick);
    CHECK(player.frmPlayer().pctprogressbar.Left() == 3460);
    CHECK(player.status() == "Idle");
    CHECK_FALSE(world.media.open());
    CHECK(player.frmPlayer().trackPositionSeconds == 1);
}

TEST_CASE("pausing before the first tick with tracks to come starts the next one") {
    Player player;
    player.play({A, B});
    pauseByKey(player);
    simulated::advance(tick);
    CHECK(world.media.openPath() == B);
    CHECK(player.status() == "Playing");
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("paused before its first tick, a track that followed another is taken for ended too") {
    Player player;
    playShortTracks(player, 0);
    simulated::advance(3 * tick);
    REQUIRE(world.media.openPath() == B);
    // Length and position are still those of the track before, 2 seconds both.
    pauseByKey(player);
    world.media.forgetCommands();
    simulated::advance(tick);
    const Commands sent = commandsSent();
    REQUIRE(sent.size() == 6);
    CHECK(sent[0] == "Stop mpeg");
    CHECK(sent[1] == "Close mpeg");
    CHECK(world.media.openPath() == C);
    CHECK(player.list().ListIndex() == 2);
    CHECK(player.status() == "Playing");
    pauseByKey(player);
    simulated::advance(tick);
    CHECK(player.status() == "Idle");
    CHECK_FALSE(world.media.open());
    CHECK(player.frmPlayer().pctprogressbar.Left() == 3460);
    CHECK(player.frmPlayer().pctprogressbardown.Left() == 3460);
}

TEST_CASE("at the end of the last entry without repeat play stops, shuffle or not") {
    for (const int shuffle : {0, -1}) {
        CAPTURE(shuffle);
        Player player;
        playShortTracks(player, 2);
        player.frmPlayer().shuffleOn = shuffle;
        simulated::advance(2 * tick);
        world.media.forgetCommands();
        simulated::advance(tick);
        const Commands sent = commandsSent();
        REQUIRE(sent.size() == 8);
        CHECK(sent[6] == "Stop mpeg");
        CHECK(sent[7] == "Close mpeg");
        CHECK(player.status() == "Idle");
        CHECK(player.list().ListIndex() == 2);
        CHECK_FALSE(player.frmPlayer().lblTimenow.Visible());
        CHECK_FALSE(player.frmPlayer().pctprogressbar.Visible());
        CHECK(player.frmPlayer().pctprogressbar.Left() == 3460);
        CHECK(player.frmPlayer().pctprogressbardown.Left() == 3460);
        CHECK(statusText(player).empty());
        CHECK(counter(player).empty());
        CHECK(player.frmPlayer().trackLengthSeconds == 2);
        CHECK(player.frmPlayer().trackPositionSeconds == 3);
    }
}

TEST_CASE(
    "after a natural stop the next tick shows idle, the counter stays empty, no end follows") {
    Player player;
    playShortTracks(player, 2);
    simulated::advance(3 * tick);
    REQUIRE(player.status() == "Idle");
    world.media.forgetCommands();
    simulated::advance(20 * tick);
    CHECK(statusText(player) == "Idle");
    CHECK(counter(player).empty());
    CHECK(commandsSent().empty());
    CHECK(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("at the end of the last of several with repeat the first starts, shuffle or not") {
    for (const int shuffle : {0, -1}) {
        CAPTURE(shuffle);
        Player player;
        playShortTracks(player, 2);
        player.frmPlayer().repeatOn = true;
        player.frmPlayer().shuffleOn = shuffle;
        simulated::advance(3 * tick);
        CHECK(player.list().ListIndex() == 0);
        CHECK(world.media.openPath() == A);
        CHECK(player.status() == "Playing");
        CHECK(player.frmPlayer().pctprogressbar.Left() == 240);
        CHECK(player.frmPlayer().seekOffset == 0);
    }
}

TEST_CASE("at the end of the only entry with repeat the track restarts, shuffle or not") {
    for (const int shuffle : {0, -1}) {
        CAPTURE(shuffle);
        Player player;
        playOne(player, 2000);
        player.frmPlayer().repeatOn = true;
        player.frmPlayer().shuffleOn = shuffle;
        simulated::advance(3 * tick);
        CHECK(world.media.openPath() == A);
        CHECK(world.media.position() == 1);
        CHECK(player.status() == "Playing");
    }
}

TEST_CASE("at the end of the only entry without repeat play stops, though next would restart it") {
    Player player;
    playOne(player, 2000);
    simulated::advance(3 * tick);
    CHECK(player.status() == "Idle");
}

TEST_CASE("at the end of another entry without shuffle the next one starts, repeat or not") {
    for (const int repeat : {0, -1}) {
        CAPTURE(repeat);
        Player player;
        playShortTracks(player, 0);
        player.frmPlayer().repeatOn = repeat;
        simulated::advance(3 * tick);
        CHECK(player.list().ListIndex() == 1);
        CHECK(world.media.openPath() == B);
        CHECK(player.status() == "Playing");
    }
}

TEST_CASE("at the end of another entry with shuffle a drawn one starts, repeat or not") {
    for (const int repeat : {0, -1}) {
        CAPTURE(repeat);
        bool drawn[3] = {};
        Player player;
        playShortTracks(player, 0);
        player.frmPlayer().repeatOn = repeat;
        player.frmPlayer().shuffleOn = true;
        for (int i = 0; i < 30; ++i) {
            player.list().ListIndex(0);
            player.frmPlayer().startfile();
            simulated::advance(4 * tick);
            REQUIRE(player.status() == "Playing");
            drawn[player.list().ListIndex().value()] = true;
        }
        CHECK(drawn[0]);
        CHECK(drawn[1]);
        CHECK(drawn[2]);
    }
}

TEST_CASE("at the end of a track without selection the first entry starts") {
    for (const int repeat : {0, -1}) {
        CAPTURE(repeat);
        Player player;
        playShortTracks(player, 1);
        player.list().ListIndex(-1);
        player.frmPlayer().repeatOn = repeat;
        simulated::advance(3 * tick);
        CHECK(player.list().ListIndex() == 0);
        CHECK(world.media.openPath() == A);
    }
}

TEST_CASE("at the end of a track the selection counts, not the track that sounded") {
    Player player;
    playShortTracks(player, 0);
    player.list().ListIndex(1);
    simulated::advance(3 * tick);
    CHECK(player.list().ListIndex() == 2);
    CHECK(world.media.openPath() == C);
}

TEST_CASE("a track that ends over an emptied list stops without repeat") {
    Player player;
    playShortTracks(player, 0);
    player.frmPlayer().clearall();
    simulated::advance(3 * tick);
    CHECK(player.status() == "Idle");
    CHECK_FALSE(world.media.open());
}

TEST_CASE("a track that ends over an emptied list with repeat ends anew at each tick") {
    Player player;
    playShortTracks(player, 0);
    player.frmPlayer().repeatOn = true;
    player.frmPlayer().clearall();
    simulated::advance(2 * tick);
    for (int i = 0; i < 3; ++i) {
        player.frmPlayer().pctprogressbar.Left(1000);
        simulated::advance(tick);
        CHECK(player.frmPlayer().pctprogressbar.Left() == 3460);
        CHECK(player.status() == "Playing");
        CHECK(world.media.open());
    }
}

TEST_CASE("a position one thousandth short of the length is no end") {
    Player player;
    playOne(player, 2000);
    tickAt(1999);
    tickAt(1999);
    CHECK(player.status() == "Playing");
    tickAt(2000);
    CHECK(player.status() == "Idle");
}

TEST_CASE("a position above the length is no end") {
    Player player;
    playOne(player, 2000);
    tickAt(2001);
    CHECK(player.status() == "Playing");
    tickAt(2500);
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlayer().pctprogressbar.Visible());
}

TEST_CASE("a device that never quite reaches its length never ends the track") {
    Player player;
    playShortTracks(player, 0);
    world.media.reportPosition(1999);
    simulated::advance(3'600'000);
    CHECK(player.status() == "Playing");
    CHECK(player.list().ListIndex() == 0);
    CHECK(world.media.openPath() == A);
}

TEST_CASE("paused before its first tick, a track started after a natural stop is not at its end") {
    Player player;
    playShortTracks(player, 2);
    simulated::advance(3 * tick);
    REQUIRE(player.status() == "Idle");
    player.click(player.frmPlayer().pctPlay);
    pauseByKey(player);
    REQUIRE(player.status() == "Paused");
    // The values are those of the track before, its position one second past its length.
    simulated::advance(3 * tick);
    CHECK(player.status() == "Paused");
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240);
}

TEST_CASE("a whole list plays through, one entry after the other, and stops") {
    Player player;
    playShortTracks(player, 0);
    std::vector<std::string> opened;
    for (int i = 0; i < 20; ++i) {
        if (world.media.open() && (opened.empty() || opened.back() != world.media.openPath()))
            opened.push_back(world.media.openPath());
        simulated::advance(tick);
    }
    CHECK(opened == std::vector<std::string>{A, B, C});
    CHECK(player.status() == "Idle");
}
