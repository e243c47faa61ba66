#include "tests/behaviour/player.h"

#include <string>

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
