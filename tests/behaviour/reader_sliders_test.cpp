#include "platform/system.h"
#include "tests/behaviour/reader.h"

#include <cmath>
#include <string>
#include <vector>

using behaviour::Reading;
using simulated::world;
using Commands = std::vector<std::string>;

namespace {

/// A player ten ticks into a track of 200 seconds.
struct InTheTrack : Reading {
    InTheTrack() {
        playLetters(2);
        simulated::advance(9660);
        behaviour::commandsSent();
    }
};

/// The position of the last seek sent, seconds; -1 for none.
double soughtPosition() {
    double position = -1;
    for (const std::string& command : behaviour::commandsSent())
        if (command.starts_with("seek mpeg to ")) position = std::stod(command.substr(13)) / 1000;
    return position;
}

} // namespace

TEST_CASE("the seek bar tells where the track is, in seconds and in words") {
    InTheTrack player;
    const platform::AccessibleThing bar = player.main("Position");
    CHECK(bar.lowest == 0);
    CHECK(bar.highest == 200);
    CHECK(bar.number == doctest::Approx(9.661));
    CHECK(bar.value == "00:10 of 03:20");
    CHECK(bar.step == doctest::Approx(200 * 15.0 / 3220));
    CHECK(bar.usable);
}

TEST_CASE("the seek bar of a track that has just begun stands at its start") {
    Reading player;
    player.playLetters(2);
    CHECK(player.main("Position").number == 0);
    simulated::advance(967);
    CHECK(player.main("Position").number == doctest::Approx(0.967));
    CHECK(player.main("Position").value == "00:01 of 03:20");
}

TEST_CASE("the seek bar set by a reader seeks to within a pixel of what was asked for") {
    for (const double wanted : {0.0, 5.0, 50.0, 100.0, 170.0, 200.0}) {
        CAPTURE(wanted);
        InTheTrack player;
        player.set("Position", wanted);
        CHECK(std::abs(soughtPosition() - wanted) <= player.main("Position").step / 2 + 0.01);
        CHECK(player.status() == "Playing");
        CHECK(player.frmPlayer().Timer1.Enabled());
        CHECK_FALSE(player.frmPlayer().mouseHeld);
        CHECK(player.frmPlayer().pctprogressbar.Visible());
        CHECK(player.selected() == 0);
    }
}

TEST_CASE("what lies outside the seek bar's range is its end") {
    InTheTrack player;
    player.set("Position", 1e12);
    CHECK(std::abs(soughtPosition() - 200) < 0.5);
    player.set("Position", -1e12);
    CHECK(soughtPosition() <= 0.5);
    CHECK(player.selected() == 0);
}

TEST_CASE("the seek bar set by a reader sends what a drag of the thumb does") {
    InTheTrack byHand;
    byHand.press(byHand.frmPlayer().pctprogressbar);
    byHand.moveFrom(byHand.frmPlayer().pctprogressbar, 20);
    simulated::release();
    const Commands dragged = behaviour::commandsSent();
    InTheTrack byReader;
    byReader.set("Position", 9.66 + 20 * byReader.main("Position").step);
    CHECK(behaviour::commandsSent().size() == dragged.size());
}

TEST_CASE("unless a track plays the seek bar can't be used, and a reader's setting does nothing") {
    InTheTrack player;
    player.act("Pause");
    behaviour::commandsSent();
    CHECK_FALSE(player.main("Position").usable);
    player.set("Position", 100);
    CHECK(behaviour::commandsSent().empty());
    CHECK(player.status() == "Paused");
}

TEST_CASE("a seek bar of no length takes no setting") {
    Reading player;
    player.frmPlayer().engine().Status("Playing");
    CHECK(player.main("Position").highest == 0);
    player.set("Position", 1);
    CHECK(behaviour::commandsSent().empty());
}

TEST_CASE("the volume tells its percent, and a reader's setting puts thumb and sound there") {
    Reading player;
    for (const double wanted : {50.0, 25.0, 75.0, 2.5}) {
        CAPTURE(wanted);
        player.set("Volume", wanted);
        CHECK(player.main("Volume").number == doctest::Approx(wanted));
        CHECK(player.frmPlayer().volumeLevel == doctest::Approx(wanted * 6 * 54));
        CHECK_FALSE(player.frmPlayer().mouseHeld);
    }
    CHECK(player.main("Volume").value == "2 %");
    CHECK(player.main("Volume").lowest == 0);
    CHECK(player.main("Volume").highest == 100);
}

TEST_CASE("the ends of the volume are the stops that a hand runs into") {
    Reading player;
    player.set("Volume", 100);
    CHECK(world.sound.devices[0].volume == 0xFFFEFFFFU);
    CHECK(player.frmPlayer().pctvolume.Left() == 3000);
    player.set("Volume", 0);
    CHECK(player.frmPlayer().volumeLevel == 0);
    CHECK(player.frmPlayer().pctvolume.Left() == 2400);
    player.set("Volume", 250);
    CHECK(world.sound.devices[0].volume == 0xFFFEFFFFU);
}

TEST_CASE("a slider is set to where it was asked however slow the sound device is") {
    InTheTrack player;
    player.set("Volume", 100);
    const auto setSlowly = [&](const std::string& name, double wanted) {
        world.watch = [](const std::string& note) {
            if (note.starts_with("volume set") || note.starts_with("send ")) platform::Sleep(150);
        };
        player.set(name, wanted);
        world.watch = nullptr;
    };
    world.sound.calls.clear();
    setSlowly("Volume", 0);
    CHECK(player.main("Volume").number == 0);
    REQUIRE_FALSE(world.sound.calls.empty());
    CHECK(world.sound.calls.back() == "set 0 00000000");
    setSlowly("Position", 100);
    CHECK(std::abs(soughtPosition() - 100) < 2); // the track goes on meanwhile
}

TEST_CASE("a slider that was set leaves the pointer to the hand") {
    Reading player;
    simulated::moveToScreen(700, 700);
    player.set("Volume", 50);
    platform::Point told;
    platform::GetCursorPos(&told);
    CHECK(told == platform::Point{700, 700});
}
