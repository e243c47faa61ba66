#include "tests/behaviour/player.h"

#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::fatalMessageOf;
using behaviour::Player;
using simulated::world;

namespace {

using Texts = std::vector<std::string>;

constexpr const char* A = "C:\\Music\\a.mp3";
constexpr const char* B = "C:\\Music\\b.mp3";
constexpr const char* C = "C:\\Music\\c.mp3";

std::string nul() { return {'\0'}; }

Texts titles(Player& player) {
    Texts shown;
    for (runtime::Int16 i = 0; i < player.list().ListCount(); i += 1)
        shown.push_back(player.list().List(i));
    return shown;
}

Texts paths(Player& player) {
    Texts stored;
    for (runtime::Int16 i = 0; i < player.frmPlayer().trackCount; i += 1)
        stored.push_back(player.frmPlayer().trackPaths[i]);
    return stored;
}

/// Picks files in the open dialog; they exist as tracks of 200 seconds.
void pick(Player& player, const Texts& files) {
    for (const std::string& file : files)
        world.media.addFile(file, 200'000);
    world.dialogs.pickFiles(files);
    player.frmPlayer().openfiles();
}

void walk(Player& player, const std::string& folder) {
    world.dialogs.pickFolder(folder);
    player.frmPlayer().opendir();
}

/// Fills the list up to 32766 tracks: a folder, over and over.
void fillTo32766(Player& player) {
    for (int i = 0; i < 127; ++i)
        world.files.addFile("C:\\Many\\" + std::to_string(i) + ".mp3");
    for (int i = 0; i < 258; ++i)
        walk(player, "C:\\Many");
    REQUIRE(player.frmPlayer().trackCount == 32766);
    REQUIRE(player.list().ListCount() == 32766);
}

} // namespace

TEST_CASE("files are picked from audio files, several at once, in the folder of the last ones") {
    Player player;
    player.start();
    player.frmPlayer().lastFolder = "C:\\Music\\";
    player.frmPlayer().openfiles();
    REQUIRE(world.dialogs.opened.size() == 1);
    const auto& opened = world.dialogs.opened.front();
    CHECK(opened.bufferSize == 16384);
    CHECK(opened.filter == std::string("Supported audio\0*.MP3;*.wav;\0", 29));
    CHECK(opened.flags == 524800);
    CHECK(opened.title == "Open File - Orvan Music Player");
    CHECK(opened.initialFolder == "C:\\Music\\");
    CHECK(opened.owner == 0);
    CHECK(opened.defaultExtension == "");
}

TEST_CASE("a cancelled open dialog adds nothing but a nul to the text of names") {
    Player player;
    player.start();
    player.frmPlayer().savedTrackList = "left";
    world.dialogs.cancelFiles();
    player.frmPlayer().openfiles();
    CHECK(titles(player).empty());
    CHECK(player.list().ListIndex() == -1);
    CHECK(player.frmPlayer().savedTrackList == "left" + nul());
    CHECK(player.frmPlayer().lastOpenResult.empty());
    CHECK(player.frmPlayer().lastFolder.empty());
    CHECK(commandsSent().empty());
    CHECK_FALSE(player.frmPlayer().Timer1.Enabled());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("a cancelled open dialog leaves selection and sound as they are") {
    Player player;
    player.play({A, B});
    player.list().ListIndex(1);
    commandsSent();
    world.dialogs.cancelFiles();
    player.frmPlayer().openfiles();
    CHECK(player.list().ListIndex() == 1);
    CHECK(commandsSent().empty());
    CHECK(world.media.openPath() == A);
}

TEST_CASE("one file picked is added by its path and title, selected and played") {
    Player player;
    player.start();
    pick(player, {A});
    CHECK(titles(player) == Texts{"a.mp3"});
    CHECK(paths(player) == Texts{A});
    CHECK(player.frmPlayer().trackCount == 1);
    CHECK(player.list().ListIndex() == 0);
    CHECK(world.media.openPath() == A);
    CHECK(player.status() == "Playing");
}

TEST_CASE("the folder of one file picked ends in a backslash, that of several does not") {
    Player player;
    player.start();
    pick(player, {A});
    CHECK(player.frmPlayer().lastFolder == "C:\\Music\\");
    pick(player, {A, B});
    CHECK(player.frmPlayer().lastFolder == "C:\\Music");
    pick(player, {"C:\\a.mp3"});
    CHECK(player.frmPlayer().lastFolder == "C:\\");
}

TEST_CASE("the next open dialog starts in the folder of the files picked last") {
    Player player;
    player.start();
    pick(player, {A, B});
    player.frmPlayer().openfiles();
    CHECK(world.dialogs.opened.at(1).initialFolder == "C:\\Music");
}

TEST_CASE("several files picked are added in the dialog's order, the first new one plays") {
    Player player;
    player.start();
    pick(player, {B, A, C});
    CHECK(titles(player) == Texts{"b.mp3", "a.mp3", "c.mp3"});
    CHECK(paths(player) == Texts{B, A, C});
    CHECK(player.list().ListIndex() == 0);
    CHECK(world.media.openPath() == B);
}

TEST_CASE("three files added to a list of five select the sixth entry") {
    Player player;
    player.play({"C:\\1.mp3", "C:\\2.mp3", "C:\\3.mp3", "C:\\4.mp3", "C:\\5.mp3"});
    pick(player, {A, B, C});
    CHECK(player.list().ListCount() == 8);
    CHECK(player.list().ListIndex() == 5);
    CHECK(world.media.openPath() == A);
}

TEST_CASE("one file added to a list of two is selected and played in place of what sounds") {
    Player player;
    player.play({A, B});
    pick(player, {C});
    CHECK(player.list().ListIndex() == 2);
    CHECK(world.media.openPath() == C);
    CHECK(player.status() == "Playing");
}

TEST_CASE("several files at a drive's root are stored with two backslashes, and play") {
    Player player;
    player.start();
    pick(player, {"C:\\a.mp3", "C:\\b.mp3"});
    CHECK(paths(player) == Texts{"C:\\\\a.mp3", "C:\\\\b.mp3"});
    CHECK(titles(player) == Texts{"a.mp3", "b.mp3"});
    CHECK(player.frmPlayer().lastFolder == "C:\\");
    CHECK(player.status() == "Playing");
}

TEST_CASE("the same file added twice is two entries") {
    Player player;
    player.start();
    pick(player, {A});
    pick(player, {A});
    CHECK(titles(player) == Texts{"a.mp3", "a.mp3"});
    CHECK(player.list().ListIndex() == 1);
}

TEST_CASE("files added while paused only wait: the paused track resumes") {
    Player player;
    player.play({A});
    player.engine().PauseM();
    commandsSent();
    pick(player, {B});
    CHECK(player.list().ListIndex() == 1);
    CHECK(world.media.openPath() == A);
    CHECK(player.status() == "Playing");
}

TEST_CASE("the text of names is the folder and the names of the latest several files") {
    Player player;
    player.start();
    player.frmPlayer().savedTrackList = "left";
    pick(player, {A});
    CHECK(player.frmPlayer().savedTrackList == "left" + nul());
    pick(player, {A, B});
    CHECK(player.frmPlayer().savedTrackList ==
          "C:\\Music" + nul() + "a.mp3" + nul() + "b.mp3" + nul() + nul());
    pick(player, {C});
    CHECK(player.frmPlayer().savedTrackList ==
          "C:\\Music" + nul() + "a.mp3" + nul() + "b.mp3" + nul() + nul() + nul());
}

TEST_CASE("the latest dialog's buffer is kept as it came") {
    Player player;
    player.start();
    pick(player, {A});
    CHECK(player.frmPlayer().lastOpenResult == A + std::string(16384 - 14, '\0'));
    player.frmPlayer().openfiles();
    CHECK(player.frmPlayer().lastOpenResult.empty());
}

TEST_CASE("a selection too long for the buffer adds nothing and shows nothing") {
    Player player;
    player.start();
    Texts files;
    for (int i = 0; i < 1000; ++i)
        files.push_back("C:\\Music\\track number " + std::to_string(1000 + i) + ".mp3");
    world.dialogs.pickFiles(files);
    player.frmPlayer().openfiles();
    CHECK(titles(player).empty());
    CHECK(world.messages.shown.empty());
    CHECK(commandsSent().empty());
}

TEST_CASE("a buffer full of names up to its end is taken apart") {
    Player player;
    player.start();
    std::string buffer = "C:\\Music" + nul();
    int count = 0;
    for (; buffer.size() + 6 < 16383; ++count)
        buffer += "x.mp3" + nul();
    buffer += std::string(16384 - buffer.size(), '\0');
    world.dialogs.fillBuffer(buffer);
    player.frmPlayer().openfiles();
    CHECK(player.list().ListCount() == count);
}

TEST_CASE("a confirmed buffer that starts with a nul adds nothing, and play is asked for") {
    Player player;
    player.start();
    world.dialogs.fillBuffer(nul());
    player.frmPlayer().openfiles();
    CHECK(titles(player).empty());
    // The empty list has the play open the dialog once more, which is cancelled.
    CHECK(player.frmPlayer().savedTrackList == nul() + nul());
    CHECK(world.dialogs.opened.size() == 2);
    CHECK(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("a buffer without any nul is the fatal end") {
    Player player;
    player.start();
    world.dialogs.fillBuffer(std::string(16384, 'x'));
    CHECK(fatalMessageOf([&] { player.frmPlayer().openfiles(); }) == "Run-time error 6: Overflow");
}

TEST_CASE("the list may change while the open dialog is up") {
    Player player;
    player.play({A, B});
    world.media.addFile(C, 200'000);
    world.dialogs.pickFiles({C}, [&] { player.frmPlayer().clearall(); });
    player.frmPlayer().openfiles();
    CHECK(titles(player) == Texts{"c.mp3"});
    CHECK(paths(player) == Texts{C});
    CHECK(player.list().ListIndex() == 0);
    CHECK(world.media.openPath() == C);
}

TEST_CASE("files can be added past the 16384th track, and the 32768th is the fatal end") {
    Player player;
    player.start();
    fillTo32766(player);
    pick(player, {A});
    CHECK(player.frmPlayer().trackCount == 32767);
    CHECK(player.list().ListIndex() == 32766);
    CHECK(world.media.openPath() == A);
    world.dialogs.pickFiles({B});
    CHECK(fatalMessageOf([&] { player.frmPlayer().openfiles(); }) == "Run-time error 6: Overflow");
    CHECK(player.frmPlayer().trackCount == 32767);
}

TEST_CASE("the 32768th track among several files picked is the fatal end") {
    Player player;
    player.start();
    fillTo32766(player);
    world.dialogs.pickFiles({A, B});
    CHECK(fatalMessageOf([&] { player.frmPlayer().openfiles(); }) == "Run-time error 6: Overflow");
    CHECK(player.frmPlayer().trackCount == 32767);
}

TEST_CASE("a folder is added breadth first: its files, its children's, then its grandchildren's") {
    Player player;
    player.start();
    world.files.addFile("C:\\Music\\b child\\grandchild\\5.mp3");
    world.files.addFile("C:\\Music\\b child\\4.mp3");
    world.files.addFile("C:\\Music\\A child\\deep\\6.mp3");
    world.files.addFile("C:\\Music\\A child\\3.mp3");
    world.files.addFile("C:\\Music\\2.mp3");
    world.files.addFile("C:\\Music\\1.mp3");
    walk(player, "C:\\Music");
    CHECK(paths(player) == Texts{"C:\\Music\\2.mp3", "C:\\Music\\1.mp3",
                                 "C:\\Music\\A child\\3.mp3", "C:\\Music\\b child\\4.mp3",
                                 "C:\\Music\\A child\\deep\\6.mp3",
                                 "C:\\Music\\b child\\grandchild\\5.mp3"});
    CHECK(titles(player) == Texts{"2.mp3", "1.mp3", "3.mp3", "4.mp3", "6.mp3", "5.mp3"});
}

TEST_CASE("a folder adds MP3 files in any letter case, no wave files and no hidden ones") {
    Player player;
    player.start();
    world.files.addFile("C:\\Music\\a.MP3");
    world.files.addFile("C:\\Music\\b.Mp3");
    world.files.addFile("C:\\Music\\c.wav");
    world.files.addFile("C:\\Music\\d.mp3.txt");
    world.files.addFile("C:\\Music\\mp3");
    world.files.addHiddenFile("C:\\Music\\e.mp3");
    world.files.addFolder("C:\\Music\\f.mp3");
    walk(player, "C:\\Music");
    CHECK(titles(player) == Texts{"a.MP3", "b.Mp3"});
}

TEST_CASE(
    "a folder that is reached by two paths is added by both, and no link makes a walk endless") {
    Player player;
    player.start();
    world.files.addFile("C:\\Music\\real\\1.mp3");
    world.files.addFolderLink("C:\\Music\\x link", "C:\\Music\\real");
    world.files.addFolderLink("C:\\Music\\real\\loop", "C:\\Music");
    walk(player, "C:\\Music");
    CHECK(paths(player) == Texts{"C:\\Music\\real\\1.mp3", "C:\\Music\\x link\\1.mp3"});
}

TEST_CASE("folders are walked in the order of the user's language, without the hidden ones") {
    Player player;
    player.start();
    for (const char* name : {"beta", "\xC3\x89tude", "_new", "Fugue", "ALPHA", "alpha", "[1]"})
        world.files.addFile(std::string("C:\\Music\\") + name + "\\x.mp3");
    world.files.addHiddenFolder("C:\\Music\\Trash");
    world.files.addFile("C:\\Music\\Trash\\x.mp3");
    walk(player, "C:\\Music");
    Texts expected;
    for (const char* name : {"[1]", "_new", "ALPHA", "alpha", "beta", "\xC3\x89tude", "Fugue"})
        expected.push_back(std::string("C:\\Music\\") + name + "\\x.mp3");
    CHECK(paths(player) == expected);
}

TEST_CASE("adding a folder selects nothing, plays nothing and remembers no folder") {
    Player player;
    player.start();
    player.frmPlayer().lastFolder = "C:\\Other";
    player.frmPlayer().savedTrackList = "left";
    world.media.addFile(A, 200'000);
    walk(player, "C:\\Music");
    CHECK(player.list().ListIndex() == -1);
    CHECK(commandsSent().empty());
    CHECK_FALSE(player.frmPlayer().Timer1.Enabled());
    CHECK(player.frmPlayer().lastFolder == "C:\\Other");
    CHECK(player.frmPlayer().savedTrackList == "left");
    // With nothing selected, play stays quiet until an entry is.
    player.frmPlayer().startfile();
    CHECK(world.messages.shown.empty());
    CHECK(player.status() == "Idle");
    player.list().ListIndex(0);
    player.frmPlayer().startfile();
    CHECK(world.media.openPath() == A);
}

TEST_CASE("a folder goes behind what the list holds, and what sounds goes on") {
    Player player;
    player.play({A, B});
    commandsSent();
    world.files.addFile("C:\\More\\d.mp3");
    walk(player, "C:\\More");
    CHECK(titles(player) == Texts{"a.mp3", "b.mp3", "d.mp3"});
    CHECK(player.list().ListIndex() == 0);
    CHECK(commandsSent().empty());
}

TEST_CASE("the tracks of a drive's root have one backslash behind the drive") {
    Player player;
    player.start();
    world.files.addFile("C:\\a.mp3");
    world.files.addFile("C:\\x\\b.mp3");
    walk(player, "C:\\");
    CHECK(paths(player) == Texts{"C:\\a.mp3", "C:\\x\\b.mp3"});
}

TEST_CASE("a folder without any MP3 adds nothing and shows nothing") {
    Player player;
    player.start();
    world.files.addFile("C:\\Music\\deep\\down\\a.wav");
    walk(player, "C:\\Music");
    CHECK(titles(player).empty());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("a second folder is walked without the leftovers of the first") {
    Player player;
    player.start();
    world.files.addFile(A);
    world.files.addFile("C:\\More\\d.mp3");
    walk(player, "C:\\Music");
    walk(player, "C:\\More");
    CHECK(titles(player) == Texts{"a.mp3", "d.mp3"});
}

TEST_CASE("a cancelled folder dialog adds nothing") {
    Player player;
    player.start();
    player.addTracks({A});
    world.dialogs.cancelFolder();
    player.frmPlayer().opendir();
    CHECK(titles(player) == Texts{"a.mp3"});
    CHECK(player.list().ListIndex() == -1);
}

TEST_CASE("both open keys stand released after a folder dialog, cancelled or not") {
    for (const bool cancelled : {true, false}) {
        Player player;
        player.start();
        player.frmPlayer().pctopen.Visible(false);
        player.frmPlayer().pctopendown.Visible(true);
        player.frmPlaylist().pctPlsOpen.Visible(false);
        player.frmPlaylist().pctPlsOpenDown.Visible(true);
        world.files.addFile(A);
        if (!cancelled) world.dialogs.pickFolder("C:\\Music");
        player.frmPlayer().opendir();
        CHECK(player.frmPlayer().pctopen.Visible());
        CHECK_FALSE(player.frmPlayer().pctopendown.Visible());
        CHECK(player.frmPlaylist().pctPlsOpen.Visible());
        CHECK_FALSE(player.frmPlaylist().pctPlsOpenDown.Visible());
    }
}

TEST_CASE("a folder that can't be entered is the fatal end, and nothing of the walk is added") {
    Player player;
    player.start();
    world.files.addFile(A);
    world.dialogs.pickFolder("C:\\Music", [] { world.files.nextListError = 75; });
    CHECK(fatalMessageOf([&] { player.frmPlayer().opendir(); }) ==
          "Run-time error 75: Path/File access error\nC:\\Music");
    CHECK(player.frmPlayer().trackCount == 0);
}

TEST_CASE("a folder that is gone is the fatal end") {
    Player player;
    player.start();
    world.dialogs.pickFolder("C:\\Gone");
    CHECK(fatalMessageOf([&] { player.frmPlayer().opendir(); }) ==
          "Run-time error 76: Path not found\nC:\\Gone");
}

TEST_CASE("no tick runs while a folder is walked") {
    Player player;
    player.play({A});
    for (int i = 0; i < 50; ++i)
        world.files.addFile("C:\\More\\" + std::to_string(i) + "\\x.mp3");
    world.dialogs.pickFolder("C:\\More", [] { commandsSent(); });
    player.frmPlayer().opendir();
    CHECK(commandsSent().empty());
    CHECK(player.list().ListCount() == 51);
}

TEST_CASE("the 32768th track of a folder walk is the fatal end") {
    Player player;
    player.start();
    fillTo32766(player);
    world.files.addFile(A);
    world.files.addFile(B);
    world.dialogs.pickFolder("C:\\Music");
    CHECK(fatalMessageOf([&] { player.frmPlayer().opendir(); }) == "Run-time error 6: Overflow");
    CHECK(player.frmPlayer().trackCount == 32767);
}

TEST_CASE("the 32768th folder of a walk is the fatal end, and adds nothing") {
    Player player;
    player.start();
    world.files.addFile("C:\\Music\\a.mp3");
    for (int i = 0; i < 32767; ++i)
        world.files.addFolder("C:\\Music\\" + std::to_string(i));
    world.dialogs.pickFolder("C:\\Music");
    CHECK(fatalMessageOf([&] { player.frmPlayer().opendir(); }) == "Run-time error 6: Overflow");
    CHECK(player.list().ListCount() == 0);
}
