#pragma once

#include "tests/behaviour/three_tracks.h"

#include <functional>
#include <string>
#include <vector>

/// What the tests of the desktop's requests share.
namespace behaviour::remote {

using Commands = std::vector<std::string>;
using platform::RemoteRequest;
using simulated::world;
using three::A;
using three::B;
using three::C;

inline void ask(RemoteRequest request) { world.remote.ask(request); }

inline void pickFromTray(const std::string& caption) {
    world.menus.choose(caption);
    world.tray.clickRight();
}

/// What a player can be doing when somebody asks it for something.
struct Situation {
    std::string name;
    std::function<void(Player&)> bringAbout;
};

inline void pause(Player& player) { player.click(player.frmPlayer().pctpause); }

inline void begin(Player& player, int index) {
    player.play({A, B, C});
    player.list().ListIndex(index);
    player.frmPlayer().startfile();
    simulated::advance(2000);
}

inline const Situation situations[] = {
    {"an empty list", [](Player& player) { player.start(); }},
    {"idle, nothing selected",
     [](Player& player) {
         player.start();
         player.addTracks({A, B});
     }},
    {"idle",
     [](Player& player) {
         begin(player, 1);
         player.click(player.frmPlayer().pctstop);
     }},
    {"playing", [](Player& player) { begin(player, 1); }},
    {"playing the last", [](Player& player) { begin(player, 2); }},
    {"paused",
     [](Player& player) {
         begin(player, 1);
         pause(player);
     }},
    {"paused on the last",
     [](Player& player) {
         begin(player, 2);
         pause(player);
     }},
    {"paused, then emptied",
     [](Player& player) {
         begin(player, 0);
         pause(player);
         player.frmPlayer().clearall();
     }},
    {"playing one of one, hidden",
     [](Player& player) {
         player.play({A});
         player.click(player.frmPlayer().pctminimise);
     }},
};

/// All that a deed comes to: what was sent, and how the player stands.
struct Outcome {
    Commands commands;
    std::string status;
    int selected = 0;
    std::vector<bool> shown;
    std::size_t dialogs = 0;
    std::string playing;
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

inline Outcome outcomeOf(const Situation& situation, const std::function<void(Player&)>& deed) {
    Player player;
    situation.bringAbout(player);
    commandsSent();
    deed(player);
    FrmPlayer& form = player.frmPlayer();
    FrmPlaylist& playlist = player.frmPlaylist();
    return {commandsSent(),
            player.status(),
            player.list().ListIndex().value(),
            {form.window.Visible(), form.pctpausedown.Visible(), form.pctprogressbar.Visible(),
             form.lblTimenow.Visible(), playlist.pctPlsPause.Visible(),
             playlist.pctPlsPauseDown.Visible()},
            world.dialogs.opened.size(),
            playlist.lblPlaying.Caption() + ", " + playlist.lblTitle.Caption()};
}

inline const Situation& situation(const std::string& name) {
    for (const Situation& one : situations)
        if (one.name == name) return one;
    FAIL("no situation is called " << name);
    return situations[0];
}

inline platform::RemoteState now() { return world.remote.now(); }

inline void nothing(Player& /*player*/) {}

} // namespace behaviour::remote
