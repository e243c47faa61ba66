#include "tests/behaviour/remote.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace behaviour::remote;
using behaviour::commandsSent;
using behaviour::Player;

TEST_CASE("what the desktop is told follows the player") {
    Player player;
    player.start();
    player.addTracks({A, B});
    player.list().ListIndex(0);
    ask(RemoteRequest::Play);
    CHECK(now().status == platform::RemoteStatus::Playing);
    CHECK(now().title == "a.mp3");
    CHECK(now().length == 0);
    const std::uint32_t first = now().track;
    CHECK(first == 1); // it counts the starts

    simulated::advance(966);
    CHECK(now().length == 200'000);
    const std::size_t told = world.remote.told.size();
    simulated::advance(9660);
    CHECK(world.remote.told.size() == told);

    pause(player);
    CHECK(now().status == platform::RemoteStatus::Paused);
    CHECK(now().track == first);
    player.click(player.frmPlayer().pctstop);
    CHECK(now().status == platform::RemoteStatus::Stopped);
    CHECK(now().track == 0);
    CHECK(now().title.empty());
    CHECK(now().length == 0);
    player.click(player.frmPlayer().pctPlay);
    CHECK(now().track == 2);
}

TEST_CASE("the desktop is told of a jump once the device has been sent there") {
    Player player;
    player.play({A});
    simulated::advance(966);
    int looks = 0;
    world.watch = [&](const std::string& note) {
        if (!note.starts_with("send seek ") && note != "send Play mpeg") return;
        ++looks;
        CHECK(world.remote.jumps.empty());
    };
    world.remote.seek(50'000);
    world.watch = nullptr;
    CHECK(looks == 2);
    CHECK(world.remote.jumps.size() == 1);
}

TEST_CASE("the title told is that of what plays, not of what has been selected since") {
    Player player;
    player.play({A, B});
    player.list().ListIndex(1);
    simulated::advance(966);
    CHECK(now().title == "a.mp3");
    pause(player);
    CHECK(now().title == "a.mp3");
    ask(RemoteRequest::Play); // goes on with it, whatever is selected
    CHECK(now().title == "a.mp3");
    player.click(player.frmPlayer().pctPlay);
    CHECK(now().title == "b.mp3");
}

TEST_CASE("a track that ends has the desktop told of the next one") {
    Player player;
    player.play({A, B});
    simulated::advance(966);
    const std::uint32_t first = now().track;
    simulated::advance(202'000);
    CHECK(now().title == "b.mp3");
    CHECK(now().track == first + 1);
    simulated::advance(202'000);
    CHECK(now().status == platform::RemoteStatus::Stopped);
}

TEST_CASE("the length of the track before is told of no other") {
    Player player;
    player.play({A, B});
    simulated::advance(966);
    REQUIRE(now().length == 200'000);
    ask(RemoteRequest::Next);
    CHECK(now().length == 0);
    simulated::advance(966);
    CHECK(now().length == 200'000);
}

TEST_CASE("a file that can't be opened is told as nothing playing") {
    Player player;
    player.play({A, B});
    world.media.fail("open ");
    ask(RemoteRequest::Next);
    CHECK(now().status == platform::RemoteStatus::Stopped);
    CHECK(now().title.empty());
}

TEST_CASE("the desktop knows whether there is a next and a previous track") {
    Player player;
    player.start();
    CHECK_FALSE(now().hasNext);
    CHECK_FALSE(now().hasPrevious);
    player.addTracks({A, B});
    player.hover(player.frmPlayer().pctnext);
    CHECK(now().hasNext);
    CHECK_FALSE(now().hasPrevious);
    ask(RemoteRequest::Next);
    CHECK(now().hasNext);
    CHECK(now().hasPrevious);
    ask(RemoteRequest::Next);
    CHECK_FALSE(now().hasNext);
    CHECK(now().hasPrevious);
    player.click(player.frmPlayer().lblRepeat);
    CHECK(now().hasNext);
}

TEST_CASE("the request that the desktop is told has no next track starts none") {
    for (const Situation& one : situations) {
        CAPTURE(one.name);
        for (const auto& [request, has] :
             {std::pair{RemoteRequest::Next, &platform::RemoteState::hasNext},
              std::pair{RemoteRequest::Previous, &platform::RemoteState::hasPrevious}}) {
            Player player;
            one.bringAbout(player);
            world.remote.setVolume(0.5); // an event, after which all is told
            const bool told = now().*has;
            const std::uint32_t before = world.remote.now().track;
            commandsSent();
            ask(request);
            const Commands sent = commandsSent();
            const bool started =
                std::any_of(sent.begin(), sent.end(), [](const std::string& command) {
                    return command.starts_with("open ");
                });
            CHECK(started == told);
            if (started) CHECK(now().track > before);
        }
    }
}

TEST_CASE("telling the desktop asks the sound device for nothing") {
    Player player;
    player.play({A, B});
    commandsSent();
    const std::size_t told = world.remote.told.size();
    pause(player);
    REQUIRE(world.remote.told.size() == told + 1);
    CHECK(commandsSent() == Commands{"Pause mpeg"});
}

TEST_CASE("the desktop asks for the place in the track when it wants to know it") {
    Player player;
    player.start();
    CHECK(world.remote.position() == 0);
    CHECK(commandsSent().empty());
    player.addTracks({A});
    player.list().ListIndex(0);
    ask(RemoteRequest::Play);
    simulated::advance(5000);
    commandsSent();
    CHECK(world.remote.position() == 5001);
    CHECK(commandsSent() == Commands{"status mpeg position"});
    world.media.fail("status mpeg position");
    CHECK(world.remote.position() == 0);
}

TEST_CASE("a jump that the desktop asks for goes there, thumb and texts with it") {
    Player player;
    player.play({A, B});
    simulated::advance(2000);
    player.frmPlayer().showElapsed = true;
    commandsSent();
    const float before = player.frmPlayer().pctprogressbar.Left();
    world.remote.seek(50'000);
    CHECK(commandsSent() == Commands{"set mpeg time format frames", "status mpeg length",
                                     "seek mpeg to 50000", "Play mpeg",
                                     "set mpeg time format frames", "status mpeg length"});
    CHECK(player.frmPlayer().seekOffset ==
          runtime::Fixed(240.0 + 3220.0 / 4 - static_cast<double>(before)));
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240 + 3220 / 4);
    CHECK(player.frmPlayer().pctprogressbardown.Left() == 240 + 3220 / 4);
    CHECK(player.frmPlayer().lblTimenow.Caption() == "00:50");
    CHECK(player.frmPlaylist().lblTitle.Caption() == "50 / 200");
    CHECK(world.remote.jumps == std::vector<std::int32_t>{50'000});
    simulated::advance(966);
    CHECK(player.frmPlayer().pctprogressbar.Left() > 240 + 3220 / 4);
    world.remote.seek(1000);
    simulated::advance(966);
    CHECK(player.frmPlayer().pctprogressbar.Left() < 300);
    CHECK(world.media.position() == 1966);
    simulated::advance(9660); // the thumb goes along with the track
    CHECK(player.frmPlayer().pctprogressbar.Left() > 390);
}

TEST_CASE("a jump to before the track is one to its start, one beyond its end the next track") {
    Player player;
    player.play({A, B});
    simulated::advance(2000);
    world.remote.seek(-1);
    CHECK(world.media.position() == 0);
    world.remote.seek(200'000);
    CHECK(world.media.openPath() == A);
    CHECK(world.media.position() == 200'000);
    world.remote.seek(200'001);
    CHECK(world.media.openPath() == B);
    simulated::advance(2000);
    commandsSent();
    for (const std::int64_t place :
         {std::int64_t{200'001}, std::int64_t{1} << 32, std::numeric_limits<std::int64_t>::max()}) {
        CAPTURE(place);
        world.remote.seek(place); // the last one plays on
        CHECK(commandsSent() == Commands{"set mpeg time format frames", "status mpeg length"});
        CHECK(player.status() == "Playing");
    }
    world.remote.seek(std::numeric_limits<std::int64_t>::min());
    CHECK(world.media.position() == 0);
}

TEST_CASE("a jump is dead unless a track plays, as the seek bar is") {
    for (const char* name : {"an empty list", "idle", "paused", "paused, then emptied"}) {
        CAPTURE(name);
        const auto jump = [](Player& /*player*/) { world.remote.seek(1000); };
        CHECK(outcomeOf(situation(name), jump) == outcomeOf(situation(name), nothing));
        CHECK(world.remote.jumps.empty());
    }
}

TEST_CASE("a jump in a track whose length can't be read does nothing") {
    Player player;
    player.play({A});
    for (const char* length : {"0", "-1"}) {
        world.media.answer("status mpeg length", length);
        commandsSent();
        world.remote.seek(1000);
        CHECK(commandsSent() == Commands{"set mpeg time format frames", "status mpeg length"});
    }
}

TEST_CASE("a jump by the seek bar is told to the desktop") {
    Player player;
    player.play({A});
    simulated::advance(2000);
    simulated::click(player.mainWindow(), 140, 38);
    REQUIRE(world.remote.jumps.size() == 1);
    CHECK(std::abs(world.remote.jumps[0] - world.media.position()) <= 1);
}

TEST_CASE("the desktop reads the volume off the thumb, and sets thumb and sound") {
    Player player;
    player.start();
    struct Row {
        double asked;
        float left;
        const char* call;
        double told;
    };
    const Row rows[] = {
        {0.5, 2700, "set 0 7E907E90", 0.5},   {0.25, 2550, "set 0 3F483F48", 0.25},
        {1.0, 3000, "set 0 FFFEFFFF", 1.0},   {7.0, 3000, "set 0 FFFEFFFF", 1.0},
        {0.0, 2400, "set 0 00000000", 0.0},   {-1.0, 2400, "set 0 00000000", 0.0},
        {0.75, 2850, "set 0 BDD8BDDA", 0.75},
    };
    for (const Row& row : rows) {
        CAPTURE(row.asked);
        world.remote.setVolume(row.asked);
        CHECK(player.frmPlayer().pctvolume.Left() == row.left);
        CHECK(player.frmPlayer().volumeThumbLeft == static_cast<int>(row.left));
        CHECK(world.sound.calls.back() == row.call);
        CHECK(now().volume == row.told);
    }
    world.remote.setVolume(std::numeric_limits<double>::quiet_NaN());
    CHECK(now().volume == 0);
}

TEST_CASE("a drag of the volume thumb is told to the desktop") {
    Player player;
    player.start();
    world.remote.setVolume(1);
    player.press(player.frmPlayer().pctvolume);
    simulated::moveTo(player.mainWindow(), 180, 60);
    simulated::moveTo(player.mainWindow(), 181, 60);
    simulated::release();
    CHECK(now().volume < 0.9);
    CHECK(now().volume > 0);
}
