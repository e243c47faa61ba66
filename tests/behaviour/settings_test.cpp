#include "app/settings.h"

#include "tests/behaviour/player.h"

#include <cstddef>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

using behaviour::fatalMessageOf;
using behaviour::Player;
using simulated::world;

namespace {

const std::string file = "C:\\Orvan\\MyPlayerSettings.mps";
const std::string oldFile = "c:\\MyPlayerSettings.txt";
const std::string wholeLine =
    R"(3*16200*2700*C:\Music\a.mp3/C:\Music\b.mp3//*120*90*7*30*C:\Music*-1*0*135*1320*)";

void startWith(Player& player, const std::string& line) {
    world.files.addFile(file, line + "\n");
    player.start();
}

/// Quits as the user does; the line that is on the disk then.
std::string lineAfterQuit(Player& player) {
    CHECK_THROWS_AS(player.frmPlayer().unloadmebaby(), simulated::ProcessEnded);
    return world.files.text(file);
}

/// The fatal message of a start with this line, without the file that it names.
std::string fatalStartWith(const std::string& line) {
    CAPTURE(line.substr(0, 100));
    Player player;
    world.files.addFile(file, line + "\n");
    const auto message = fatalMessageOf([&] { player.program().Main(); });
    REQUIRE(message);
    const std::string naming = "\n" + file;
    REQUIRE(message->ends_with(naming));
    return message->substr(0, message->size() - naming.size());
}

/// A letter of each length that letters have in UTF-8.
const std::vector<std::string> letters = {"x", "\u0416", "\u97F3", "\U0001F3B5"};

std::string repeated(const std::string& letter, std::size_t count) {
    std::string text;
    for (; count > 0; --count)
        text += letter;
    return text;
}

/// The line with field 3 made of so many characters in all.
std::string lineWithTrackField(std::size_t length, const std::string& letter = "x") {
    std::string field;
    std::size_t characters = 0;
    for (; characters + 200 < length; characters += 100)
        field += "C:\\" + repeated(letter, 96) + "/";
    field += repeated(letter, length - characters - 2) + "//";
    return "3*0*0*" + field + "*120*90*0*0**0*0*120*1320*";
}

const std::string overflow = "Run-time error 6: Overflow";
const std::string typeMismatch = "Run-time error 13: Type mismatch";
const std::string fileNotFound = "Run-time error 53: File not found";

} // namespace

TEST_CASE("a first start has no message, no list and no selection, and quits with a whole line") {
    Player player;
    player.start();
    CHECK(world.messages.shown.empty());
    CHECK(player.list().ListCount() == 0);
    CHECK(player.list().ListIndex() == -1);
    CHECK_FALSE(world.files.exists(file));
    CHECK(lineAfterQuit(player) == "3*0*0**5610*5145*0*0**0*0*7560*6720*\n");
}

TEST_CASE("a whole line is taken over") {
    Player player;
    startWith(player, wholeLine);
    FrmPlayer& form = player.frmPlayer();
    CHECK(form.volumeLevel == 16200);
    CHECK(form.volumeThumbLeft == 2700);
    CHECK(form.trackCount == 2);
    CHECK(form.trackPaths[0] == "C:\\Music\\a.mp3");
    CHECK(form.trackPaths[1] == "C:\\Music\\b.mp3");
    CHECK(player.list().ListCount() == 2);
    CHECK(player.list().List(0) == "a.mp3");
    CHECK(player.list().List(1) == "b.mp3");
    CHECK(form.window.Left() == 120);
    CHECK(form.window.Top() == 90);
    CHECK(form.alarmHour == 7);
    CHECK(form.alarmMinute == 30);
    CHECK(form.lastFolder == "C:\\Music");
    CHECK(player.frmPlaylist().playlistdockX);
    CHECK_FALSE(player.frmPlaylist().playlistdockY);
    CHECK(player.frmPlaylist().window.Left() == 135);
    CHECK(player.frmPlaylist().window.Top() == 1320);
    CHECK(simulated::window(player.mainWindow()).position == platform::Point{8, 6});
    CHECK(simulated::window(player.playlistWindow()).position == platform::Point{9, 88});
}

TEST_CASE("a line that nothing has changed is written back as it was") {
    Player player;
    startWith(player, wholeLine);
    CHECK(lineAfterQuit(player) == wholeLine + "\n");
    const std::string otherDock = "3*0*2400**120*90*0*0**0*-1*135*1320*";
    Player again;
    startWith(again, otherDock);
    CHECK(lineAfterQuit(again) == otherDock + "\n");
}

