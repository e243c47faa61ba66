#include "tests/behaviour/ticks.h"

#include <string>

using namespace behaviour;
using simulated::world;

TEST_CASE("the clock ticks while a menu is open") {
    Player player;
    playOne(player, 200'000);
    world.menus.dismiss([&] {
        simulated::advance(30'000);
        CHECK(counter(player) == "30 / 200");
    });
    world.tray.clickRight();
    CHECK(world.menus.shown.size() == 1);
    CHECK(counter(player) == "30 / 200");
}

TEST_CASE("the clock ticks while the open dialog and the folder dialog are open") {
    Player player;
    playOne(player, 200'000);
    world.dialogs.cancelFiles([] { simulated::advance(30'000); });
    player.frmPlayer().openfiles();
    CHECK(counter(player) == "30 / 200");
    world.dialogs.cancelFolder([] { simulated::advance(30'000); });
    player.frmPlayer().opendir();
    CHECK(counter(player) == "60 / 200");
}

TEST_CASE("the clock ticks behind a message box that a tick itself has brought up") {
    Player player;
    playShortTracks(player, 0);
    // The next track's length overflows, which the start tells in a message.
    simulated::advance(2 * tick);
    world.media.addFile(B, 200'000);
    std::string behind;
    world.messages.whileOpen([&] {
        simulated::advance(5 * tick);
        behind = statusText(player);
    });
    simulated::after(tick - 1, [] {
        for (int i = 0; i < 2; ++i)
            world.media.answer("status mpeg length", "2000");
        world.media.answer("status mpeg length", "99999999999");
    });
    simulated::advance(tick);
    REQUIRE(world.messages.shown.size() == 1);
    CHECK(world.messages.shown[0].text == "Error: 6. Overflow");
    CHECK(behind == "Idle");
}

TEST_CASE("the clock ticks inside a yield") {
    Player player;
    playOne(player, 200'000);
    simulated::after(tick, [&] {
        // Longer than a tick in one handler: the tick that is late runs in its yield.
        world.events.now += tick;
        toolkit::yieldToEvents();
        CHECK(counter(player) == "2 / 200");
    });
    simulated::advance(tick);
}

TEST_CASE("ticks that were held up come back as one") {
    Player player;
    playOne(player, 200'000);
    world.events.now += 10 * tick;
    simulated::run();
    CHECK(commandsSent().size() == 6);
}
