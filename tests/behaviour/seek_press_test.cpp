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
