#include "tests/behaviour/player.h"
#include "tests/pictures/windows/compare.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using behaviour::Player;

namespace {

enum class Which { Player, Playlist };

/// Captions are left out, but for states that differ in nothing else: those show the simulated
/// platform's face of plain blocks.
enum class Captions { LeftOut, Blocks };

/// A state of a window and the user's way to it, from a player that plays the first of five
/// tracks at its start.
struct State {
    const char* name;
    Which window;
    std::function<void(Player&)> reach;
    Captions captions = Captions::LeftOut;
};

template <class Control>
std::function<void(Player&)> held(Control FrmPlayer::*key) {
    return [key](Player& player) { player.press(player.frmPlayer().*key); };
}

template <class Control>
std::function<void(Player&)> held(Control FrmPlaylist::*key) {
    return [key](Player& player) { player.press(player.frmPlaylist().*key); };
}

void openPanel(Player& player) { player.click(player.frmPlayer().pctalarm); }

/// Drags the volume slider so far that it stops.
std::function<void(Player&)> volumeDragged(int pixels) {
    return [pixels](Player& player) {
        const platform::Point at = behaviour::middleOf(player.frmPlayer().pctvolume);
        simulated::pressAt(player.mainWindow(), at.x, at.y);
        simulated::moveTo(player.mainWindow(), at.x + pixels, at.y);
        simulated::moveTo(player.mainWindow(), at.x + pixels, at.y + 1);
        simulated::release();
    };
}

void playToTheEnd(Player& player) {
    simulated::world.media.reportPosition(199'999);
    simulated::advance(966);
    REQUIRE(player.frmPlayer().pctprogressbar.Left() > 3459);
}

const std::vector<State>& states() {
    static const std::vector<State> all = {
        {"player-at-rest", Which::Player, [](Player&) {}},
        {"player-captions", Which::Player, [](Player&) {}, Captions::Blocks},
        {"player-stopped", Which::Player,
         [](Player& player) { player.click(player.frmPlayer().pctstop); }},
        {"player-prev-down", Which::Player, held(&FrmPlayer::pctprev)},
        {"player-next-down", Which::Player, held(&FrmPlayer::pctnext)},
        {"player-stop-down", Which::Player, held(&FrmPlayer::pctstop)},
        {"player-play-down", Which::Player, held(&FrmPlayer::pctPlay)},
        {"player-open-down", Which::Player, held(&FrmPlayer::pctopen)},
        {"player-pause-down", Which::Player, held(&FrmPlayer::pctpause)},
        {"player-alarm-down", Which::Player, held(&FrmPlayer::pctalarm)},
        {"player-playlist-down", Which::Player, held(&FrmPlayer::pctplaylist)},
        {"player-minimise-down", Which::Player, held(&FrmPlayer::pctminimise)},
        {"player-quit-down", Which::Player, held(&FrmPlayer::pctquit)},
        {"player-alarm-panel", Which::Player, openPanel, Captions::Blocks},
        {"player-thumb-down", Which::Player, held(&FrmPlayer::pctprogressbar)},
        {"player-thumb-at-end", Which::Player, playToTheEnd},
        {"player-volume-lowest", Which::Player, volumeDragged(-60)},
        {"playlist-at-rest", Which::Playlist, [](Player& player) { player.list().ListIndex(-1); }},
        {"playlist-selection", Which::Playlist,
         [](Player& player) {
             simulated::click(player.playlistWindow(), 100, 24 + 18);
             REQUIRE(player.list().ListIndex() == 1);
         }},
        {"playlist-prev-down", Which::Playlist, held(&FrmPlaylist::pctPlsPrev)},
        {"playlist-next-down", Which::Playlist, held(&FrmPlaylist::pctPlsNext)},
        {"playlist-stop-down", Which::Playlist, held(&FrmPlaylist::pctPlsStop)},
        {"playlist-play-down", Which::Playlist, held(&FrmPlaylist::pctPlsPlay)},
        {"playlist-open-down", Which::Playlist, held(&FrmPlaylist::pctPlsOpen)},
        {"playlist-pause-down", Which::Playlist, held(&FrmPlaylist::pctPlsPause)},
        {"playlist-minimise-down", Which::Playlist, held(&FrmPlaylist::pctPlaylistMini)},
        {"playlist-quit-down", Which::Playlist, held(&FrmPlaylist::pctPlaylistQuit)},
        {"playlist-up-down", Which::Playlist, held(&FrmPlaylist::pctLBoxUpUp)},
        {"playlist-down-down", Which::Playlist, held(&FrmPlaylist::pctLBoxDownUp)},
    };
    return all;
}

/// A display with a fraction or several of its pixels to one of a window's.
struct Display {
    double scale;
    const char* name;
    platform::Size size; ///< of a window's picture
};

const Display displays[] = {{1.5, "1.5x", {414, 123}}, {2, "2x", {552, 164}}};

/// The states that have references on these displays too: of every kind of thing one.
const char* const mainStates[] = {"player-captions",    "player-play-down",
                                  "player-alarm-panel", "player-thumb-at-end",
                                  "playlist-selection", "playlist-next-down"};

bool isMainState(const State& state) {
    return std::find(std::begin(mainStates), std::end(mainStates), std::string(state.name)) !=
           std::end(mainStates);
}

std::string nameOn(const Display& display, const State& state) {
    return std::string(state.name) + "-" + display.name;
}

platform::Picture pictureOf(const State& state, double scale = 1) {
    Player player;
    simulated::world.desktop.scale = scale;
    simulated::world.text.leaveOut = state.captions == Captions::LeftOut;
    player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3", "C:\\Music\\c.mp3", "C:\\Music\\d.mp3",
                 "C:\\Music\\e.mp3"});
    if (state.window == Which::Playlist) player.click(player.frmPlayer().pctplaylist);
    state.reach(player);
    const bool list = state.window == Which::Playlist;
    return simulated::picture(list ? player.playlistWindow() : player.mainWindow());
}

} // namespace

TEST_CASE("both windows look as their reference pictures do, in every state") {
    for (const State& state : states())
        pictures::checkPicture(state.name, pictureOf(state));
}

TEST_CASE("both windows look as their reference pictures do on displays of a larger scale") {
    for (const Display& display : displays)
        for (const State& state : states())
            if (isMainState(state))
                pictures::checkPicture(nameOn(display, state), pictureOf(state, display.scale));
}

TEST_CASE("no two states look alike on displays of a larger scale") {
    for (const Display& display : displays) {
        std::vector<platform::Picture> seen;
        for (const State& state : states()) {
            platform::Picture picture = pictureOf(state, display.scale);
            CHECK(picture.width == display.size.width);
            CHECK(picture.height == display.size.height);
            CHECK(std::find(seen.begin(), seen.end(), picture) == seen.end());
            seen.push_back(std::move(picture));
        }
    }
}

TEST_CASE("every reference picture is one of a state, and no two states look alike") {
    std::vector<std::string> names;
    std::vector<platform::Picture> seen;
    for (const State& state : states()) {
        names.emplace_back(state.name);
        for (const Display& display : displays)
            if (isMainState(state)) names.push_back(nameOn(display, state));
        platform::Picture picture = pictureOf(state);
        CHECK(picture.width == 276);
        CHECK(picture.height == 82);
        const auto twin = std::find(seen.begin(), seen.end(), picture);
        CHECK_MESSAGE(twin == seen.end(), std::string(state.name), " looks like another state");
        seen.push_back(std::move(picture));
    }
    std::sort(names.begin(), names.end());
    CHECK(pictures::referenceNames() == names);
}
