#include "tests/behaviour/player.h"

#include <cstdint>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::Player;
using simulated::world;

TEST_CASE("the pointer's place at a press of the seek thumb is that before the length is asked") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    world.watch = [](const std::string& note) {
        if (note == "send status mpeg length") world.desktop.cursor.x += 50;
    };
    player.press(player.frmPlayer().pctprogressbar);
    world.watch = nullptr;
    CHECK(player.program().dragCursorStart.x == world.desktop.cursor.x - 50);
    simulated::release();
}

TEST_CASE("a released seek thumb starts the tick again once the device has been sent there") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    simulated::advance(5000);
    FrmPlayer& form = player.frmPlayer();
    player.press(form.pctprogressbar);
    bool sent = false;
    world.watch = [&](const std::string& note) {
        if (!note.starts_with("send seek ")) return;
        sent = true;
        CHECK_FALSE(form.Timer1.Enabled());
    };
    simulated::release();
    world.watch = nullptr;
    CHECK(sent);
    CHECK(form.Timer1.Enabled());
}

TEST_CASE("a pressed seek thumb stops the tick, asks for the place, and is held from then on") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    FrmPlayer& form = player.frmPlayer();
    int questions = 0;
    world.watch = [&](const std::string& note) {
        if (note != "send status mpeg position" || ++questions > 1) return;
        CHECK_FALSE(form.Timer1.Enabled());
        CHECK_FALSE(form.mouseHeld);
    };
    player.press(form.pctprogressbar);
    world.watch = nullptr;
    CHECK(questions > 0);
    CHECK(form.mouseHeld);
    simulated::release();
}

TEST_CASE("a drag past the end of the last track goes by the rules of next, and the tick runs on") {
    struct Row {
        std::vector<std::string> tracks;
        bool repeat;
        const char* starts; ///< nothing where what plays goes on
    };
    const Row rows[] = {
        {{"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"}, false, nullptr},
        {{"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"}, true, "C:\\Music\\a.mp3"},
        {{"C:\\Music\\a.mp3"}, false, "C:\\Music\\a.mp3"},
        {{"C:\\Music\\a.mp3"}, true, "C:\\Music\\a.mp3"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.tracks.size());
        CAPTURE(row.repeat);
        Player player;
        player.play(row.tracks);
        FrmPlayer& form = player.frmPlayer();
        if (row.tracks.size() == 2) player.click(form.pctnext);
        if (row.repeat) player.click(form.lblRepeat);
        world.media.reportPosition(150'000);
        simulated::advance(966);
        player.press(form.pctprogressbar);
        for (int pixels = 20; pixels <= 120; pixels += 20)
            player.moveFrom(form.pctprogressbar, 20);
        REQUIRE(form.pctprogressbar.Left() > 3460);
        commandsSent();
        simulated::release();
        const std::vector<std::string> sent = commandsSent();
        if (row.starts == nullptr) {
            CHECK(sent.empty());
            CHECK(world.media.openPath() == row.tracks.back());
        } else {
            CHECK(sent.at(0) == "Stop mpeg");
            CHECK(sent.back() == "play mpeg from 1 to 200000");
            CHECK(world.media.openPath() == row.starts);
            CHECK(form.pctprogressbar.Left() == 240);
        }
        CHECK(player.status() == "Playing");
        CHECK(form.Timer1.Enabled());
    }
}

TEST_CASE(
    "the thumb as it lies at the first start can be pressed and let go, and nothing is heard") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    REQUIRE(form.pctprogressbar.Left() == 240);
    REQUIRE_FALSE(form.Timer1.Enabled());
    player.click(form.pctprogressbar);
    CHECK(commandsSent() == std::vector<std::string>{"status mpeg position",
                                                     "set mpeg time format frames",
                                                     "status mpeg length", "status mpeg position",
                                                     "seek mpeg to 0", "Play mpeg"});
    CHECK(form.Timer1.Enabled());
    CHECK(form.pctprogressbar.Visible());
    CHECK(form.pctprogressbar.Left() == 240);
    CHECK(player.status() == "Idle");
    CHECK_FALSE(world.media.playing());
    CHECK(world.messages.shown.empty());
    simulated::advance(966);
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Idle");
}

TEST_CASE("a thumb held for a while and not moved takes the track back by as long") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    simulated::advance(50 * 966);
    const std::int64_t pressed = world.media.position();
    player.press(player.frmPlayer().pctprogressbar);
    simulated::advance(3000);
    REQUIRE(world.media.position() == pressed + 3000);
    simulated::release();
    CHECK(world.media.position() == pressed);
    CHECK(world.media.playing());
}
