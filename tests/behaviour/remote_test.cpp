#include "tests/behaviour/remote.h"

#include <functional>
#include <string>

using namespace behaviour::remote;
using behaviour::commandsSent;
using behaviour::endsTheProcess;
using behaviour::Player;

namespace {

/// What the face or the tray menu has for a request, once the player is or isn't playing.
struct Twin {
    std::string name;
    RemoteRequest request;
    std::function<void(Player&)> deed;
};

const Twin twins[] = {
    {"play", RemoteRequest::Play,
     [](Player& player) {
         if (player.status() != "Playing") pickFromTray("Play");
     }},
    {"pause", RemoteRequest::Pause,
     [](Player& player) {
         if (player.status() == "Playing") player.frmPlayer().pctpause_MouseDown();
     }},
    {"play or pause", RemoteRequest::PlayOrPause,
     [](Player& player) {
         if (player.status() == "Playing")
             player.frmPlayer().pctpause_MouseDown();
         else
             pickFromTray("Play");
     }},
    {"stop", RemoteRequest::Stop, [](Player& /*player*/) { pickFromTray("Stop"); }},
    {"next", RemoteRequest::Next, [](Player& /*player*/) { pickFromTray("Next"); }},
    {"previous", RemoteRequest::Previous, [](Player& player) { player.frmPlayer().prevfile(); }},
    {"raise", RemoteRequest::Raise, [](Player& /*player*/) { pickFromTray("Maximized"); }},
};

} // namespace

TEST_CASE("in every state the desktop's requests do what face and tray menu do") {
    for (const Situation& one : situations) {
        for (const Twin& twin : twins) {
            CAPTURE(one.name);
            CAPTURE(twin.name);
            const Outcome asked = outcomeOf(one, [&](Player& /*player*/) { ask(twin.request); });
            const Outcome byHand = outcomeOf(one, twin.deed);
            CHECK(asked.commands == byHand.commands);
            CHECK(asked == byHand);
        }
    }
}

TEST_CASE("a request to play leaves what plays alone") {
    const Outcome asked =
        outcomeOf(situation("playing"), [](Player&) { ask(RemoteRequest::Play); });
    CHECK(asked.commands.empty());
    CHECK(asked == outcomeOf(situation("playing"), nothing));
}

TEST_CASE("a request to pause does nothing unless a track plays") {
    for (const char* name : {"an empty list", "idle", "paused"}) {
        CAPTURE(name);
        const auto pauseAgain = [](Player& /*player*/) { ask(RemoteRequest::Pause); };
        CHECK(outcomeOf(situation(name), pauseAgain) == outcomeOf(situation(name), nothing));
    }
}

TEST_CASE("one request pauses and goes on with a track, by turns") {
    Player player;
    begin(player, 0);
    commandsSent();
    ask(RemoteRequest::PlayOrPause);
    CHECK(player.status() == "Paused");
    CHECK(player.frmPlayer().pctpausedown.Visible());
    ask(RemoteRequest::PlayOrPause);
    CHECK(player.status() == "Playing");
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
    CHECK(commandsSent() == Commands{"Pause mpeg", "Resume mpeg"});
}

