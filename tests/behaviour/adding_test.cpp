#include "tests/behaviour/adding.h"

#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::fatalMessageOf;
using behaviour::Player;
using simulated::world;
using namespace behaviour::adding;

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

TEST_CASE("a cancelled open dialog forgets nothing of the files picked before it") {
    Player player;
    player.start();
    pick(player, {A, B});
    const std::string names = player.frmPlayer().savedTrackList;
    world.dialogs.cancelFiles();
    player.frmPlayer().openfiles();
    CHECK(titles(player) == Texts{"a.mp3", "b.mp3"});
    CHECK(paths(player) == Texts{A, B});
    CHECK(player.frmPlayer().lastFolder == "C:\\Music");
    CHECK(player.frmPlayer().savedTrackList == names + nul());
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

TEST_CASE("two files added to a list of one select the second entry") {
    Player player;
    player.play({"C:\\1.mp3"});
    pick(player, {A, B});
    CHECK(player.list().ListCount() == 3);
    CHECK(player.list().ListIndex() == 1);
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

TEST_CASE("a file is listed as often as it is added, by itself, among several or by its folder") {
    Player player;
    player.start();
    pick(player, {A, B});
    pick(player, {A, B});
    pick(player, {B});
    walk(player, "C:\\Music");
    walk(player, "C:\\Music");
    CHECK(titles(player) ==
          Texts{"a.mp3", "b.mp3", "a.mp3", "b.mp3", "b.mp3", "a.mp3", "b.mp3", "a.mp3", "b.mp3"});
    CHECK(paths(player) == Texts{A, B, A, B, B, A, B, A, B});
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
    // Blanks at its end don't count, so this is one letter.
    Player again;
    again.start();
    world.dialogs.fillBuffer("x" + std::string(16383, ' '));
    CHECK(fatalMessageOf([&] { again.frmPlayer().openfiles(); }) == "Run-time error 6: Overflow");
}

TEST_CASE("a buffer of nothing but names of one letter is taken apart to its very end") {
    Player player;
    player.start();
    std::string buffer = "C" + nul();
    for (int name = 1; name < 8192; ++name)
        buffer += "x" + nul();
    REQUIRE(buffer.size() == 16384);
    // The last name fills the buffer up: no empty piece ends it.
    world.dialogs.fillBuffer(buffer);
    CHECK(fatalMessageOf([&] { player.frmPlayer().openfiles(); }) == "Run-time error 6: Overflow");
    CHECK(player.frmPlayer().trackCount == 0);
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
    world.dialogs.pickFiles({"D:\\Other\\b.mp3"});
    CHECK(fatalMessageOf([&] { player.frmPlayer().openfiles(); }) == "Run-time error 6: Overflow");
    CHECK(player.frmPlayer().trackCount == 32767);
    CHECK(player.frmPlayer().lastFolder == "C:\\Music\\");
}

TEST_CASE("the 32768th track among several files picked is the fatal end") {
    Player player;
    player.start();
    fillTo32766(player);
    world.dialogs.pickFiles({A, B});
    CHECK(fatalMessageOf([&] { player.frmPlayer().openfiles(); }) == "Run-time error 6: Overflow");
    CHECK(player.frmPlayer().trackCount == 32767);
    CHECK(player.frmPlayer().savedTrackList ==
          "C:\\Music" + nul() + "a.mp3" + nul() + "b.mp3" + nul());
}
