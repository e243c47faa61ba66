#include "runtime/text.h"
#include "tests/behaviour/player.h"

#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::Player;
using runtime::fileTitleOf;
using runtime::nextField;
using simulated::world;

namespace {

const std::vector<std::string> none;

/// Stops with nothing open, which hides the time and the thumb.
void hideTimeAndThumb(Player& player) {
    player.click(player.frmPlayer().pctstop);
    REQUIRE_FALSE(player.frmPlayer().lblTimenow.Visible());
    REQUIRE_FALSE(player.frmPlayer().pctprogressbar.Visible());
    world.media.forgetCommands();
}

/// What a start that plays nothing shows all the same.
void checkQuietStart(Player& player) {
    CHECK(world.messages.shown.empty());
    CHECK(player.frmPlayer().lblTimenow.Visible());
    CHECK(player.frmPlayer().pctprogressbar.Visible());
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240);
    CHECK(player.frmPlayer().Timer1.Enabled());
    CHECK(player.status() == "Idle");
}

/// The number of the error that cutting a field off this line ends in; 0 for none.
int errorOfNextField(std::string line) {
    try {
        nextField(line, '*');
    } catch (const runtime::NumberedError& error) {
        return error.number;
    }
    return 0;
}

std::vector<std::string> playsOf(const std::vector<std::string>& commands) {
    std::vector<std::string> plays;
    for (const std::string& command : commands)
        if (command.starts_with("play") || command.starts_with("Resume")) plays.push_back(command);
    return plays;
}

} // namespace

TEST_CASE("starting a track opens it for the main window and plays it") {
    Player player;
    player.start();
    player.addTracks({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    player.list().ListIndex(0);
    hideTimeAndThumb(player);
    player.frmPlayer().startfile();
    CHECK(player.status() == "Playing");
    CHECK(world.media.openPath() == "C:\\Music\\a.mp3");
    const std::string open = world.media.commands().front();
    CHECK(open.find("parent " + std::to_string(player.mainWindow()) + " ") != std::string::npos);
    CHECK(player.frmPlayer().Timer1.Enabled());
    CHECK(player.frmPlayer().lblTimenow.Visible());
    CHECK(player.frmPlayer().pctprogressbar.Visible());
}

TEST_CASE("after a stop play shows the time and the thumb again") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    hideTimeAndThumb(player);
    player.click(player.frmPlayer().pctPlay);
    CHECK(player.frmPlayer().lblTimenow.Visible());
    CHECK(player.frmPlayer().pctprogressbar.Visible());
}

TEST_CASE(
    "the time shows and the clock runs before play's dialog opens, the thumb shows after it") {
    Player player;
    player.start();
    hideTimeAndThumb(player);
    world.dialogs.cancelFiles([&] {
        CHECK(player.frmPlayer().lblTimenow.Visible());
        CHECK(player.frmPlayer().Timer1.Enabled());
        CHECK_FALSE(player.frmPlayer().pctprogressbar.Visible());
    });
    player.click(player.frmPlayer().pctPlay);
    CHECK(world.dialogs.opened.size() == 1);
    CHECK(player.frmPlayer().pctprogressbar.Visible());
}

TEST_CASE("play with nothing selected puts the thumb back and forgets its offset") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    simulated::advance(50'000);
    player.list().ListIndex(-1);
    REQUIRE(player.frmPlayer().seekOffset > 0);
    player.click(player.frmPlayer().pctPlay);
    CHECK(player.frmPlayer().seekOffset == 0);
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240);
    CHECK(player.frmPlayer().pctprogressbardown.Left() == 240);
}

