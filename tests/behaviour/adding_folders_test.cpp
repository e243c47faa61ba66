#include "tests/behaviour/adding.h"

#include <string>

using behaviour::commandsSent;
using behaviour::fatalMessageOf;
using behaviour::Player;
using simulated::world;
using namespace behaviour::adding;

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
    CHECK(player.list().ListIndex() == -1);
    CHECK(world.messages.shown.empty());
    CHECK(world.dialogs.opened.empty());
    CHECK(commandsSent().empty());
}

TEST_CASE("a folder without any MP3 is walked to its depths, and the list stays as it was") {
    Player player;
    player.play({A, B});
    player.list().ListIndex(1);
    commandsSent();
    world.files.addFile("C:\\More\\deep\\down\\a.wav");
    world.files.addFolder("C:\\More\\empty");
    simulated::clearLog();
    walk(player, "C:\\More");
    Texts listed;
    for (const std::string& note : simulated::log())
        if (note.starts_with("list files ")) listed.push_back(note.substr(11));
    CHECK(listed == Texts{"C:\\More", "C:\\More\\deep", "C:\\More\\empty", "C:\\More\\deep\\down"});
    CHECK(paths(player) == Texts{A, B});
    CHECK(titles(player) == Texts{"a.mp3", "b.mp3"});
    CHECK(player.list().ListIndex() == 1);
    CHECK(commandsSent().empty());
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

TEST_CASE("a folder whose files can't be listed is the fatal end, though its folders could be") {
    Player player;
    player.start();
    world.files.addFile(A);
    int listings = 0;
    world.watch = [&](const std::string& note) {
        if (!note.starts_with("list files")) return;
        ++listings;
        world.files.nextListError = 76;
    };
    world.dialogs.pickFolder("C:\\Music");
    CHECK(fatalMessageOf([&] { player.frmPlayer().opendir(); }) ==
          "Run-time error 76: Path not found\nC:\\Music");
    world.watch = nullptr;
    CHECK(listings == 1);
    CHECK(player.frmPlayer().trackCount == 0);
}

TEST_CASE("a folder that is gone is the fatal end") {
    Player player;
    player.start();
    world.dialogs.pickFolder("C:\\Gone");
    CHECK(fatalMessageOf([&] { player.frmPlayer().opendir(); }) ==
          "Run-time error 76: Path not found\nC:\\Gone");
}

TEST_CASE(
    "a folder that vanishes while the tree is walked is the fatal end, and nothing is added") {
    Player player;
    player.start();
    world.files.addFile(A);
    world.files.addFolder("C:\\Music\\gone");
    world.watch = [](const std::string& note) {
        if (note == "list folders C:\\Music\\gone") world.files.remove("C:\\Music\\gone");
    };
    world.dialogs.pickFolder("C:\\Music");
    CHECK(fatalMessageOf([&] { player.frmPlayer().opendir(); }) ==
          "Run-time error 76: Path not found\nC:\\Music\\gone");
    world.watch = nullptr;
    CHECK(player.frmPlayer().trackCount == 0);
}

TEST_CASE(
    "a folder that vanishes before its files are listed is the fatal end, behind the others") {
    Player player;
    player.start();
    world.files.addFile(A);
    world.files.addFile("C:\\Music\\gone\\b.mp3");
    world.watch = [](const std::string& note) {
        if (note == "list files C:\\Music\\gone") world.files.remove("C:\\Music\\gone");
    };
    world.dialogs.pickFolder("C:\\Music");
    CHECK(fatalMessageOf([&] { player.frmPlayer().opendir(); }) ==
          "Run-time error 76: Path not found\nC:\\Music\\gone");
    world.watch = nullptr;
    CHECK(paths(player) == Texts{A});
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
    CHECK(player.list().List(32767) == "b.mp3"); // listed before it counts
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
