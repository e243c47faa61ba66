#include "playback/volume_words.h"
#include "tests/behaviour/player.h"

#include <cstdint>
#include <string>
#include <vector>

using behaviour::Player;
using platform::PointerButton;
using simulated::world;

namespace {

using Calls = std::vector<std::string>;

/// The volume calls since the last look.
Calls callsMade() {
    Calls calls = world.sound.calls;
    world.sound.calls.clear();
    return calls;
}

/// A drag of the slider, each move a whole number of pixels away from the press.
class Drag {
  public:
    Drag(Player& player, float left, PointerButton button = PointerButton::Left)
        : player_(player), button_(button) {
        slider().Left(left);
        player.press(slider(), button);
        at_ = behaviour::middleOf(slider());
    }

    void to(int pixels) {
        simulated::moveTo(player_.mainWindow(), at_.x + pixels, at_.y + (wobble_ = !wobble_));
    }
    void release() { simulated::release(button_); }

    [[nodiscard]] toolkit::Image& slider() const { return player_.frmPlayer().pctvolume; }

  private:
    Player& player_;
    PointerButton button_;
    platform::Point at_;
    bool wobble_ = false; // so that a move to the same distance is a move all the same
};

} // namespace

TEST_CASE("the slider starts where the device's volume puts it") {
    struct Row {
        std::uint32_t word;
        float left;
    };
    for (const Row& row :
         {Row{0, 2400}, Row{0x80008000U, 2700}, Row{0xFFFEFFFFU, 3000}, Row{0xFFFF0000U, 3000}}) {
        CAPTURE(row.word);
        Player player;
        world.sound.devices[0].volume = row.word;
        player.start();
        CHECK(player.frmPlayer().pctvolume.Left() == doctest::Approx(row.left).epsilon(0.0001));
    }
}

TEST_CASE("a volume that would silence the device counts as the one next to it") {
    Player player;
    world.sound.devices[0].volume = 0xFFFF0000U;
    player.start();
    CHECK(player.program().waveVolumeWord == 0xFFFEFFFFU);
    CHECK(player.program().wavePercent == volume::percentOf(0xFFFEFFFFU));
    CHECK(player.program().wavePercent != volume::percentOf(0xFFFF0000U));
}

TEST_CASE("moves over the slider without a press do nothing and don't read the pointer") {
    Player player;
    player.start();
    callsMade();
    FrmPlayer& form = player.frmPlayer();
    form.pctvolume.Left(2700);
    player.program().dragCursorNow = {-7, -7};
    player.hover(form.pctvolume);
    player.moveFrom(form.pctvolume, 1);
    CHECK(callsMade().empty());
    CHECK(player.program().dragCursorNow == platform::Point{-7, -7});
    CHECK(form.pctvolume.Left() == 2700);
}

TEST_CASE("press and release of the slider change nothing and send nothing") {
    Player player;
    player.start();
    callsMade();
    FrmPlayer& form = player.frmPlayer();
    form.volumeLevel = 123;
    Drag drag(player, 2700.6F);
    CHECK(form.mouseHeld);
    CHECK(form.volumeThumbLeft == 2701);
    drag.release();
    CHECK_FALSE(form.mouseHeld);
    CHECK(form.volumeThumbLeft == 2701);
    CHECK(form.pctvolume.Left() == 2700.6F);
    CHECK(form.volumeLevel == 123);
    CHECK(callsMade().empty());
}

TEST_CASE("the volume runs one move behind the slider") {
    Player player;
    player.start();
    Drag drag(player, 2700);
    callsMade();
    drag.to(5);
    CHECK(callsMade() == Calls{"set 0 7E907E90"});
    CHECK(player.frmPlayer().volumeLevel == 16200);
    CHECK(drag.slider().Left() == 2775);
    drag.to(-20);
    CHECK(player.frmPlayer().volumeLevel == 20250);
    CHECK(drag.slider().Left() == 2400);
    drag.to(-19);
    CHECK(player.frmPlayer().volumeLevel == 0);
    CHECK(callsMade() == Calls{"set 0 9E349E36", "set 0 00000000"});
    CHECK(drag.slider().Left() == 2415);
    // The last movement moves the slider and not the volume.
    drag.release();
    CHECK(callsMade().empty());
    CHECK(player.frmPlayer().volumeThumbLeft == 2415);
    CHECK(player.frmPlayer().volumeLevel == 0);
}

TEST_CASE("a slow drag to the right sends the highest plain level before the stop's") {
    Player player;
    player.start();
    Drag drag(player, 2970);
    callsMade();
    for (int pixels = 1; pixels <= 4; ++pixels)
        drag.to(pixels);
    // Levels of 2970, 2985, 3000; the fourth move finds the slider past 3000.
    CHECK(callsMade() ==
          Calls{"set 0 F078F07A", "set 0 F6CCF6CE", "set 0 FD20FD22", "set 0 FFFEFFFF"});
    CHECK(player.frmPlayer().volumeLevel == 32767);
    CHECK(drag.slider().Left() == 3000);
    drag.release();
}

