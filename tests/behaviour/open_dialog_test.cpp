#include "shell/COpenFileDialog.h"
#include "tests/behaviour/player.h"

#include <cstddef>
#include <string>
#include <vector>

using behaviour::Player;
using simulated::world;

namespace {

constexpr const char* A = "C:\\Music\\a.mp3";
constexpr const char* B = "C:\\Music\\b c.wav";

/// A text as a result buffer of this size holds it.
std::string filled(const std::string& text, std::size_t size) {
    return text + std::string(size - text.size(), '\0');
}

std::string text(const char* characters, std::size_t length) { return {characters, length}; }

} // namespace

TEST_CASE("a fresh open dialog has room for 260 characters and nothing else") {
    const COpenFileDialog dialog;
    CHECK(dialog.MaxFileSize() == 260);
    CHECK(dialog.Flags() == 0);
    CHECK(dialog.hWndParent() == 0);
    for (const std::string& property :
         {dialog.DefaultExt(), dialog.DialogTitle(), dialog.FileName(), dialog.FileTitle(),
          dialog.InitialDir(), dialog.Filter()})
        CHECK(property.empty());
}

TEST_CASE("every property of the open dialog reads as it was written") {
    COpenFileDialog dialog;
    dialog.DefaultExt("mp3");
    dialog.DialogTitle("Pick");
    dialog.FileName("name");
    dialog.FileTitle("title");
    dialog.InitialDir("C:\\Music");
    dialog.Filter("filter");
    dialog.Flags(-1);
    dialog.hWndParent(7);
    dialog.MaxFileSize(-5);
    CHECK(dialog.DefaultExt() == "mp3");
    CHECK(dialog.DialogTitle() == "Pick");
    CHECK(dialog.FileName() == "name");
    CHECK(dialog.FileTitle() == "title");
    CHECK(dialog.InitialDir() == "C:\\Music");
    CHECK(dialog.Filter() == "filter");
    CHECK(dialog.Flags() == -1);
    CHECK(dialog.hWndParent() == 7);
    CHECK(dialog.MaxFileSize() == -5);
}

TEST_CASE("the system's dialog gets the properties in a record of 76 bytes") {
    simulated::reset();
    COpenFileDialog dialog;
    dialog.DialogTitle("Pick");
    dialog.InitialDir("C:\\Music");
    dialog.Filter(text("Sound\0*.mp3\0\0", 13));
    dialog.Flags(524800);
    dialog.DefaultExt("mp3");
    dialog.ShowOpen();
    REQUIRE(world.dialogs.opened.size() == 1);
    const auto& opened = world.dialogs.opened.front();
    CHECK(opened.recordSize == 76);
    CHECK(opened.owner == 0);
    CHECK(opened.title == "Pick");
    CHECK(opened.initialFolder == "C:\\Music");
    CHECK(opened.filter == text("Sound\0*.mp3\0", 12));
    CHECK(opened.flags == 524800);
    CHECK(opened.bufferSize == 260);
    CHECK(opened.defaultExtension == "mp3");
}

TEST_CASE("an owner that is given reaches the system's dialog") {
    Player player;
    player.start();
    COpenFileDialog dialog;
    dialog.hWndParent(player.mainWindow());
    dialog.ShowOpen();
    REQUIRE(world.dialogs.opened.size() == 1);
    CHECK(world.dialogs.opened.front().owner == player.mainWindow());
}

TEST_CASE("a default extension that isn't set reaches the system as an empty text") {
    simulated::reset();
    COpenFileDialog().ShowOpen();
    CHECK(world.dialogs.opened.at(0).defaultExtension == "");
    CHECK(world.dialogs.opened.at(0).title == "");
}