TEST_CASE("starting again while playing stops first and plays from the beginning") {
    Player player;
    player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    simulated::advance(5000);
    player.list().ListIndex(1);
    world.media.forgetCommands();
    player.frmPlayer().startfile();
    const auto sent = commandsSent();
    REQUIRE(sent.size() == 6);
    CHECK(sent[0] == "Stop mpeg");
    CHECK(sent[1] == "Close mpeg");
    CHECK(sent[5] == "play mpeg from 1 to 200000");
    CHECK(world.media.openPath() == "C:\\Music\\b.mp3");
    CHECK(player.frmPlayer().seekOffset == 0);
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240);
    CHECK(player.frmPlayer().pctprogressbardown.Left() == 240);
}

TEST_CASE("play on an empty list with the dialog cancelled stays quiet") {
    Player player;
    player.start();
    player.frmPlayer().pctprogressbar.Left(999);
    hideTimeAndThumb(player);
    world.dialogs.cancelFiles();
    player.frmPlayer().startfile();
    CHECK(world.dialogs.opened.size() == 1);
    checkQuietStart(player);
}

TEST_CASE("play with entries and none selected stays quiet") {
    Player player;
    player.start();
    player.addTracks({"C:\\Music\\a.mp3"});
    hideTimeAndThumb(player);
    player.frmPlayer().startfile();
    CHECK(world.dialogs.opened.empty());
    checkQuietStart(player);
    CHECK(playsOf(commandsSent()) == none);
}

TEST_CASE("play on an empty list opens what is picked, twice over") {
    Player player;
    player.start();
    world.media.addFile("C:\\Music\\a.mp3", 3000);
    world.dialogs.pickFiles({"C:\\Music\\a.mp3"});
    player.frmPlayer().startfile();
    CHECK(player.status() == "Playing");
    CHECK(player.list().ListCount() == 1);
    CHECK(playsOf(commandsSent()) ==
          std::vector<std::string>{"play mpeg from 1 to 3000", "play mpeg from 1 to 3000"});
}

TEST_CASE("a paused track resumes even when another entry has been selected since") {
    Player player;
    player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    player.engine().PauseM();
    player.frmPlayer().pctpausedown.Visible(true);
    player.frmPlayer().pctprogressbar.Left(1000);
    player.frmPlayer().seekOffset = 760;
    player.list().ListIndex(1);
    world.media.forgetCommands();
    player.frmPlayer().startfile();
    CHECK(commandsSent() == std::vector<std::string>{"Resume mpeg"});
    CHECK(world.media.openPath() == "C:\\Music\\a.mp3");
    CHECK(player.frmPlayer().pctprogressbar.Left() == 1000);
    CHECK(player.frmPlayer().seekOffset == 760);
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("resuming lifts the pause keys of both windows") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    player.engine().PauseM();
    player.frmPlayer().pctpausedown.Visible(true);
    player.frmPlaylist().pctPlsPause.Visible(false);
    player.frmPlaylist().pctPlsPauseDown.Visible(true);
    player.frmPlayer().startfile();
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
    CHECK(player.frmPlaylist().pctPlsPause.Visible());
    CHECK_FALSE(player.frmPlaylist().pctPlsPauseDown.Visible());
}