TEST_CASE("a stop is sticky until the release, whatever the pointer does") {
    struct Row {
        int flick;
        int back;
        float stop;
        const char* word;
    };
    for (const Row& row :
         {Row{40, -30, 3000, "set 0 FFFEFFFF"}, Row{-40, 30, 2400, "set 0 00000000"}}) {
        CAPTURE(row.flick);
        Player player;
        player.start();
        Drag drag(player, 2700);
        drag.to(row.flick);
        // For the length of one move the slider stands beyond its stop.
        CHECK(drag.slider().Left() == 2700.0F + 15.0F * static_cast<float>(row.flick));
        callsMade();
        for (const int pixels : {row.flick, row.back, 0, row.back}) {
            drag.to(pixels);
            CHECK(drag.slider().Left() == row.stop);
            CHECK(callsMade() == Calls{row.word});
        }
        drag.release();
        CHECK(player.frmPlayer().volumeThumbLeft == static_cast<int>(row.stop));
        // A new press starts again from the stop.
        Drag again(player, drag.slider().Left());
        again.to(row.back / 3);
        again.to(row.back / 3);
        CHECK(drag.slider().Left() == row.stop + 15.0F * static_cast<float>(row.back / 3));
        again.release();
    }
}

TEST_CASE("a slider released beyond its stop comes back at the first move of the next press") {
    Player player;
    player.start();
    Drag drag(player, 2985);
    drag.to(10);
    drag.release();
    CHECK(drag.slider().Left() == 3135);
    CHECK(player.frmPlayer().volumeThumbLeft == 3135);
    callsMade();
    Drag again(player, drag.slider().Left());
    again.to(-30);
    CHECK(drag.slider().Left() == 3000);
    CHECK(callsMade() == Calls{"set 0 FFFEFFFF"});
    again.release();
}

TEST_CASE("both ends of the travel belong to it") {
    for (const float left : {2400.0F, 3000.0F}) {
        CAPTURE(left);
        Player player;
        player.start();
        Drag drag(player, left);
        callsMade();
        drag.to(0);
        drag.to(left == 2400 ? 3 : -3);
        CHECK(callsMade() == (left == 2400 ? Calls{"set 0 00000000", "set 0 00000000"}
                                           : Calls{"set 0 FD20FD22", "set 0 FD20FD22"}));
        CHECK(drag.slider().Left() == (left == 2400 ? 2445 : 2955));
        drag.release();
    }
}

TEST_CASE("the right button drags the slider as the left one does") {
    Player player;
    player.start();
    Drag drag(player, 2700, PointerButton::Right);
    drag.to(2);
    CHECK(drag.slider().Left() == 2730);
    drag.release();
    CHECK_FALSE(player.frmPlayer().mouseHeld);
}

TEST_CASE("a release that waits during a move ends the drag in the middle of it") {
    Player player;
    player.start();
    Drag drag(player, 2700);
    simulated::post([] { simulated::release(); });
    drag.to(4);
    CHECK_FALSE(player.frmPlayer().mouseHeld);
    CHECK(player.frmPlayer().volumeThumbLeft == 2760);
}

TEST_CASE("what waits runs in the moves at a stop as well") {
    for (const int flick : {40, -40}) {
        CAPTURE(flick);
        Player player;
        player.start();
        Drag drag(player, 2700);
        drag.to(flick);
        for (int n = 0; n < 2; ++n) {
            bool ran = false;
            simulated::post([&] { ran = true; });
            drag.to(flick);
            CHECK(ran);
        }
        drag.release();
    }
}

TEST_CASE("without a wave device the slider moves and its calls fail in silence") {
    Player player;
    world.sound.devices.clear();
    player.start();
    REQUIRE(world.messages.shown.size() == 1);
    Drag drag(player, 2700);
    callsMade();
    drag.to(1);
    CHECK(callsMade() == Calls{"set 0 7E907E90"});
    CHECK(drag.slider().Left() == 2715);
    drag.release();
    CHECK(world.messages.shown.size() == 1);
}

TEST_CASE("without a wave device the stops make their calls too, at every move") {
    for (const int flick : {40, -40}) {
        CAPTURE(flick);
        Player player;
        world.sound.devices.clear();
        player.start();
        Drag drag(player, 2700);
        drag.to(flick);
        callsMade();
        drag.to(flick);
        drag.to(0);
        const std::string call = flick > 0 ? "set 0 FFFEFFFF" : "set 0 00000000";
        CHECK(callsMade() == Calls{call, call});
        CHECK(drag.slider().Left() == (flick > 0 ? 3000 : 2400));
        drag.release();
        CHECK(world.messages.shown.size() == 1);
    }
}

TEST_CASE("the first move sends the level of the very place, a fraction of a twip and all") {
    Player player;
    player.start();
    Drag drag(player, 2700.25F);
    callsMade();
    drag.to(4);
    CHECK(player.frmPlayer().volumeLevel == 300.25 * 54);
    CHECK(callsMade() == Calls{"set 0 7EAB7EAB"});
    CHECK(drag.slider().Left() == 2760); // it follows from the place in whole twips
    drag.release();
}

TEST_CASE("a move of the slider sets the volume, and then reads the pointer") {
    Player player;
    player.start();
    Drag drag(player, 2700);
    world.watch = [](const std::string& note) {
        if (note.starts_with("volume set")) world.desktop.cursor.x += 5;
    };
    drag.to(1);
    world.watch = nullptr;
    CHECK(player.program().dragCursorNow.x == world.desktop.cursor.x);
    CHECK(drag.slider().Left() == 2790);
    drag.release();
}

TEST_CASE("a slider beyond its stop goes back to it before the stop's volume is set") {
    Player player;
    player.start();
    Drag drag(player, 2700);
    drag.to(-25);
    REQUIRE(drag.slider().Left() == 2325);
    int looks = 0;
    world.watch = [&](const std::string& note) {
        if (!note.starts_with("volume set")) return;
        ++looks;
        CHECK(drag.slider().Left() == 2400);
    };
    drag.to(-26);
    world.watch = nullptr;
    CHECK(looks == 1);
    drag.release();
}