TEST_CASE("a cancelled open dialog is false, leaves no name and shows no message") {
    simulated::reset();
    COpenFileDialog dialog;
    world.dialogs.cancelFiles();
    CHECK_FALSE(dialog.ShowOpen());
    CHECK(dialog.FileName().empty());
    CHECK(dialog.FileTitle().empty());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("a cancel keeps what an earlier selection left") {
    simulated::reset();
    COpenFileDialog dialog;
    dialog.FileTitle("title");
    world.dialogs.pickFiles({A});
    REQUIRE(dialog.ShowOpen());
    dialog.FileTitle("title");
    world.dialogs.cancelFiles();
    CHECK_FALSE(dialog.ShowOpen());
    CHECK(dialog.FileName() == filled(A, 260));
    CHECK(dialog.FileTitle() == "title");
}

TEST_CASE("one file picked is its path and nuls up to the size of the buffer") {
    simulated::reset();
    for (const int size : {260, 16384, 32767}) {
        COpenFileDialog dialog;
        dialog.MaxFileSize(runtime::Int16(size));
        world.dialogs.pickFiles({A});
        CHECK(dialog.ShowOpen());
        CHECK(dialog.FileName() == filled(A, static_cast<std::size_t>(size)));
    }
}

TEST_CASE("several files picked are the folder, the bare names and nuls") {
    simulated::reset();
    COpenFileDialog dialog;
    dialog.Flags(524800);
    world.dialogs.pickFiles({A, B});
    CHECK(dialog.ShowOpen());
    CHECK(dialog.FileName() == filled(text("C:\\Music\0a.mp3\0b c.wav", 22), 260));
}

TEST_CASE("the folder of several files at a drive's root ends in a backslash") {
    simulated::reset();
    COpenFileDialog dialog;
    dialog.Flags(524800);
    world.dialogs.pickFiles({"C:\\a.mp3", "C:\\b.mp3"});
    CHECK(dialog.ShowOpen());
    CHECK(dialog.FileName() == filled(text("C:\\\0a.mp3\0b.mp3", 15), 260));
}

TEST_CASE("the file title reads empty after every confirmed dialog") {
    simulated::reset();
    for (const auto& files : {std::vector<std::string>{A}, std::vector<std::string>{A, B}}) {
        COpenFileDialog dialog;
        dialog.Flags(524800);
        dialog.FileTitle("title");
        world.dialogs.pickFiles(files);
        CHECK(dialog.ShowOpen());
        CHECK(dialog.FileTitle().empty());
    }
}

TEST_CASE("blanks at the very end of the buffer are removed, nuls are not") {
    simulated::reset();
    COpenFileDialog dialog;
    dialog.MaxFileSize(12);
    world.dialogs.fillBuffer(text("C:\\a\0b \0    ", 12));
    CHECK(dialog.ShowOpen());
    CHECK(dialog.FileName() == text("C:\\a\0b \0", 8));
}

TEST_CASE("a selection that doesn't fit the buffer is the same as a cancel") {
    simulated::reset();
    COpenFileDialog dialog;
    dialog.MaxFileSize(14); // the path without its nul
    world.dialogs.pickFiles({A});
    CHECK_FALSE(dialog.ShowOpen());
    CHECK(dialog.FileName().empty());
    CHECK(world.messages.shown.empty());
    dialog.MaxFileSize(15);
    world.dialogs.pickFiles({A});
    CHECK(dialog.ShowOpen());
}

TEST_CASE("the buffer's size is in characters, whatever their bytes") {
    simulated::reset();
    for (const std::string character : {"a", "\xD0\xB6", "\xE9\x9F\xB3", "\xF0\x9F\x8E\xB5"}) {
        std::string path = "C:\\";
        for (int i = 0; i < 16380; ++i)
            path += character;
        COpenFileDialog dialog;
        dialog.MaxFileSize(16384); // the path, which has 16383, and its nul
        world.dialogs.pickFiles({path});
        CHECK(dialog.ShowOpen());
        CHECK(dialog.FileName() == path + '\0');
        CHECK(dialog.FileTitle().empty());
        dialog.FileName("");
        world.dialogs.pickFiles({path + character});
        CHECK_FALSE(dialog.ShowOpen());
        CHECK(dialog.FileName().empty());
    }
}

TEST_CASE("a buffer of no characters takes no selection") {
    simulated::reset();
    COpenFileDialog dialog;
    dialog.MaxFileSize(0);
    world.dialogs.pickFiles({A});
    CHECK_FALSE(dialog.ShowOpen());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("a negative buffer size is told with its number, and no dialog opens") {
    simulated::reset();
    COpenFileDialog dialog;
    dialog.MaxFileSize(-1);
    world.dialogs.pickFiles({A});
    CHECK_FALSE(dialog.ShowOpen());
    CHECK(world.dialogs.opened.empty());
    CHECK(dialog.FileName().empty());
    REQUIRE(world.messages.shown.size() == 1);
    const auto& message = world.messages.shown.front();
    CHECK(message.text == "Error: 5. Invalid procedure call or argument");
    CHECK(message.title == "Show");
    CHECK(message.icon == platform::MessageIcon::None);
}

TEST_CASE("both windows take clicks while the open dialog is up") {
    Player player;
    player.start();
    player.addTracks({"C:\\Music\\1.mp3", "C:\\Music\\2.mp3"});
    player.frmPlaylist().window.Show();
    world.dialogs.cancelFiles([&] {
        player.click(player.frmPlayer().lblRepeat);
        player.click(player.list());
    });
    player.frmPlayer().openfiles();
    CHECK(player.frmPlayer().repeatOn);
    CHECK(player.list().ListIndex() == 1);
}

TEST_CASE("the time goes on while the open dialog is up") {
    Player player;
    player.play({A});
    std::string during;
    world.dialogs.cancelFiles([&] {
        simulated::advance(10'000);
        during = player.frmPlayer().lblTimenow.Caption();
    });
    const std::string before = player.frmPlayer().lblTimenow.Caption();
    player.frmPlayer().openfiles();
    CHECK(during != before);
    CHECK(world.media.playing());
}
