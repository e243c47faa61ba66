#include "shell/AboutBox.h"
#include "tests/behaviour/reader.h"
#include "toolkit/accessible.h"

#include <set>
#include <string>
#include <vector>

using behaviour::Reading;
using platform::AccessibleRole;
using simulated::world;
using Names = std::vector<std::string>;

namespace {

/// Each control of a window's table belongs to a thing with a name, or is said to be none.
void checkEveryControlIsTold(const toolkit::Form& form, const toolkit::AccessibleTable& table) {
    std::set<const toolkit::Control*> told(table.decorations.begin(), table.decorations.end());
    CHECK_FALSE(table.window.empty());
    for (const toolkit::Accessible& thing : table.things) {
        CHECK_FALSE(thing.name.empty());
        CHECK_FALSE(thing.parts.empty());
        told.insert(thing.parts.begin(), thing.parts.end());
    }
    for (const toolkit::Control* control : form.controls()) {
        CAPTURE(control->name());
        const bool ownName = dynamic_cast<const toolkit::CommandButton*>(control) != nullptr;
        CHECK((told.contains(control) || ownName));
    }
}

struct Row {
    const char* name;
    AccessibleRole role;
    platform::Rect area;
};

// clang-format off
const Row atTheStart[] = {
    {"Alarm state", AccessibleRole::Text,         {  8, 16,  81, 33}},
    {"Time",        AccessibleRole::Text,         { 88, 16, 137, 33}},
    {"Shuffle",     AccessibleRole::CheckBox,     {216, 16, 265, 25}},
    {"Repeat",      AccessibleRole::CheckBox,     {216, 24, 265, 33}},
    {"Position",    AccessibleRole::Slider,       { 16, 32, 262, 41}},
    {"Previous",    AccessibleRole::Button,       {  8, 48,  26, 64}},
    {"Next",        AccessibleRole::Button,       { 32, 48,  50, 64}},
    {"Stop",        AccessibleRole::Button,       { 56, 48,  74, 64}},
    {"Play",        AccessibleRole::Button,       { 80, 48,  98, 64}},
    {"Open",        AccessibleRole::Button,       {104, 48, 122, 64}},
    {"Pause",       AccessibleRole::ToggleButton, {136, 48, 154, 64}},
    {"Volume",      AccessibleRole::Slider,       {160, 56, 209, 66}},
    {"Alarm",       AccessibleRole::ToggleButton, {216, 48, 234, 64}},
    {"Playlist",    AccessibleRole::ToggleButton, {248, 48, 266, 64}},
    {"Minimise",    AccessibleRole::Button,       {248,  0, 257, 16}},
    {"Quit",        AccessibleRole::Button,       {264,  0, 275, 20}},
};
const Row inTheList[] = {
    {"Status",      AccessibleRole::Text,         { 32, 16,  81, 25}},
    {"Counter",     AccessibleRole::Text,         {192, 16, 265, 25}},
    {"Tracks",      AccessibleRole::List,         {  8, 24, 273, 65}},
    {"Scroll up",   AccessibleRole::Button,       {256, 24, 273, 41}},
    {"Scroll down", AccessibleRole::Button,       {256, 48, 273, 65}},
    {"Previous",    AccessibleRole::Button,       {  8, 72,  28, 81}},
    {"Next",        AccessibleRole::Button,       { 32, 72,  52, 81}},
    {"Stop",        AccessibleRole::Button,       { 56, 72,  76, 81}},
    {"Play",        AccessibleRole::Button,       { 80, 72, 100, 81}},
    {"Open",        AccessibleRole::Button,       {104, 72, 124, 81}},
    {"Pause",       AccessibleRole::ToggleButton, {128, 72, 148, 81}},
    {"Clear",       AccessibleRole::Button,       {168, 72, 201, 81}},
    {"Clear all",   AccessibleRole::Button,       {208, 72, 257, 81}},
    {"Minimise",    AccessibleRole::Button,       {248,  0, 257, 16}},
    {"Quit",        AccessibleRole::Button,       {264,  0, 275, 20}},
};
// clang-format on

template <std::size_t Count>
void checkThings(const std::vector<platform::AccessibleThing>& things, const Row (&rows)[Count]) {
    REQUIRE(things.size() == Count);
    for (std::size_t n = 0; n < Count; ++n) {
        CAPTURE(rows[n].name);
        CHECK(things[n].name == rows[n].name);
        CHECK(things[n].role == rows[n].role);
        CHECK(things[n].area == rows[n].area);
    }
}

} // namespace

TEST_CASE("every control of all windows has a name for a reader, or is marked as a decoration") {
    Reading player;
    checkEveryControlIsTold(player.frmPlayer().window, player.frmPlayer().window.Accessible());
    checkEveryControlIsTold(player.frmPlaylist().window, player.frmPlaylist().window.Accessible());
    toolkit::Form& about = player.program().aboutBox().window;
    checkEveryControlIsTold(about, about.Accessible());
}