TEST_CASE("a request to play an empty list opens the file dialog, and plays what is picked") {
    Player player;
    player.start();
    world.media.addFile(A, 200'000);
    world.dialogs.pickFiles({A});
    ask(RemoteRequest::Play);
    CHECK(world.media.openPath() == A);
    CHECK(player.status() == "Playing");
    CHECK(now().title == "a.mp3");
}

TEST_CASE("requests get through while a dialog, a message or the about box is up") {
    const auto pauseAndGoOn = [] {
        ask(RemoteRequest::Pause);
        CHECK(now().status == platform::RemoteStatus::Paused);
        ask(RemoteRequest::Next);
        CHECK(now().title == "b.mp3");
        CHECK(now().status == platform::RemoteStatus::Playing);
    };
    const std::function<void(Player&)> dialogs[] = {
        [&](Player& player) {
            world.dialogs.cancelFiles(pauseAndGoOn);
            player.frmPlayer().openfiles();
        },
        [&](Player& player) {
            world.dialogs.cancelFolder(pauseAndGoOn);
            player.frmPlayer().opendir();
        },
        [&](Player& /*player*/) {
            world.messages.whileOpen(pauseAndGoOn);
            platform::messageBox("Text", "Title", platform::MessageIcon::None);
        },
        [&](Player& player) {
            world.menus.dismiss(pauseAndGoOn);
            player.click(player.frmPlayer().pctopen);
        },
        [&](Player& /*player*/) {
            simulated::onModalWindow([&] {
                pauseAndGoOn();
                simulated::closeByUser(simulated::windowTitled("About Orvan Music Player"));
            });
            pickFromTray("About");
        },
    };
    for (const auto& dialog : dialogs) {
        Player player;
        player.play({A, B, C});
        dialog(player);
        CHECK(player.list().ListIndex() == 1);
        CHECK(simulated::scriptsLeft() == 0);
    }
}

TEST_CASE("the desktop brings a hidden player back to where it was") {
    Player player;
    player.start();
    const platform::Point place = simulated::window(player.mainWindow()).position;
    player.click(player.frmPlayer().pctminimise);
    ask(RemoteRequest::Raise);
    CHECK(simulated::window(player.mainWindow()).visible);
    CHECK(simulated::window(player.mainWindow()).position == place);
}

TEST_CASE("a player that can't be brought back for the desktop runs on") {
    Player player;
    player.start();
    world.windows.refuseNormalState = true;
    ask(RemoteRequest::Raise);
    CHECK(world.messages.fatal.empty());
    CHECK(player.frmPlayer().window.Visible());
}

TEST_CASE("the desktop ends the player in order, in every state") {
    for (const Situation& one : situations) {
        CAPTURE(one.name);
        Player player;
        one.bringAbout(player);
        CHECK(endsTheProcess([] { ask(RemoteRequest::Quit); }));
        CHECK(world.files.exists("C:\\Orvan\\MyPlayerSettings.mps"));
        CHECK_FALSE(world.media.open());
        CHECK_FALSE(world.tray.icon);
    }
}

TEST_CASE("no request brings back a player that the system has closed under a dialog") {
    for (const RemoteRequest request :
         {RemoteRequest::Play, RemoteRequest::PlayOrPause, RemoteRequest::Stop,
          RemoteRequest::Raise, RemoteRequest::Quit}) {
        CAPTURE(static_cast<int>(request));
        Player player;
        player.play({A, B});
        bool ended = false;
        world.dialogs.cancelFiles([&] {
            simulated::closeByUser(player.mainWindow());
            CHECK(now().status == platform::RemoteStatus::Stopped);
            ended = endsTheProcess([&] { ask(request); });
            CHECK_FALSE(player.frmPlayer().window.loaded());
            CHECK_FALSE(world.media.open());
        });
        player.frmPlayer().openfiles();
        CHECK(ended);
    }
}

TEST_CASE("a closed player asked to pause, seek or tell its place does nothing") {
    Player player;
    player.play({A, B});
    simulated::closeByUser(player.mainWindow());
    commandsSent();
    ask(RemoteRequest::Pause);
    world.remote.seek(1000);
    CHECK(world.remote.position() == 0);
    CHECK(commandsSent().empty());
    CHECK_FALSE(player.frmPlayer().window.loaded());
}

TEST_CASE("the desktop may not ask a second copy for anything") {
    Player player;
    world.desktop.previousInstance = true;
    player.start();
    CHECK_FALSE(world.remote.events);
}

TEST_CASE("a desktop that asks once the player has gone gets no place and starts nothing") {
    platform::RemoteEvents kept;
    {
        Player player;
        player.play({A});
        simulated::advance(5000);
        kept = world.remote.events.value();
        CHECK(kept.position() > 4000);
        world.media.forgetCommands();
    }
    CHECK(kept.position() == 0);
    kept.asked(RemoteRequest::Next);
    kept.seek(1000);
    kept.volume(0.5);
    CHECK(world.media.commands().empty());
}
