#include "tests/behaviour/three_tracks.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::Player;
using simulated::world;
using namespace behaviour::three;
using toolkit::LightBlue;
using toolkit::Yellow;

namespace {

void clickRepeat(Player& player) { player.click(player.frmPlayer().lblRepeat); }
void clickShuffle(Player& player) { player.click(player.frmPlayer().lblShuffle); }

/// Where the selection stands after each of so many presses of next, from the first entry anew
/// whenever it has come to the last.
std::vector<int> walkOf(Player& player, int presses) {
    std::vector<int> walk;
    const int last = player.list().ListCount().value() - 1;
    for (int i = 0; i < presses; ++i) {
        if (player.list().ListIndex() == last) player.list().ListIndex(0);
        clickNext(player);
        walk.push_back(player.list().ListIndex().value());
    }
    return walk;
}

void startWithTwelveTracks(Player& player) {
    player.play({"C:\\0.mp3", "C:\\1.mp3", "C:\\2.mp3", "C:\\3.mp3", "C:\\4.mp3", "C:\\5.mp3",
                 "C:\\6.mp3", "C:\\7.mp3", "C:\\8.mp3", "C:\\9.mp3", "C:\\10.mp3", "C:\\11.mp3"});
}

} // namespace

TEST_CASE("next starts the following entry from its beginning") {
    ThreeTracks three(0);
    clickNext(three.player);
    CHECK(three.index() == 1);
    CHECK(world.media.openPath() == B);
    CHECK(three.player.status() == "Playing");
    CHECK(world.media.position() == 1);
}