TEST_CASE("starting from a stop lifts a pause key that the stop left down") {
    Player player;
    player.start();
    player.addTracks({"C:\\Music\\a.mp3"});
    player.list().ListIndex(0);
    player.frmPlayer().pctpausedown.Visible(true);
    player.frmPlayer().startfile();
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("the pause keys come up once the track is open and before it plays") {
    Player player;
    player.start();
    player.addTracks({"C:\\Music\\a.mp3"});
    player.list().ListIndex(0);
    player.frmPlayer().pctpausedown.Visible(true);
    int looks = 0;
    world.watch = [&](const std::string& note) {
        const bool opens = note.starts_with("send open ");
        if (!opens && !note.starts_with("send play ")) return;
        ++looks;
        CHECK(player.frmPlayer().pctpausedown.Visible() == opens);
    };
    player.frmPlayer().startfile();
    world.watch = nullptr;
    CHECK(looks == 2);
}

TEST_CASE("a start that plays nothing leaves the pause keys as they are") {
    Player player;
    player.start();
    player.addTracks({"C:\\Music\\a.mp3"});
    player.frmPlayer().pctpausedown.Visible(true);
    player.frmPlayer().startfile();
    CHECK(player.status() == "Idle");
    CHECK(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("paused with an emptied list and the dialog confirmed, the picked track plays") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    player.engine().PauseM();
    player.frmPlayer().pctpausedown.Visible(true);
    player.frmPlayer().clearall();
    world.media.addFile("C:\\Music\\b.mp3", 3000);
    world.dialogs.pickFiles({"C:\\Music\\b.mp3"});
    world.media.forgetCommands();
    player.frmPlayer().startfile();
    // The start inside the dialog resumes; the outer one stops that and opens what was picked.
    CHECK(playsOf(commandsSent()) ==
          std::vector<std::string>{"Resume mpeg", "play mpeg from 1 to 3000"});
    CHECK(world.media.openPath() == "C:\\Music\\b.mp3");
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
}

TEST_CASE("play while paused over an emptied list asks for files and lifts both pause keys") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    simulated::advance(50'000);
    player.click(player.frmPlayer().pctpause);
    player.frmPlaylist().pctPlsPause.Visible(false);
    player.frmPlaylist().pctPlsPauseDown.Visible(true);
    REQUIRE(player.frmPlayer().pctpausedown.Visible());
    player.frmPlayer().clearall();
    world.media.addFile("C:\\Music\\b.mp3", 3000);
    world.dialogs.pickFiles({"C:\\Music\\b.mp3"}, [&] {
        CHECK(player.status() == "Paused");
        CHECK(player.frmPlayer().pctpausedown.Visible());
    });
    player.click(player.frmPlayer().pctPlay);
    CHECK(world.dialogs.opened.size() == 1);
    CHECK(player.status() == "Playing");
    CHECK(world.media.openPath() == "C:\\Music\\b.mp3");
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
    CHECK(player.frmPlaylist().pctPlsPause.Visible());
    CHECK_FALSE(player.frmPlaylist().pctPlsPauseDown.Visible());
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240);
    CHECK(player.frmPlayer().seekOffset == 0);
}

TEST_CASE(
    "paused, and a cancelled dialog behind which a row was selected: the paused track resumes") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    player.click(player.frmPlayer().pctpause);
    player.frmPlaylist().pctPlsPause.Visible(false);
    player.frmPlaylist().pctPlsPauseDown.Visible(true);
    player.frmPlayer().clearall();
    world.dialogs.cancelFiles([&] {
        player.addTracks({"D:\\Other\\b.mp3"});
        player.list().ListIndex(0);
        world.media.forgetCommands();
    });
    player.frmPlayer().startfile();
    // The new file finds the device taken, so the pause is still on and play lifts it.
    const auto sent = commandsSent();
    REQUIRE(sent.size() == 2);
    CHECK(sent[0].starts_with("open D:\\Other\\b.mp3 "));
    CHECK(sent[1] == "Resume mpeg");
    CHECK(world.media.openPath() == "C:\\Music\\a.mp3");
    CHECK(player.status() == "Playing");
    CHECK_FALSE(player.frmPlayer().pctpausedown.Visible());
    CHECK(player.frmPlaylist().pctPlsPause.Visible());
    CHECK_FALSE(player.frmPlaylist().pctPlsPauseDown.Visible());
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240);
}

TEST_CASE("a paused track resumes first, and the entry selected since plays at the next start") {
    Player player;
    player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    player.click(player.frmPlayer().pctpause);
    player.list().ListIndex(1);
    player.click(player.frmPlayer().pctPlay);
    CHECK(world.media.openPath() == "C:\\Music\\a.mp3");
    CHECK(player.list().ListIndex() == 1);
    player.click(player.frmPlayer().pctPlay);
    CHECK(world.media.openPath() == "C:\\Music\\b.mp3");
    CHECK(player.status() == "Playing");
}

