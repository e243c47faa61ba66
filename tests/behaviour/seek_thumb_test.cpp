#include "tests/behaviour/player.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

using behaviour::commandsSent;
using behaviour::fatalMessageOf;
using behaviour::Player;
using behaviour::PointerButton;
using simulated::world;

namespace {

using Commands = std::vector<std::string>;

/// A player with a track of this length playing, its device standing still at a position.
void playAt(Player& player, std::int64_t length, std::int64_t position) {
    player.start();
    player.addTracks({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    world.media.addFile("C:\\Music\\a.mp3", length);
    player.list().ListIndex(0);
    player.frmPlayer().startfile();
    world.media.reportPosition(position);
    world.media.forgetCommands();
}

/// A hand that holds the thumb.
struct Drag {
    /// Moves the pointer to so many pixels from where the thumb was pressed.
    void by(int right, int down = 0) const { simulated::moveTo(window, at.x + right, at.y + down); }
    platform::WindowHandle window;
    platform::Point at;
};

Drag pressThumb(Player& player) {
    const Drag drag{player.mainWindow(), behaviour::middleOf(player.frmPlayer().pctprogressbar)};
    player.press(player.frmPlayer().pctprogressbar);
    return drag;
}

/// Puts the thumb somewhere and presses it.
Drag pressThumbAt(Player& player, float left) {
    player.frmPlayer().pctprogressbar.Left(left);
    player.frmPlayer().pctprogressbardown.Left(left);
    return pressThumb(player);
}

const Commands pressQueries{"status mpeg position", "set mpeg time format frames",
                            "status mpeg length", "status mpeg position"};

} // namespace

TEST_CASE("a press on the seek thumb sinks it, stops the tick and asks the device anew") {
    Player player;
    playAt(player, 200'000, 0);
    world.media.reportPosition({});
    simulated::advance(5000);
    FrmPlayer& form = player.frmPlayer();
    world.media.forgetCommands();
    world.media.answer("status mpeg position", "5000");
    world.media.answer("status mpeg position", "5003");
    pressThumbAt(player, 320.6F);
    CHECK_FALSE(form.pctprogressbar.Visible());
    CHECK(form.pctprogressbardown.Visible());
    CHECK_FALSE(form.Timer1.Enabled());
    CHECK(form.mouseHeld);
    CHECK(form.trackLengthSeconds == 200);
    CHECK(form.trackPositionSeconds == runtime::Fixed(5.003));
    CHECK(commandsSent() == pressQueries);
    // However long it is held, nothing ticks.
    simulated::advance(60'000);
    CHECK(commandsSent().empty());
}

TEST_CASE("a dragged thumb runs one move behind the pointer") {
    struct Row {
        int pixels;
        double offset;
        double left;
        double position;
    };
    const Row rows[] = {
        {10, 150, 1000, 56.5168},
        {20, 299.4213, 1150, 65.7976},
        {30, 448.8449, 1299.4, 75.0786},
    };
    Player player;
    playAt(player, 200'000, 47'200);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumbAt(player, 1000);
    for (const Row& row : rows) {
        CAPTURE(row.pixels);
        drag.by(row.pixels, 300);
        CHECK(form.seekOffset == runtime::Fixed(row.offset));
        CHECK(std::fabs(static_cast<double>(form.pctprogressbar.Left()) - row.left) < 0.05);
        CHECK(form.pctprogressbardown.Left() == form.pctprogressbar.Left());
        CHECK(form.trackPositionSeconds == runtime::Fixed(row.position));
    }
    CHECK(form.lblTimenow.Caption() == "-02:05");
    CHECK(player.frmPlaylist().lblTitle.Caption() == "75 / 200");
    world.media.forgetCommands();
    simulated::release();
    CHECK(commandsSent() == Commands{"seek mpeg to 75079", "Play mpeg"});
    CHECK_FALSE(form.mouseHeld);
    CHECK(form.pctprogressbar.Visible());
    CHECK_FALSE(form.pctprogressbardown.Visible());
    CHECK(form.Timer1.Enabled());
}

TEST_CASE("on a very long track the position asked for swings between moves") {
    struct Row {
        int pixels;
        double offset;
        double left;
        double position;
    };
    const Row rows[] = {
        {10, 150, 777, 1279.5031},
        {20, -220.8132, 927, 588.5468},
        {30, 1216.683, 556.2, 3267.1112},
    };
    Player player;
    playAt(player, 6'000'000, 1'000'000);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumbAt(player, 777);
    for (const Row& row : rows) {
        CAPTURE(row.pixels);
        drag.by(row.pixels);
        CHECK(form.seekOffset == runtime::Fixed(row.offset));
        CHECK(std::fabs(static_cast<double>(form.pctprogressbar.Left()) - row.left) < 0.05);
        CHECK(form.trackPositionSeconds == runtime::Fixed(row.position));
    }
}

TEST_CASE("each held move asks for the position, moves the thumb and writes both texts") {
    Player player;
    playAt(player, 200'000, 50'000);
    FrmPlayer& form = player.frmPlayer();
    form.showElapsed = true;
    const Drag drag = pressThumbAt(player, 1000);
    form.lblTimenow.Caption("old");
    world.media.forgetCommands();
    drag.by(10);
    CHECK(commandsSent() ==
          Commands{"status mpeg position", "set mpeg time format frames", "status mpeg length"});
    CHECK(form.lblTimenow.Caption() == "00:59");
    CHECK(player.frmPlaylist().lblTitle.Caption() == "59 / 200");
}

TEST_CASE("what sounds during a drag is added to the position asked for") {
    Player player;
    playAt(player, 200'000, 50'000);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumbAt(player, 1000);
    world.media.reportPosition(53'000);
    drag.by(10);
    CHECK(form.trackPositionSeconds == runtime::Fixed(200 * (150 / 3220.0) + 53));
}

TEST_CASE("moves over the thumb do nothing unless it is held and a track plays") {
    Player player;
    playAt(player, 200'000, 50'000);
    FrmPlayer& form = player.frmPlayer();
    player.hover(form.pctprogressbar);
    player.moveFrom(form.pctprogressbar, 3);
    CHECK(commandsSent().empty());
    CHECK(form.pctprogressbar.Left() == 240);
    player.engine().PauseM();
    const Drag drag = pressThumbAt(player, 1000);
    world.media.forgetCommands();
    drag.by(100);
    CHECK(commandsSent().empty());
    CHECK(form.pctprogressbar.Left() == 1000);
}

TEST_CASE("press and release without a move seek to where the thumb stood at the press") {
    Player player;
    playAt(player, 200'000, 50'000);
    pressThumbAt(player, 1000);
    world.media.reportPosition(52'500);
    world.media.forgetCommands();
    simulated::release(PointerButton::Left);
    CHECK(commandsSent() == Commands{"seek mpeg to 50000", "Play mpeg"});
}

TEST_CASE("any button drags the thumb") {
    Player player;
    playAt(player, 200'000, 50'000);
    FrmPlayer& form = player.frmPlayer();
    player.press(form.pctprogressbar, PointerButton::Right);
    CHECK(form.mouseHeld);
    simulated::release(PointerButton::Right);
    CHECK_FALSE(form.mouseHeld);
}

TEST_CASE("a release that waits during a move seeks before that move writes its texts") {
    Player player;
    playAt(player, 200'000, 50'000);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumbAt(player, 1000);
    world.media.forgetCommands();
    simulated::post([] { simulated::release(); });
    drag.by(10);
    CHECK(commandsSent() == Commands{"status mpeg position", "seek mpeg to 59317", "Play mpeg",
                                     "set mpeg time format frames", "status mpeg length"});
    CHECK(form.pctprogressbar.Visible());
    CHECK(form.lblTimenow.Caption() == "-02:21");
}

TEST_CASE("a thumb released past the end of its bar skips to the next track") {
    Player player;
    playAt(player, 200'000, 50'000);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumbAt(player, 1000);
    drag.by(170);
    // One move behind: the thumb still stands where it was pressed, so this would be a seek.
    CHECK(form.pctprogressbar.Left() == 1000);
    drag.by(171);
    CHECK(form.pctprogressbar.Left() == 3550);
    world.media.forgetCommands();
    simulated::release();
    const Commands sent = commandsSent();
    for (const std::string& command : sent)
        CHECK_FALSE(command.starts_with("seek"));
    CHECK(player.list().ListIndex() == 1);
    CHECK(world.media.openPath() == "C:\\Music\\b.mp3");
    CHECK(form.pctprogressbar.Left() == 240);
    CHECK(form.Timer1.Enabled());
}

TEST_CASE("the thumb's place decides, not the position: far right in one move is still a seek") {
    Player player;
    playAt(player, 200'000, 50'000);
    const Drag drag = pressThumbAt(player, 1000);
    drag.by(400);
    world.media.forgetCommands();
    simulated::release();
    CHECK(commandsSent() == Commands{"seek mpeg to 422671", "Play mpeg"});
    CHECK(player.list().ListIndex() == 0);
}

TEST_CASE("a thumb exactly at the end of its bar seeks") {
    for (const bool beyond : {false, true}) {
        CAPTURE(beyond);
        Player player;
        playAt(player, 200'000, 50'000);
        pressThumbAt(player, beyond ? 3460.5F : 3460.0F);
        simulated::release();
        CHECK(player.list().ListIndex() == (beyond ? 1 : 0));
    }
}

TEST_CASE("a thumb that stands past the end skips, though the pointer is back") {
    Player player;
    playAt(player, 200'000, 50'000);
    const Drag drag = pressThumbAt(player, 1000);
    drag.by(200);
    drag.by(10);
    REQUIRE(player.frmPlayer().pctprogressbar.Left() == 4000);
    world.media.forgetCommands();
    simulated::release();
    CHECK(player.list().ListIndex() == 1);
    for (const std::string& command : commandsSent())
        CHECK_FALSE(command.starts_with("seek"));
}

TEST_CASE("a drag by hand past the end of the last track without repeat leaves it playing") {
    Player player;
    playAt(player, 200'000, 50'000);
    player.list().ListIndex(1);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumbAt(player, 1000);
    for (int pixels = 10; pixels <= 200; pixels += 10)
        drag.by(pixels);
    CHECK(form.pctprogressbar.Left() > 3460);
    world.media.forgetCommands();
    simulated::release();
    CHECK(commandsSent().empty());
    CHECK(player.status() == "Playing");
    CHECK(world.media.openPath() == "C:\\Music\\a.mp3");
    CHECK(player.list().ListIndex() == 1);
    CHECK(form.pctprogressbar.Visible());
    CHECK(form.Timer1.Enabled());
}

TEST_CASE("a thumb dragged far to the left goes beyond the window's edge") {
    Player player;
    playAt(player, 200'000, 50'000);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumbAt(player, 1000);
    drag.by(-100);
    drag.by(-100, 1);
    CHECK(form.pctprogressbar.Left() == doctest::Approx(-500).epsilon(0.0001));
    CHECK(form.pctprogressbardown.Left() == form.pctprogressbar.Left());
    simulated::release();
}

TEST_CASE("the thumb's place at the press counts in whole twips, to the nearest") {
    for (const float left : {1000.5F, 1000.6F}) {
        CAPTURE(left);
        Player player;
        playAt(player, 200'000, 50'000);
        const Drag drag = pressThumbAt(player, left);
        drag.by(1);
        CHECK(player.frmPlayer().pctprogressbar.Left() == (left == 1000.5F ? 1000 : 1001));
        simulated::release();
    }
}

TEST_CASE("half a thousandth of a position goes to the even thousandth, by an exact product") {
    // In floating point these products lie beside the half.
    const std::pair<std::int64_t, const char*> rows[] = {{5015, "seek mpeg to 502"},
                                                         {5035, "seek mpeg to 504"},
                                                         {20005, "seek mpeg to 2000"},
                                                         {20035, "seek mpeg to 2004"}};
    for (const auto& [units, seek] : rows) {
        CAPTURE(units);
        Player player;
        playAt(player, 200'000, 50'000);
        pressThumbAt(player, 1000);
        player.frmPlayer().trackPositionSeconds = runtime::Fixed::fromUnits(units);
        world.media.forgetCommands();
        simulated::release();
        CHECK(commandsSent().front() == seek);
    }
}

TEST_CASE("the seek writes the time first, then asks for the length, then writes the counter") {
    Player player;
    playAt(player, 200'000, 50'000);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumbAt(player, 1000);
    std::string timeThen;
    std::string counterThen = "not asked";
    world.watch = [&](const std::string& note) {
        if (note != "send status mpeg length") return;
        timeThen = form.lblTimenow.Caption();
        counterThen = player.frmPlaylist().lblTitle.Caption();
    };
    drag.by(10);
    world.watch = nullptr;
    CHECK(timeThen == "-02:21");
    CHECK(counterThen.empty());
    simulated::release();
}

TEST_CASE("a drag past the end of the last track without repeat leaves it playing") {
    Player player;
    playAt(player, 200'000, 50'000);
    player.list().ListIndex(1);
    pressThumbAt(player, 3500);
    world.media.forgetCommands();
    simulated::release();
    CHECK(commandsSent().empty());
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("a drag to before the start seeks to the start") {
    Player player;
    playAt(player, 200'000, 1'000);
    FrmPlayer& form = player.frmPlayer();
    form.showElapsed = true;
    const Drag drag = pressThumbAt(player, 256);
    drag.by(-50);
    CHECK(form.trackPositionSeconds < 0);
    CHECK(player.frmPlaylist().lblTitle.Caption() == "-46 / 200");
    CHECK(form.lblTimenow.Caption() == "00:-46");
    drag.by(-51);
    CHECK(form.pctprogressbar.Left() < 240);
    world.media.forgetCommands();
    simulated::release();
    CHECK(commandsSent() == Commands{"seek mpeg to 0", "Play mpeg"});
    CHECK(form.trackPositionSeconds == 0);
}

TEST_CASE("a remaining time dragged past the end begins with two minus signs") {
    Player player;
    playAt(player, 200'000, 199'000);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumbAt(player, 3444);
    drag.by(71);
    CHECK(form.lblTimenow.Caption() == "--01:-05");
}

TEST_CASE("press and release of the thumb while paused sets the device playing, still paused") {
    Player player;
    playAt(player, 200'000, 50'000);
    FrmPlayer& form = player.frmPlayer();
    player.click(form.pctpause);
    pressThumbAt(player, 1000);
    world.media.forgetCommands();
    simulated::release();
    CHECK(commandsSent() == Commands{"seek mpeg to 50000", "Play mpeg"});
    CHECK(world.media.playing());
    CHECK(player.status() == "Paused");
    CHECK(form.pctpausedown.Visible());
    const std::string time = form.lblTimenow.Caption();
    world.media.reportPosition({});
    simulated::advance(3000);
    CHECK(form.lblTimenow.Caption() == time);
    // The pause key sets the word right, and from then on the texts tell what sounds.
    player.click(form.pctpausedown);
    CHECK(player.status() == "Playing");
    CHECK_FALSE(form.pctpausedown.Visible());
    simulated::advance(966);
    CHECK(form.trackPositionSeconds.toDouble() >= 53.0);
    CHECK(form.lblTimenow.Caption() == "-02:26");
}

TEST_CASE("the thumb reacts with no file open, and its release starts the tick") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    REQUIRE_FALSE(form.Timer1.Enabled());
    pressThumbAt(player, 240);
    CHECK(form.trackPositionSeconds == runtime::Fixed(-0.001));
    CHECK(form.trackLengthSeconds == runtime::Fixed(-0.001));
    world.media.forgetCommands();
    simulated::release();
    CHECK(commandsSent() == Commands{"seek mpeg to 0", "Play mpeg"});
    CHECK(form.trackPositionSeconds == 0);
    CHECK(form.Timer1.Enabled());
    CHECK(player.status() == "Idle");
}

TEST_CASE("a track that ends while the thumb is held goes unnoticed until the release") {
    Player player;
    playAt(player, 200'000, 0);
    world.media.reportPosition({});
    simulated::advance(195'000);
    pressThumbAt(player, 3000);
    simulated::advance(30'000);
    CHECK(player.list().ListIndex() == 0);
    simulated::release();
    CHECK(player.list().ListIndex() == 0);
    simulated::advance(7000);
    CHECK(player.list().ListIndex() == 1);
}

TEST_CASE("after a drag the next tick puts the thumb where the track is") {
    Player player;
    playAt(player, 200'000, 0);
    world.media.reportPosition({});
    simulated::advance(20'000);
    FrmPlayer& form = player.frmPlayer();
    const Drag drag = pressThumb(player);
    drag.by(40);
    drag.by(40, 1);
    simulated::release();
    const double sought = form.trackPositionSeconds.toDouble();
    CHECK(sought > 50.0);
    simulated::advance(966);
    const double share = form.trackPositionSeconds.toDouble() / 200.0;
    CHECK(form.trackPositionSeconds.toDouble() >= sought);
    CHECK(std::fabs(static_cast<double>(form.pctprogressbar.Left()) - (240 + share * 3220)) < 0.01);
    CHECK(form.seekOffset == runtime::Fixed(share * 3220));
}

TEST_CASE("a thumb dragged along a track without length is the fatal end") {
    Player player;
    playAt(player, 200'000, 0);
    world.media.answer("status mpeg length", "0");
    const Drag drag = pressThumbAt(player, 240);
    const auto message = fatalMessageOf([&] { drag.by(1); });
    REQUIRE(message);
    CHECK(message->starts_with("Run-time error 6: "));
}

TEST_CASE("a position beyond 32767 seconds is too large for the playlist's text") {
    Player player;
    playAt(player, 32'000'000, 31'000'000);
    const Drag drag = pressThumbAt(player, 3000);
    const auto message = fatalMessageOf([&] { drag.by(30); });
    REQUIRE(message);
    CHECK(message->starts_with("Run-time error 6: "));
}

TEST_CASE("a seek beyond 32 bits is the fatal end") {
    Player player;
    playAt(player, 200'000, 0);
    pressThumbAt(player, 1000);
    player.frmPlayer().trackPositionSeconds = 2'147'484;
    const auto message = fatalMessageOf([] { simulated::release(); });
    REQUIRE(message);
    CHECK(message->starts_with("Run-time error 6: "));
}
