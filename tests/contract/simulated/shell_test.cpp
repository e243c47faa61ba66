#include "platform/shell.h"
#include "platform/simulated/world.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

using namespace simulated;
using platform::MenuItem;
using platform::OPENFILENAME;

namespace {

const std::vector<MenuItem> items = {
    {"Open", 0, {{"Open File", 1, {}}, {"Open Directory", 2, {}}}},
    {"Exit", 3, {}},
};

/// A record as a program fills it, with its buffer.
struct Request {
    explicit Request(std::size_t size) : buffer(4 * size, '\0'), title(4 * size, '\0') {
        record.lpstrFile = buffer.data();
        record.nMaxFile = static_cast<std::uint32_t>(size);
        record.lpstrFileTitle = title.data();
        record.nMaxFileTitle = record.nMaxFile;
        record.lpstrFilter = filter.c_str();
        record.lpstrTitle = "Pick";
        record.lpstrInitialDir = "C:\\Music";
        record.Flags = platform::OFN_EXPLORER | platform::OFN_ALLOWMULTISELECT;
    }

    std::string filter = std::string("Sound\0*.mp3\0", 12) + '\0';
    std::string buffer;
    std::string title;
    OPENFILENAME record;
};

std::string padded(const std::string& text, std::size_t size) {
    return text + std::string(size - text.size(), '\0');
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

platform::NOTIFYICONDATA iconFor(platform::WindowHandle hook) {
    platform::NOTIFYICONDATA record;
    record.hWnd = hook;
    record.uFlags = 7;
    record.uCallbackMessage = 512;
    std::memcpy(record.szTip, "Tip", 4);
    return record;
}

} // namespace

TEST_CASE("a script picks a menu entry by its caption or its id, in sub-menus too") {
    const contract::Window window;
    world.menus.choose("Open Directory");
    world.menus.choose(3);
    world.menus.dismiss();
    CHECK(platform::popupMenu(window.handle, items) == 2);
    CHECK(platform::popupMenu(window.handle, items) == 3);
    CHECK(platform::popupMenu(window.handle, items) == 0);
    CHECK(platform::popupMenu(window.handle, items) == 0);
    CHECK(world.menus.shown.size() == 4);
}

TEST_CASE("an entry that the menu doesn't have fails the test") {
    const contract::Window window;
    world.menus.choose("Paste");
    CHECK_THROWS_AS(platform::popupMenu(window.handle, items), std::logic_error);
    world.menus.choose("Open"); // the head of a sub-menu
    CHECK_THROWS_AS(platform::popupMenu(window.handle, items), std::logic_error);
}

TEST_CASE("time can pass while a menu is open") {
    const contract::Window window;
    int ticks = 0;
    platform::startTimer(100, [&] { ++ticks; });
    world.menus.choose("Exit", [] { advance(1000); });
    CHECK(platform::popupMenu(window.handle, items) == 3);
    CHECK(ticks == 10);
}

TEST_CASE("one file picked is its path and a nul, and the rest of the buffer stays") {
    Request request(64);
    world.dialogs.pickFiles({"C:\\Music\\a song.mp3"});
    CHECK(platform::GetOpenFileNameA(&request.record));
    CHECK(request.buffer == padded("C:\\Music\\a song.mp3", 256));
    CHECK(request.title == padded("a song.mp3", 256));
    CHECK(request.record.nFileOffset == 9);
    CHECK(request.record.nFileExtension == 16);
}

TEST_CASE("several files picked are the folder and the names, each with a nul, and one more") {
    Request request(64);
    world.dialogs.pickFiles({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    CHECK(platform::GetOpenFileNameA(&request.record));
    CHECK(request.buffer == padded(std::string("C:\\Music\0a.mp3\0b.mp3", 20), 256));
    CHECK(request.record.nFileOffset == 9);
}

TEST_CASE("at a root the folder of several files keeps its separator") {
    Request request(64);
    world.dialogs.pickFiles({"C:\\a.mp3", "C:\\b.mp3"});
    CHECK(platform::GetOpenFileNameA(&request.record));
    CHECK(request.buffer == padded(std::string("C:\\\0a.mp3\0b.mp3", 15), 256));
}

TEST_CASE("a selection that fills the buffer fits, one that needs one more character does not") {
    Request exact(9); // "C:\a.mp3" and its nul
    world.dialogs.pickFiles({"C:\\a.mp3"});
    CHECK(platform::GetOpenFileNameA(&exact.record));
    Request small(8);
    world.dialogs.pickFiles({"C:\\a.mp3"});
    CHECK_FALSE(platform::GetOpenFileNameA(&small.record));
    Request several(17); // "C:\", "a.mp3", "b.mp3", their nuls and one more
    world.dialogs.pickFiles({"C:\\a.mp3", "C:\\b.mp3"});
    CHECK(platform::GetOpenFileNameA(&several.record));
    Request tight(16);
    world.dialogs.pickFiles({"C:\\a.mp3", "C:\\b.mp3"});
    CHECK_FALSE(platform::GetOpenFileNameA(&tight.record));
}

TEST_CASE("a selection is counted in characters, whatever their bytes") {
    for (const std::string character : {"a", "\xD0\xB6", "\xE9\x9F\xB3", "\xF0\x9F\x8E\xB5"}) {
        const std::string path = "C:\\" + repeated(character, 60);
        Request exact(64); // with its nul
        world.dialogs.pickFiles({path});
        CHECK(platform::GetOpenFileNameA(&exact.record));
        CHECK(exact.buffer == padded(path, 256));
        Request small(63);
        world.dialogs.pickFiles({path});
        CHECK_FALSE(platform::GetOpenFileNameA(&small.record));
        CHECK(small.buffer == std::string(252, '\0'));
    }
}

TEST_CASE("a cancelled dialog leaves the buffer alone, and what it was asked is on record") {
    Request request(64);
    CHECK_FALSE(platform::GetOpenFileNameA(&request.record));
    CHECK(request.buffer == std::string(256, '\0'));
    REQUIRE(world.dialogs.opened.size() == 1);
    const Dialogs::OpenDialog& asked = world.dialogs.opened[0];
    CHECK(asked.title == "Pick");
    CHECK(asked.initialFolder == "C:\\Music");
    CHECK(asked.filter == std::string("Sound\0*.mp3\0", 12));
    CHECK(asked.flags == 524800);
    CHECK(asked.bufferSize == 64);
}

TEST_CASE("files of several folders can't be picked together") {
    Request request(64);
    world.dialogs.pickFiles({"C:\\a.mp3", "D:\\b.mp3"});
    CHECK_THROWS_AS(platform::GetOpenFileNameA(&request.record), std::logic_error);
}

TEST_CASE("the folder dialog gives an item whose path can be asked for") {
    platform::BROWSEINFO record;
    record.lpszTitle = "Browse";
    world.dialogs.pickFolder("C:\\Music");
    const std::int32_t item = platform::SHBrowseForFolder(&record);
    REQUIRE(item != 0);
    char path[1040] = {};
    CHECK(platform::SHGetPathFromIDList(item, path));
    CHECK(std::string(path) == "C:\\Music");
    CHECK(platform::SHBrowseForFolder(&record) == 0);
    CHECK(world.dialogs.foldersOpened.size() == 2);
    CHECK(world.dialogs.foldersOpened[0].title == "Browse");
}

TEST_CASE("a folder of 259 characters has a path, a longer one is refused with a message") {
    for (const std::string character : {"a", "\xD0\xB6", "\xE9\x9F\xB3", "\xF0\x9F\x8E\xB5"}) {
        platform::BROWSEINFO record;
        record.lpszTitle = "Browse";
        const std::string longest = "C:\\" + repeated(character, 256);
        world.dialogs.pickFolder(longest);
        std::string path(1040, ' ');
        CHECK(platform::SHGetPathFromIDList(platform::SHBrowseForFolder(&record), path.data()));
        CHECK(path.c_str() == longest);
        world.messages.shown.clear();
        world.dialogs.pickFolder(longest + "x");
        CHECK(platform::SHBrowseForFolder(&record) == 0);
        REQUIRE(world.messages.shown.size() == 1);
        CHECK(world.messages.shown[0].text ==
              "The path of this folder is too long:\n" + longest + "x");
        CHECK(world.messages.shown[0].title == "Browse");
    }
}

TEST_CASE("an item without a path leaves the buffer alone") {
    platform::BROWSEINFO record;
    world.dialogs.pickFolder("");
    const std::int32_t item = platform::SHBrowseForFolder(&record);
    REQUIRE(item != 0);
    std::string path(1040, ' ');
    CHECK_FALSE(platform::SHGetPathFromIDList(item, path.data()));
    CHECK(path == std::string(1040, ' '));
}

TEST_CASE("a dialog keeps its owner from the user, and no other window") {
    int presses = 0;
    platform::WindowEvents events;
    events.pointer = [&](const platform::PointerEvent& event) {
        if (event.action == platform::PointerAction::Press) ++presses;
    };
    const contract::Window owner(events);
    platform::showWindow(owner.handle, true);
    platform::BROWSEINFO record;
    record.hOwner = owner.handle;
    world.dialogs.cancelFolder([&] { click(owner.handle, 1, 1); });
    platform::SHBrowseForFolder(&record);
    CHECK(presses == 0);
    record.hOwner = 0;
    world.dialogs.cancelFolder([&] { click(owner.handle, 1, 1); });
    platform::SHBrowseForFolder(&record);
    CHECK(presses == 1);
}

TEST_CASE("message boxes and fatal messages are on record") {
    platform::messageBox("Text", "Title", platform::MessageIcon::Critical);
    platform::fatalMessage("The end");
    REQUIRE(world.messages.shown.size() == 1);
    CHECK(world.messages.shown[0].text == "Text");
    CHECK(world.messages.shown[0].title == "Title");
    CHECK(world.messages.shown[0].icon == platform::MessageIcon::Critical);
    CHECK(world.messages.fatal == std::vector<std::string>{"The end"});
}

TEST_CASE("the tray icon is added once, changed while there, removed once") {
    const contract::Window window;
    auto record = iconFor(platform::createHookWindow(window.handle, [](std::int32_t) {}));
    CHECK_FALSE(platform::Shell_NotifyIconA(platform::NIM_MODIFY, &record));
    CHECK(platform::Shell_NotifyIconA(platform::NIM_ADD, &record));
    CHECK_FALSE(platform::Shell_NotifyIconA(platform::NIM_ADD, &record));
    CHECK(platform::Shell_NotifyIconA(platform::NIM_MODIFY, &record));
    CHECK(std::string(world.tray.icon->szTip) == "Tip");
    CHECK(platform::Shell_NotifyIconA(platform::NIM_DELETE, &record));
    CHECK_FALSE(platform::Shell_NotifyIconA(platform::NIM_DELETE, &record));
    CHECK(world.tray.calls.size() == 6);
    CHECK_THROWS_AS(world.tray.clickLeft(), std::logic_error);
}

TEST_CASE("the user's hands on the tray icon arrive as codes") {
    const contract::Window window;
    std::vector<std::int32_t> codes;
    auto record = iconFor(platform::createHookWindow(
        window.handle, [&](std::int32_t code) { codes.push_back(code); }));
    platform::Shell_NotifyIconA(platform::NIM_ADD, &record);
    world.tray.doubleClick();
    world.tray.clickRight();
    CHECK(codes == std::vector<std::int32_t>{513, 514, 515, 514, 516, 517});
}

TEST_CASE("without a tray every call fails") {
    const contract::Window window;
    auto record = iconFor(platform::createHookWindow(window.handle, [](std::int32_t) {}));
    world.tray.present = false;
    CHECK_FALSE(platform::Shell_NotifyIconA(platform::NIM_ADD, &record));
}