TEST_CASE("paused with an emptied list and the dialog cancelled, the stale path is tried again") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    player.engine().PauseM();
    player.frmPlayer().pctpausedown.Visible(true);
    player.frmPlayer().clearall();
    world.dialogs.cancelFiles();
    player.frmPlayer().startfile();
    // The selection is -1, so the subscript error ends it in silence, the pause keys untouched.
    CHECK(world.messages.shown.empty());
    CHECK(player.status() == "Paused");
    CHECK(player.frmPlayer().pctpausedown.Visible());
    CHECK(player.frmPlayer().pctprogressbar.Left() == 240);
}

TEST_CASE("an error other than a missing entry is told with its number and words") {
    Player player;
    player.start();
    player.addTracks({"C:\\Music\\a.mp3"});
    player.list().ListIndex(0);
    world.media.answer("status mpeg length", "99999999999");
    player.frmPlayer().startfile();
    REQUIRE(world.messages.shown.size() == 1);
    CHECK(world.messages.shown[0].text == "Error: 6. Overflow");
    CHECK(world.messages.shown[0].title == "Play");
    CHECK(world.messages.shown[0].icon == platform::MessageIcon::None);
    CHECK(player.status() == "Idle");
    CHECK(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("a track that can't be opened is no error and leaves the player idle") {
    Player player;
    player.start();
    player.addTracks({"C:\\Music\\a.mp3"});
    player.list().ListIndex(0);
    hideTimeAndThumb(player);
    world.media.fail("open");
    player.frmPlayer().startfile();
    checkQuietStart(player);
}

TEST_CASE("the title of a track is what stands behind the last backslash") {
    CHECK(fileTitleOf("C:\\Music\\a.mp3") == "a.mp3");
    CHECK(fileTitleOf("a.mp3") == "a.mp3");
    CHECK(fileTitleOf("C:\\Music\\").empty());
    CHECK(fileTitleOf("C:/Music/a.mp3") == "C:/Music/a.mp3");
    CHECK(fileTitleOf("").empty());
}

TEST_CASE("fields are cut off a line one by one until there is none left") {
    std::string line = "ab*cd*";
    CHECK(nextField(line, '*') == "ab");
    CHECK(line == "cd*");
    CHECK(nextField(line, '*') == "cd");
    CHECK(line.empty());
    CHECK_THROWS_AS(nextField(line, '*'), runtime::NumberedError);
    CHECK(errorOfNextField("") == runtime::Overflow);
}

TEST_CASE("a field may be empty") {
    std::string line = "*x*";
    CHECK(nextField(line, '*').empty());
    CHECK(line == "x*");
}

TEST_CASE("a delimiter is found up to position 32767 and no further") {
    std::string reachable = std::string(32766, 'x') + "*rest";
    CHECK(nextField(reachable, '*').size() == 32766);
    CHECK(reachable == "rest");
    std::string tooFar = std::string(32767, 'x') + "*rest";
    try {
        nextField(tooFar, '*');
        FAIL("the overflow is missing");
    } catch (const runtime::NumberedError& error) {
        CHECK(error.number == runtime::Overflow);
    }
}

TEST_CASE("positions in a line count characters, whatever their bytes") {
    for (const std::string letter : {"x", "\u0416", "\u97F3", "\U0001F3B5"}) {
        CAPTURE(letter);
        std::string field;
        for (int n = 0; n < 32766; ++n)
            field += letter;
        std::string reachable = field + "*rest";
        CHECK(nextField(reachable, '*') == field);
        CHECK(reachable == "rest");
        std::string tooFar = field + letter + "*rest";
        CHECK_THROWS_AS(nextField(tooFar, '*'), runtime::NumberedError);
    }
}

TEST_CASE("a line without the delimiter is an overflow") {
    std::string line = "no end";
    CHECK_THROWS_AS(nextField(line, '*'), runtime::NumberedError);
    CHECK(errorOfNextField("no end") == runtime::Overflow);
}