TEST_CASE("the saved list comes back in its order, the first entry selected, and nothing plays") {
    Player player;
    world.media.addFile("C:\\Music\\a.mp3", 2000);
    startWith(player, wholeLine);
    CHECK(player.list().ListIndex() == 0);
    CHECK(player.status() == "Idle");
    CHECK(world.media.commands().empty());
    CHECK_FALSE(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("an empty list is an empty field and stays empty") {
    Player player;
    startWith(player, "3*0*0**120*90*0*0**0*0*120*1320*");
    CHECK(player.list().ListCount() == 0);
    CHECK(player.list().ListIndex() == -1);
    CHECK(player.frmPlayer().trackCount == 0);
}

TEST_CASE("a saved path that is gone is loaded all the same and fails in silence") {
    Player player;
    startWith(player, wholeLine);
    REQUIRE_FALSE(world.files.exists("C:\\Music\\a.mp3"));
    CHECK(player.list().ListCount() == 2);
    CHECK(player.frmPlayer().trackPaths[0] == "C:\\Music\\a.mp3");
    player.frmPlayer().startfile();
    CHECK(player.status() == "Idle");
    CHECK(world.messages.shown.empty());
}

TEST_CASE("switches, time mode, alarm, selection and the playlist's visibility are not saved") {
    Player first;
    first.play({"C:\\a.mp3", "C:\\b.mp3"});
    FrmPlayer& form = first.frmPlayer();
    form.repeatOn = true;
    form.shuffleOn = true;
    form.showElapsed = true;
    form.alarmTime = runtime::Fixed(0.5);
    form.alarmHour = 12;
    first.list().ListIndex(1);
    first.frmPlaylist().window.Show();
    const std::string line = lineAfterQuit(first);

    Player second;
    world.files.addFile(file, line);
    second.start();
    CHECK_FALSE(second.frmPlayer().repeatOn);
    CHECK_FALSE(second.frmPlayer().shuffleOn);
    CHECK_FALSE(second.frmPlayer().showElapsed);
    CHECK(second.frmPlayer().alarmTime == -1);
    CHECK(second.frmPlayer().alarmHour == 12);
    CHECK(second.list().ListCount() == 2);
    CHECK(second.list().ListIndex() == 0);
    CHECK_FALSE(simulated::window(second.playlistWindow()).visible);
    CHECK_FALSE(second.frmPlaylist().window.Visible());
}

TEST_CASE("the saved volume level is carried over, neither sent nor shown") {
    Player player;
    world.sound.devices = {{0U, 0}};
    startWith(player, "3*12345.5*2500**120*90*0*0**0*0*120*1320*");
    for (const std::string& call : world.sound.calls)
        CHECK_FALSE(call.starts_with("set"));
    CHECK(player.frmPlayer().pctvolume.Left() == 2400);
    CHECK(lineAfterQuit(player) == "3*12345.5*2500**120*90*0*0**0*0*120*1320*\n");
}

TEST_CASE("without a wave device the volume thumb stands where it was saved") {
    Player player;
    world.sound.devices.clear();
    startWith(player, "3*12345.5*2505**120*90*0*0**0*0*120*1320*");
    CHECK(player.frmPlayer().pctvolume.Left() == 2505);
}

TEST_CASE("a saved volume thumb of exactly 0 is skipped") {
    Player exact;
    exact.frmPlayer().volumeThumbLeft = 77;
    startWith(exact, "3*0*0**120*90*0*0**0*0*120*1320*");
    CHECK(exact.frmPlayer().volumeThumbLeft == 77);

    Player other;
    other.frmPlayer().volumeThumbLeft = 77;
    startWith(other, "3*0*00**120*90*0*0**0*0*120*1320*");
    CHECK(other.frmPlayer().volumeThumbLeft == 0);
}

TEST_CASE("an empty folder field leaves the folder as it is") {
    Player player;
    player.frmPlayer().lastFolder = "C:\\Before";
    startWith(player, "3*0*0**120*90*0*0**0*0*120*1320*");
    CHECK(player.frmPlayer().lastFolder == "C:\\Before");
}

TEST_CASE("the places of hidden windows are saved as they are") {
    Player player;
    player.start();
    player.frmPlayer().window.Left(-300);
    player.frmPlayer().window.Top(7.5F);
    player.frmPlayer().window.Hide();
    player.frmPlaylist().window.Left(1234.5F);
    player.frmPlaylist().window.Top(-0.25F);
    CHECK(lineAfterQuit(player) == "3*0*0**-300*7.5*0*0**0*0*1234.5*-0.25*\n");
}

TEST_CASE("a place to which the window manager moved a window is saved") {
    Player player;
    player.start();
    simulated::moveByWindowManager(player.mainWindow(), {10, 20});
    CHECK(lineAfterQuit(player) == "3*0*0**150*300*0*0**0*0*7560*6720*\n");
}

TEST_CASE("tracks beyond the count are not saved") {
    Player player;
    player.start();
    player.addTracks({"C:\\a.mp3", "C:\\b.mp3", "C:\\c.mp3"});
    player.frmPlayer().trackCount = 2;
    CHECK(lineAfterQuit(player) == "3*0*0*C:\\a.mp3/C:\\b.mp3//*5610*5145*0*0**0*0*7560*6720*\n");
}

TEST_CASE("numbers are written and read by the locale's decimal sign") {
    Player player;
    world.desktop.decimalSign = ',';
    const std::string line = "3*16200,25*2700**-120,5*90,125*7*30**-1*0*1,5E+07*1320*";
    startWith(player, line);
    CHECK(player.frmPlayer().volumeLevel == 16200.25);
    CHECK(player.frmPlayer().window.Left() == -120.5F);
    CHECK(player.frmPlayer().window.Top() == 90.125F);
    CHECK(player.frmPlaylist().window.Left() == 1.5e7F);
    CHECK(lineAfterQuit(player) == line + "\n");
}

TEST_CASE("a line of another locale is the fatal end") {
    Player player;
    world.desktop.decimalSign = ',';
    world.files.addFile(file, "3*16200.25*0**120*90*0*0**0*0*120*1320*\n");
    const auto message = fatalMessageOf([&] { player.program().Main(); });
    REQUIRE(message);
    CHECK(*message == typeMismatch + "\n" + file);
}

TEST_CASE("the settings lie in the folder of the application") {
    Player player;
    world.desktop.applicationFolder = "C:\\Program Files\\Orvan";
    world.files.addFile("C:\\Program Files\\Orvan\\MyPlayerSettings.mps", wholeLine + "\n");
    player.start();
    CHECK(player.frmPlayer().trackCount == 2);
}

TEST_CASE("only the first line counts, however it ends") {
    for (const char* end : {"", "\n", "\r\n", "\nrubbish\n", "\r\nrubbish*"}) {
        Player player;
        world.files.addFile(file, wholeLine + end);
        player.start();
        CHECK(player.frmPlayer().trackCount == 2);
        CHECK(player.frmPlaylist().window.Top() == 1320);
    }
}

TEST_CASE("what stands behind the thirteenth field is ignored") {
    Player player;
    startWith(player, wholeLine + "more*and more");
    CHECK(player.frmPlaylist().window.Top() == 1320);
}

// Short lines and the version.

TEST_CASE("a line of 10 characters is ignored whatever it holds") {
    for (const char* line : {"", "3", "2*********", "xxxxxxxxxx", "**********", "3*********"}) {
        CAPTURE(line);
        Player player;
        startWith(player, line);
        CHECK(world.messages.shown.empty());
        CHECK(player.frmPlayer().trackCount == 0);
        CHECK(player.frmPlayer().window.Left() == 5610);
    }
}

TEST_CASE("a line of 11 characters is taken apart") {
    CHECK(fatalStartWith("3**********") == overflow);
    CHECK(fatalStartWith("xxxxxxxxxxx") == typeMismatch);
    CHECK(fatalStartWith("2**********") == fileNotFound);
}

TEST_CASE("another version deletes the old file, and the exit writes the present version") {
    Player player;
    world.files.addFile(oldFile, "anything");
    startWith(player, "2*99*99*C:\\a.mp3//*1*2*3*4*C:\\*-1*-1*5*6*");
    CHECK_FALSE(world.files.exists(oldFile));
    CHECK(player.frmPlayer().trackCount == 0);
    CHECK(player.frmPlayer().window.Left() == 5610);
    CHECK(player.frmPlayer().volumeLevel == 0);
    CHECK(world.files.text(file).starts_with("2*99"));
    CHECK(lineAfterQuit(player) == "3*0*0**5610*5145*0*0**0*0*7560*6720*\n");
}

TEST_CASE("the present version leaves the old file alone") {
    Player player;
    world.files.addFile(oldFile, "anything");
    startWith(player, wholeLine);
    CHECK(world.files.exists(oldFile));
}

TEST_CASE("another version without the old file is the fatal end") {
    for (const char digit : {'0', '1', '2', '4', '9'}) {
        Player player;
        world.files.addFile(file, std::string(1, digit) + wholeLine.substr(1) + "\n");
        const auto message = fatalMessageOf([&] { player.program().Main(); });
        REQUIRE(message);
        CHECK(*message == fileNotFound + "\n" + file);
    }
}

// Lines that can't be taken are the fatal end, and the message names the file.

TEST_CASE("a line that doesn't start with a digit is the fatal end") {
    for (const char* line : {"x*0*0**120*90*0*0**0*0*120*1320*", "-3*0*0**120*90*0*0*",
                             "*3*0*0**120*90*0*0**", ".5*0*0**120*90*0*0", "           "})
        CHECK(fatalStartWith(line) == typeMismatch);
}

TEST_CASE("a line with fewer than thirteen fields is the fatal end") {
    CHECK(fatalStartWith("3*0*0**120*90*0*0**0*0*120*1320") == overflow);
    CHECK(fatalStartWith("3*0*0**120*90*0*0**0*0*120*") == overflow);
    CHECK(fatalStartWith("33333333333") == overflow);
}

TEST_CASE("a track list field of 32767 characters is the fatal end, one less is not") {
    CHECK(fatalStartWith(lineWithTrackField(32767)) == overflow);
    CHECK(fatalStartWith(lineWithTrackField(40000)) == overflow);
    Player player;
    startWith(player, lineWithTrackField(32766));
    CHECK(player.frmPlayer().trackCount > 300);
    CHECK(player.list().ListIndex() == 0);
}

TEST_CASE("a track list field counts characters, in any script") {
    for (const std::string& letter : letters) {
        CAPTURE(letter);
        CHECK(fatalStartWith(lineWithTrackField(32767, letter)) == overflow);
        Player player;
        startWith(player, lineWithTrackField(32766, letter));
        CHECK(player.frmPlayer().trackCount == 327);
        CHECK(player.list().List(0) == repeated(letter, 96));
    }
}

TEST_CASE("a line of 10 characters is ignored in any script, one of 11 is not") {
    for (const std::string& letter : letters) {
        CAPTURE(letter);
        CHECK(fatalStartWith(repeated(letter, 11)) == typeMismatch);
        Player player;
        startWith(player, repeated(letter, 10));
        CHECK(world.messages.shown.empty());
    }
}

TEST_CASE("a track list field that lacks its end is the fatal end") {
    CHECK(fatalStartWith("3*0*0*C:\\a.mp3*120*90*0*0**0*0*120*1320*") == overflow);
    CHECK(fatalStartWith("3*0*0*C:\\a.mp3/*120*90*0*0**0*0*120*1320*") == overflow);
}

TEST_CASE("a track list field is read up to its first empty path") {
    Player player;
    startWith(player, "3*0*0*C:\\a.mp3//C:\\b.mp3//*120*90*0*0**0*0*120*1320*");
    CHECK(player.frmPlayer().trackCount == 1);
    Player none;
    startWith(none, "3*0*0*/*120*90*0*0**0*0*120*1320*");
    CHECK(none.frmPlayer().trackCount == 0);
    CHECK(none.list().ListIndex() == -1);
}

TEST_CASE("a number field that is no number is the fatal end") {
    const std::vector<std::string> fields = {"3", "0", "0", "",  "120", "90",  "0",
                                             "0", "",  "0", "0", "120", "1320"};
    for (const std::size_t bad : {1U, 2U, 4U, 5U, 6U, 7U, 9U, 10U, 11U, 12U})
        for (const char* text : {"", "x", "1,5", "1 2"}) {
            std::string line;
            for (std::size_t i = 0; i < fields.size(); ++i)
                line += (i == bad ? text : fields[i]) + "*";
            CHECK(fatalStartWith(line) == typeMismatch);
        }
}

TEST_CASE("a number that is too large for its field is the fatal end") {
    CHECK(fatalStartWith("3*1E309*0**120*90*0*0**0*0*120*1320*") == overflow);
    CHECK(fatalStartWith("3*0*2147483648**120*90*0*0**0*0*120*1320*") == overflow);
    CHECK(fatalStartWith("3*0*0**1E39*90*0*0**0*0*120*1320*") == overflow);
    CHECK(fatalStartWith("3*0*0**120*90*32768*0**0*0*120*1320*") == overflow);
    CHECK(fatalStartWith("3*0*0**120*90*0*-32769**0*0*120*1320*") == overflow);
    CHECK(fatalStartWith("3*0*0**1E11*90*0*0**0*0*120*1320*") == overflow);
    // Its corner is a whole pixel number, its right edge is none.
    CHECK(fatalStartWith("3*0*0**3.22122547E10*90*0*0**0*0*120*1320*") == overflow);
}

TEST_CASE("of several faults in a line the first that is met ends the program") {
    CHECK(fatalStartWith("3*0*0*C:\\a.mp3*x*90*0*0**0*0*120*1320*") == overflow);
    CHECK(fatalStartWith("3*x*0*C:\\a.mp3*x*90*0*0**0*0*120*1320*") == typeMismatch);
    CHECK(fatalStartWith("3*0*0**120*90*99999*0**0*0*x*1320*") == typeMismatch);
}

TEST_CASE("of two faulty numbers that are taken one after the other the first ends the program") {
    const std::size_t order[] = {1, 2, 4, 5, 11, 12, 6, 7, 9, 10};
    const auto lineWith = [](std::size_t one, const char* first, std::size_t other,
                             const char* second) {
        std::vector<std::string> fields = {"3", "0", "0", "",  "120", "90",  "0",
                                           "0", "",  "0", "0", "120", "1320"};
        fields[one] = first;
        fields[other] = second;
        std::string line;
        for (const std::string& field : fields)
            line += field + "*";
        return line;
    };
    for (std::size_t n = 0; n + 1 < std::size(order); ++n) {
        CHECK(fatalStartWith(lineWith(order[n], "1E309", order[n + 1], "x")) == overflow);
        CHECK(fatalStartWith(lineWith(order[n], "x", order[n + 1], "1E309")) == typeMismatch);
    }
}

TEST_CASE("whole-number fields round, ties to even") {
    Player player;
    startWith(player, "3*0*2700.5**120*90*7.5*30.5**0*0*120*1320*");
    CHECK(player.frmPlayer().volumeThumbLeft == 2700);
    CHECK(player.frmPlayer().alarmHour == 8);
    CHECK(player.frmPlayer().alarmMinute == 30);
}

// Reading that fails.

TEST_CASE("a file that can't be read is told with its number and counts as none") {
    for (const int error : {runtime::DeviceError, runtime::PermissionDenied,
                            runtime::PathFileAccess, runtime::PathNotFound}) {
        Player player;
        world.files.addFile(file, wholeLine + "\n");
        world.files.nextReadError = error;
        player.start();
        REQUIRE(world.messages.shown.size() == 1);
        CHECK(world.messages.shown[0].text == "error inconue : " + std::to_string(error));
        CHECK(world.messages.shown[0].title == "Orvan Music Player");
        CHECK(world.messages.shown[0].icon == platform::MessageIcon::None);
        CHECK(player.frmPlayer().trackCount == 0);
        CHECK(player.frmPlayer().window.Left() == 5610);
    }
}

TEST_CASE("a file with nothing in it is told with the number of the end of file") {
    Player player;
    world.files.addFile(file, "");
    player.start();
    REQUIRE(world.messages.shown.size() == 1);
    CHECK(world.messages.shown[0].text == "error inconue : 62");
    // Its number stays taken: the failure has skipped the close.
    CHECK(player.program().files.FreeFile() == 2);
    CHECK(lineAfterQuit(player) == "3*0*0**5610*5145*0*0**0*0*7560*6720*\n");
}

TEST_CASE("a read that works gives the file's number back") {
    Player player;
    startWith(player, wholeLine);
    CHECK(player.program().files.FreeFile() == 1);
}

TEST_CASE("the list field joins paths and takes them apart again") {
    using settings::joinTracks;
    using settings::splitTracks;
    CHECK(joinTracks({}).empty());
    CHECK(joinTracks({"C:\\a.mp3"}) == "C:\\a.mp3//");
    CHECK(joinTracks({"C:\\a.mp3", "C:\\b.mp3"}) == "C:\\a.mp3/C:\\b.mp3//");
    std::string rest;
    CHECK(splitTracks("C:\\a.mp3/C:\\b.mp3//", rest) ==
          std::vector<std::string>{"C:\\a.mp3", "C:\\b.mp3"});
    CHECK(rest.empty());
    splitTracks("a//b//", rest);
    CHECK(rest == std::string("b\0\0", 3));
}