TEST_CASE("next on an empty list does nothing") {
    Player player;
    player.start();
    clickNext(player);
    CHECK(commandsSent().empty());
    CHECK(world.dialogs.opened.empty());
    CHECK_FALSE(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("next on an empty list still stops what is paused") {
    ThreeTracks three(0);
    pauseInBothWindows(three.player);
    three.form().clearall();
    clickNext(three.player);
    CHECK(commandsSent() == stopAndClose);
    CHECK(three.player.status() == "Idle");
    CHECK(pauseKeysAreUp(three.player));
}

TEST_CASE("next and previous on an emptied list leave the sound alone, whatever the switches") {
    for (const int repeat : {0, -1})
        for (const int shuffle : {0, -1})
            for (const bool next : {true, false}) {
                CAPTURE(repeat);
                CAPTURE(shuffle);
                CAPTURE(next);
                ThreeTracks three(0);
                three.form().repeatOn = repeat;
                three.form().shuffleOn = shuffle;
                three.form().clearall();
                next ? clickNext(three.player) : clickPrevious(three.player);
                CHECK(commandsSent().empty());
                CHECK(world.dialogs.opened.empty());
                CHECK(three.index() == -1);
                CHECK(three.player.status() == "Playing");
                CHECK(world.media.openPath() == A);
            }
}

TEST_CASE("next restarts a single track whatever the switches say") {
    for (const int repeat : {0, -1})
        for (const int shuffle : {0, -1}) {
            CAPTURE(repeat);
            CAPTURE(shuffle);
            Player player;
            player.play({A});
            player.frmPlayer().repeatOn = repeat;
            player.frmPlayer().shuffleOn = shuffle;
            simulated::advance(5000);
            clickNext(player);
            CHECK(player.list().ListIndex() == 0);
            CHECK(player.status() == "Playing");
            CHECK(world.media.position() == 1);
        }
}

TEST_CASE("next with a single track that is not selected stays quiet") {
    Player player;
    player.start();
    player.addTracks({A});
    clickNext(player);
    CHECK(player.list().ListIndex() == -1);
    CHECK(player.status() == "Idle");
    CHECK(world.messages.shown.empty());
}

TEST_CASE("next on the last entry without repeat leaves the playing track alone") {
    for (const int shuffle : {0, -1}) {
        CAPTURE(shuffle);
        ThreeTracks three(2);
        three.form().shuffleOn = shuffle;
        clickNext(three.player);
        CHECK(commandsSent().empty());
        CHECK(three.index() == 2);
        CHECK(world.media.playing());
    }
}

TEST_CASE("next on the last entry without repeat stops a paused track and starts nothing") {
    ThreeTracks three(2);
    pauseInBothWindows(three.player);
    clickNext(three.player);
    CHECK(commandsSent() == stopAndClose);
    CHECK(three.player.status() == "Idle");
    CHECK(three.index() == 2);
    CHECK(pauseKeysAreUp(three.player));
}

TEST_CASE("next on the last entry with repeat starts the first, shuffle or not") {
    for (const int shuffle : {0, -1}) {
        CAPTURE(shuffle);
        ThreeTracks three(2);
        three.form().repeatOn = true;
        three.form().shuffleOn = shuffle;
        clickNext(three.player);
        CHECK(three.index() == 0);
        CHECK(world.media.openPath() == A);
    }
}

TEST_CASE("next with entries and none selected starts the first") {
    Player player;
    player.start();
    player.addTracks({A, B});
    clickNext(player);
    CHECK(player.list().ListIndex() == 0);
    CHECK(world.media.openPath() == A);
}

TEST_CASE("next stops and closes a paused track and starts the following one") {
    ThreeTracks three(0);
    pauseInBothWindows(three.player);
    clickNext(three.player);
    const Commands sent = commandsSent();
    REQUIRE(sent.size() == 6);
    CHECK(sent[0] == "Stop mpeg");
    CHECK(sent[1] == "Close mpeg");
    CHECK(sent[2].starts_with("open "));
    CHECK(sent[5] == "play mpeg from 1 to 200000");
    CHECK(world.media.openPath() == B);
    CHECK(pauseKeysAreUp(three.player));
}

TEST_CASE("next while paused and the stop fails resumes the old track under the new selection") {
    ThreeTracks three(0);
    pauseInBothWindows(three.player);
    world.media.fail("stop");
    clickNext(three.player);
    CHECK(commandsSent() == Commands{"Stop mpeg", "Resume mpeg"});
    CHECK(three.index() == 1);
    CHECK(world.media.openPath() == A);
}

TEST_CASE("shuffle picks each of two tracks as often, the present one and the last included") {
    Player player;
    player.play({A, B});
    player.frmPlayer().shuffleOn = true;
    int picks[2] = {};
    for (const int index : walkOf(player, 4000))
        ++picks[index];
    // 2000 each are expected; 100 are more than three deviations.
    CHECK(picks[0] > 1900);
    CHECK(picks[1] > 1900);
    CHECK(player.status() == "Playing");
}

TEST_CASE("a shuffle that picks the present track starts it over") {
    Player player;
    player.play({A, B});
    player.frmPlayer().shuffleOn = true;
    int same = 0;
    for (int i = 0; i < 40; ++i) {
        player.list().ListIndex(0);
        player.frmPlayer().startfile();
        simulated::advance(5000);
        clickNext(player);
        same += player.list().ListIndex() == 0 ? 1 : 0;
        CHECK(world.media.openPath() == (player.list().ListIndex() == 0 ? A : B));
        CHECK(world.media.position() == 1);
        CHECK(player.status() == "Playing");
    }
    CHECK(same > 5);
}

TEST_CASE("shuffle reaches every track of a long list") {
    Player player;
    startWithTwelveTracks(player);
    player.frmPlayer().shuffleOn = true;
    std::vector<int> picks(12);
    for (const int index : walkOf(player, 6000))
        ++picks[static_cast<std::size_t>(index)];
    // 500 each are expected; 100 are more than four deviations.
    for (const int count : picks) {
        CHECK(count > 400);
        CHECK(count < 600);
    }
}

TEST_CASE("shuffle draws over the tracks counted, not over the rows shown") {
    ThreeTracks three(0);
    three.form().shuffleOn = true;
    three.form().trackCount = 1;
    for (int i = 0; i < 20; ++i) {
        clickNext(three.player);
        CHECK(three.index() == 0);
    }
}

TEST_CASE("two runs of the program shuffle alike") {
    std::vector<std::vector<int>> walks;
    for (int run = 0; run < 2; ++run) {
        Player player;
        simulated::setTimeOfDay(7 + run, 30, 0);
        simulated::advance(static_cast<std::uint64_t>(run) * 1234);
        startWithTwelveTracks(player);
        clickShuffle(player);
        walks.push_back(walkOf(player, 40));
    }
    CHECK(walks[0] == walks[1]);
    // And like every other: the source's first draws, of twelve tracks.
    CHECK(std::vector<int>(walks[0].begin(), walks[0].begin() + 5) ==
          std::vector<int>{9, 1, 10, 10, 1});
    bool inOrder = true;
    for (std::size_t i = 1; i < walks[0].size(); ++i)
        inOrder = inOrder && walks[0][i] == walks[0][i - 1] + 1;
    CHECK_FALSE(inOrder);
}

TEST_CASE("nothing is drawn at the end of the list") {
    // The draw after a wrap is the first of the run, so both players pick alike.
    ThreeTracks plain(0);
    plain.form().shuffleOn = true;
    clickNext(plain.player);
    const int firstPick = plain.index();

    ThreeTracks wrapped(2);
    wrapped.form().shuffleOn = true;
    wrapped.form().repeatOn = true;
    clickNext(wrapped.player);
    REQUIRE(wrapped.index() == 0);
    clickNext(wrapped.player);
    CHECK(wrapped.index() == firstPick);
}

TEST_CASE("nothing is drawn while shuffle is off") {
    // The draw after a walk in order is the first of the run, so both players pick alike.
    Player plain;
    startWithTwelveTracks(plain);
    clickShuffle(plain);
    clickNext(plain);
    const int firstPick = plain.list().ListIndex().value();

    Player walked;
    startWithTwelveTracks(walked);
    for (int i = 0; i < 5; ++i)
        clickNext(walked);
    REQUIRE(walked.list().ListIndex() == 5);
    clickShuffle(walked);
    clickNext(walked);
    CHECK(walked.list().ListIndex() == firstPick);
}

TEST_CASE("next and previous restart a single track that is paused from its beginning") {
    for (const bool next : {true, false}) {
        CAPTURE(next);
        Player player;
        player.play({A});
        simulated::advance(5000);
        pauseInBothWindows(player);
        next ? clickNext(player) : clickPrevious(player);
        const Commands sent = commandsSent();
        REQUIRE(sent.size() == 6);
        CHECK(sent[0] == "Stop mpeg");
        CHECK(sent[1] == "Close mpeg");
        CHECK(sent[2].starts_with("open "));
        CHECK(sent[5] == "play mpeg from 1 to 200000");
        CHECK(pauseKeysAreUp(player));
    }
}

TEST_CASE("next and previous lift the pause keys even if the stop fails") {
    for (const bool next : {true, false}) {
        CAPTURE(next);
        ThreeTracks three(2);
        pauseInBothWindows(three.player);
        if (!next) three.player.list().ListIndex(-1);
        world.media.fail("stop");
        next ? clickNext(three.player) : clickPrevious(three.player);
        CHECK(commandsSent() == Commands{"Stop mpeg"});
        CHECK(three.player.status() == "Paused");
        CHECK(pauseKeysAreUp(three.player));
    }
}

TEST_CASE("previous with a single track that is not selected starts nothing, not even the clock") {
    Player player;
    player.start();
    player.addTracks({A});
    clickPrevious(player);
    CHECK(player.list().ListIndex() == -1);
    CHECK(commandsSent().empty());
    CHECK_FALSE(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("previous walks backwards and wraps from the first to the last, whatever the switches") {
    for (const int flag : {0, -1}) {
        CAPTURE(flag);
        ThreeTracks three(1);
        three.form().repeatOn = flag;
        three.form().shuffleOn = flag;
        clickPrevious(three.player);
        CHECK(three.index() == 0);
        CHECK(world.media.openPath() == A);
        clickPrevious(three.player);
        CHECK(three.index() == 2);
        CHECK(world.media.openPath() == C);
    }
}

TEST_CASE("previous restarts a single track") {
    Player player;
    player.play({A});
    simulated::advance(5000);
    clickPrevious(player);
    CHECK(world.media.openPath() == A);
    CHECK(world.media.position() == 1);
}

TEST_CASE("previous with nothing selected does nothing but stop a paused track") {
    Player idle;
    idle.start();
    idle.addTracks({A, B});
    clickPrevious(idle);
    CHECK(commandsSent().empty());
    CHECK(idle.list().ListIndex() == -1);

    ThreeTracks paused(1);
    pauseInBothWindows(paused.player);
    paused.player.list().ListIndex(-1);
    clickPrevious(paused.player);
    CHECK(commandsSent() == stopAndClose);
    CHECK(paused.player.status() == "Idle");
    CHECK(pauseKeysAreUp(paused.player));
}

TEST_CASE("the switches start off, in yellow, and a click turns each on and off") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    CHECK(form.lblRepeat.ForeColor() == Yellow);
    CHECK(form.lblShuffle.ForeColor() == Yellow);
    CHECK(static_cast<std::uint32_t>(Yellow) == 0x00FFFFU);
    CHECK(static_cast<std::uint32_t>(LightBlue) == 0xFF8080U);
    clickRepeat(player);
    CHECK(form.repeatOn);
    CHECK_FALSE(form.shuffleOn);
    CHECK(form.lblRepeat.ForeColor() == LightBlue);
    CHECK(form.lblShuffle.ForeColor() == Yellow);
    clickShuffle(player);
    clickRepeat(player);
    CHECK_FALSE(form.repeatOn);
    CHECK(form.shuffleOn);
    CHECK(form.lblRepeat.ForeColor() == Yellow);
    CHECK(form.lblShuffle.ForeColor() == LightBlue);
    clickShuffle(player);
    CHECK_FALSE(form.shuffleOn);
}

TEST_CASE("a switch leaves the playing track alone") {
    ThreeTracks three(0);
    clickRepeat(three.player);
    clickShuffle(three.player);
    CHECK(commandsSent().empty());
    CHECK(three.player.status() == "Playing");
}