TEST_CASE("no control belongs to two things of a reader") {
    Reading player;
    for (toolkit::Form* form : {&player.frmPlayer().window, &player.frmPlaylist().window}) {
        std::set<const toolkit::Control*> seen;
        for (const toolkit::Accessible& thing : form->Accessible().things)
            for (const toolkit::Control* part : thing.parts) {
                CAPTURE(part->name());
                CHECK(seen.insert(part).second);
            }
    }
}

TEST_CASE("a reader finds what shows in the main window, with its role and its place") {
    Reading player;
    CHECK(simulated::accessibleName(player.mainWindow()) == "Orvan Music Player");
    checkThings(simulated::accessibleThings(player.mainWindow()), atTheStart);
}

TEST_CASE("a reader finds what shows in the playlist, with its role and its place") {
    Reading player;
    CHECK(simulated::accessibleName(player.playlistWindow()) == "Playlist");
    checkThings(simulated::accessibleThings(player.playlistWindow()), inTheList);
}

TEST_CASE("of a hidden window a reader finds nothing") {
    Reading player;
    player.act("Playlist");
    CHECK(player.names(player.playlistWindow()).empty());
}

TEST_CASE("the open alarm panel has hour, minute and the key that sets, in place of the switches") {
    Reading player;
    player.act("Alarm");
    CHECK(player.main("Alarm").pressed);
    CHECK(player.tells("Alarm time"));
    CHECK(player.tells("Hour"));
    CHECK(player.tells("Minute"));
    CHECK(player.tells("Set"));
    CHECK_FALSE(player.tells("Time"));
    CHECK_FALSE(player.tells("Shuffle"));
    CHECK_FALSE(player.tells("Repeat"));
    player.act("Alarm");
    CHECK_FALSE(player.main("Alarm").pressed);
    CHECK_FALSE(player.tells("Hour"));
    CHECK(player.tells("Shuffle"));
}

TEST_CASE("after a stop neither the time nor the seek bar shows, and a reader finds neither") {
    Reading player;
    player.playLetters(1);
    player.act("Stop");
    CHECK_FALSE(player.tells("Time"));
    CHECK_FALSE(player.tells("Position"));
}

TEST_CASE("time, status and counter are read as they stand on the face") {
    Reading player;
    player.playLetters(1);
    simulated::advance(9660);
    CHECK(player.main("Time").value == player.frmPlayer().lblTimenow.Caption());
    CHECK_FALSE(player.main("Time").value.empty());
    CHECK(player.listed("Status").value == "Playing");
    CHECK(player.listed("Counter").value == "10 / 200");
    CHECK(player.main("Alarm state").value == "Timer off");
}

TEST_CASE(
    "a reader is offered to act on keys, switches and the time, and on no other text or slider") {
    Reading player;
    player.playLetters(2);
    for (const char* const name : {"Play", "Shuffle", "Playlist", "Quit", "Time"})
        CHECK(player.main(name).acts);
    for (const char* const name : {"Alarm state", "Position", "Volume"})
        CHECK_FALSE(player.main(name).acts);
    for (const char* const name : {"Status", "Counter", "Tracks"})
        CHECK_FALSE(player.listed(name).acts);
}

TEST_CASE("a key that is held tells that it is pressed") {
    Reading player;
    CHECK_FALSE(player.main("Next").pressed);
    player.press(player.frmPlayer().pctnext);
    CHECK(player.main("Next").pressed);
    simulated::release();
    CHECK_FALSE(player.main("Next").pressed);
}

TEST_CASE("the about box has its version, its credits and its key, and no decoration") {
    Reading player;
    Names names;
    std::string credits;
    simulated::onModalWindow([&] {
        const platform::WindowHandle box = simulated::windowTitled("About Orvan Music Player");
        names = player.names(box);
        credits = simulated::accessibleThing(box, "Credits").value;
        CHECK(simulated::accessibleThing(box, "Version").value == "Final Version");
        CHECK(simulated::accessibleName(box) == "About Orvan Music Player");
        // The main window waits: what is asked of it there isn't done.
        simulated::act(player.mainWindow(), "Shuffle");
        CHECK_FALSE(player.frmPlayer().shuffleOn);
        simulated::act(box, "Close");
    });
    player.program().aboutBox().window.ShowModal();
    CHECK(names == Names{"Version", "Credits", "Close"});
    CHECK(credits.find("Orvan Music Player 2.0") == 0);
    CHECK(credits.find("non commercial purposes.") != std::string::npos);
}

TEST_CASE("while nobody reads, nobody is told of anything and no timer runs for it") {
    behaviour::OpenPlaylist player;
    player.playLetters(3);
    const std::size_t timers = world.events.timers.size();
    player.click(player.frmPlayer().pctnext);
    player.click(player.frmPlayer().lblShuffle);
    simulated::advance(5000);
    CHECK(world.reader.told.empty());
    CHECK(world.events.timers.size() == timers);
}
