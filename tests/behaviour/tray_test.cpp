#include "shell/clsSysTray.h"
#include "tests/behaviour/player.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <utility>

using behaviour::Player;
using simulated::world;

namespace {

/// A tip as the record holds it.
std::string tipOf(const platform::NOTIFYICONDATA& record) {
    return {std::begin(record.szTip), std::end(record.szTip)};
}

std::string blanks(std::size_t count) { return std::string(count, ' '); }

toolkit::FormData formOfAnySize() {
    toolkit::FormData data;
    data.bounds = {0, 0, 300, 300};
    return data;
}

/// An icon of its own, without the player.
struct Icon {
    Icon() { simulated::reset(); }
    void load() {
        tray.LoadIcon(form);
        tray.LButtonDblClk = [this] { ++doubleClicks; };
        tray.RButtonUP = [this] { ++rightReleases; };
    }
    const platform::NOTIFYICONDATA& lastRecord() { return world.tray.calls.back().record; }

    toolkit::Form form{formOfAnySize()};
    clsSysTray tray;
    int doubleClicks = 0;
    int rightReleases = 0;
};

} // namespace

TEST_CASE("at the start the icon is changed in vain, then added with its tip") {
    Player player;
    player.start();
    const auto& calls = world.tray.calls;
    REQUIRE(calls.size() == 2);
    CHECK(calls[0].message == platform::NIM_MODIFY);
    CHECK(tipOf(calls[0].record) == std::string(1, '\0') + blanks(63));
    CHECK(calls[1].message == platform::NIM_ADD);
    CHECK(tipOf(calls[1].record) == "Orvan Music Player" + std::string(1, '\0') + blanks(45));
}

TEST_CASE("the icon's record is the one of 88 bytes with message, icon and tip") {
    Player player;
    player.start();
    for (const auto& call : world.tray.calls) {
        CHECK(call.record.cbSize == 88);
        CHECK(call.record.uID == 1);
        CHECK(call.record.uFlags == 7);
        CHECK(call.record.uCallbackMessage == 512);
        CHECK(call.record.hIcon == platform::applicationIcon());
        CHECK(simulated::window(call.record.hWnd).parent == player.mainWindow());
        CHECK_FALSE(simulated::window(call.record.hWnd).visible);
    }
}

TEST_CASE("the tip ends at its nul and reads exactly as the program's name") {
    Player player;
    player.start();
    CHECK(std::string(world.tray.icon->szTip) == "Orvan Music Player");
}

TEST_CASE("a tip is filled with blanks to 64 characters and cut beyond them") {
    Icon icon;
    icon.load();
    const std::string longest(64, 'x');
    for (const auto& [tip, held] : {std::pair<std::string, std::string>{"Tip", "Tip" + blanks(61)},
                                    {"", blanks(64)},
                                    {longest, longest},
                                    {longest + "yz", longest}}) {
        icon.tray.ToolTip(tip);
        icon.tray.RemoveFromSysTray();
        CHECK(tipOf(icon.lastRecord()) == held);
    }
}

TEST_CASE("a new tip reaches the shell with the next call only") {
    Icon icon;
    icon.load();
    const std::size_t before = world.tray.calls.size();
    icon.tray.ToolTip("Tip");
    CHECK(world.tray.calls.size() == before);
    icon.tray.IconInSysTray();
    CHECK(tipOf(icon.lastRecord()).starts_with("Tip "));
}

TEST_CASE("a double click and a right release are told, every other mouse code is not") {
    Icon icon;
    icon.load();
    icon.tray.IconInSysTray();
    for (std::int32_t code = 500; code <= 530; ++code) {
        icon.doubleClicks = icon.rightReleases = 0;
        world.tray.send(code);
        CHECK(icon.tray.lastTrayMessage == code);
        CHECK(icon.doubleClicks == (code == 515 ? 1 : 0));
        CHECK(icon.rightReleases == (code == 517 ? 1 : 0));
    }
}

TEST_CASE("the codes are the same on a screen of any number of twips per pixel") {
    // At 13.3 the quotient lies just below the code.
    for (const float twips : {12.0F, 15.0F, 20.0F, 7.5F, 13.3F, 5.4F}) {
        Icon icon;
        world.desktop.twipsPerPixelX = twips;
        icon.load();
        icon.tray.IconInSysTray();
        world.tray.send(515);
        world.tray.send(517);
        world.tray.send(514);
        CHECK(icon.doubleClicks == 1);
        CHECK(icon.rightReleases == 1);
    }
}

TEST_CASE("a removed icon is gone from the tray") {
    Icon icon;
    icon.load();
    icon.tray.IconInSysTray();
    REQUIRE(world.tray.icon);
    icon.tray.RemoveFromSysTray();
    CHECK_FALSE(world.tray.icon);
}

TEST_CASE("a single left click on the icon does nothing") {
    Player player;
    player.start();
    player.frmPlayer().window.Hide();
    world.tray.clickLeft();
    CHECK_FALSE(player.frmPlayer().window.Visible());
    CHECK(world.menus.shown.empty());
}

TEST_CASE("a double click on the icon brings the hidden window back and opens no menu") {
    Player player;
    player.start();
    player.frmPlayer().window.Hide();
    world.tray.doubleClick();
    CHECK(player.frmPlayer().window.Visible());
    CHECK(world.menus.shown.empty());
}

TEST_CASE("the tray menu comes at the release of the right button, not at the press") {
    Player player;
    player.start();
    world.tray.send(516);
    CHECK(world.menus.shown.empty());
    world.tray.send(517);
    CHECK(world.menus.shown.size() == 1);
}

TEST_CASE("nothing but a double click on the icon brings a hidden window back") {
    Player player;
    player.start();
    player.frmPlayer().window.Hide();
    for (std::int32_t code = 500; code <= 530; ++code) {
        if (code == 515) continue;
        CAPTURE(code);
        world.menus.shown.clear();
        world.tray.send(code);
        CHECK_FALSE(simulated::window(player.mainWindow()).visible);
        CHECK(world.menus.shown.size() == (code == 517 ? 1 : 0));
    }
    world.tray.send(515);
    CHECK(simulated::window(player.mainWindow()).visible);
}

TEST_CASE("the pointer that moves over the icon brings about nothing") {
    Player player;
    player.start();
    player.frmPlayer().window.Hide();
    simulated::clearLog();
    for (int i = 0; i < 100; ++i)
        world.tray.send(512);
    CHECK(simulated::log().empty());
    CHECK(player.frmPlayer().gSysTray->lastTrayMessage == 512);
}

TEST_CASE("without a tray the player runs all the same") {
    Player player;
    world.tray.present = false;
    player.start();
    CHECK(player.frmPlayer().window.Visible());
    CHECK_FALSE(world.tray.icon);
    CHECK(world.messages.shown.empty());
    CHECK_THROWS_AS(player.click(player.frmPlayer().pctquit), simulated::ProcessEnded);
}

TEST_CASE("an icon that the shell has lost is not put back") {
    Player player;
    player.play({"C:\\a.mp3"});
    world.tray.icon.reset();
    const std::size_t calls = world.tray.calls.size();
    simulated::advance(60'000);
    CHECK(world.tray.calls.size() == calls);
}

TEST_CASE("icon and tip stay the same whatever plays") {
    Player player;
    player.play({"C:\\a.mp3"});
    const std::size_t calls = world.tray.calls.size();
    simulated::advance(10'000);
    player.frmPlayer().nextfile();
    CHECK(world.tray.calls.size() == calls);
    CHECK(std::string(world.tray.icon->szTip) == "Orvan Music Player");
}

TEST_CASE("the window is brought back in two steps, its normal state and the showing") {
    for (const bool byMenu : {false, true}) {
        CAPTURE(byMenu);
        Player player;
        player.start();
        FrmPlayer& form = player.frmPlayer();
        form.window.Hide();
        simulated::clearLog();
        if (byMenu)
            form.mnuPopup.entries.at(0).Click();
        else
            form.gSysTray_LButtonDblClk();
        const std::string window = " window " + std::to_string(player.mainWindow());
        REQUIRE(simulated::log().size() >= 2);
        CHECK(simulated::log()[0] == "normal state of" + window);
        CHECK(simulated::log()[1] == "show" + window);
    }
}

TEST_CASE("a window that refuses its normal state is shown by the double click all the same") {
    Player player;
    player.start();
    player.frmPlayer().window.Hide();
    world.windows.refuseNormalState = true;
    CHECK_NOTHROW(player.frmPlayer().gSysTray_LButtonDblClk());
    CHECK(player.frmPlayer().window.Visible());
    player.frmPlayer().window.Hide();
    const auto& maximized = player.frmPlayer().mnuPopup.entries.at(0);
    CHECK(behaviour::fatalMessageOf([&] { maximized.Click(); }) ==
          "Run-time error 5: Invalid procedure call or argument");
}

TEST_CASE("a failing double click is ignored, the same failure by the menu is the fatal end") {
    Player player;
    player.start();
    const auto breakWindow = [&] {
        player.frmPlayer().window.Unload();
        player.frmPlayer().window.Load = [] { runtime::raise(runtime::DeviceError); };
    };
    breakWindow();
    CHECK_NOTHROW(player.frmPlayer().gSysTray_LButtonDblClk());
    breakWindow();
    const auto& maximized = player.frmPlayer().mnuPopup.entries.at(0);
    CHECK(behaviour::fatalMessageOf([&] { maximized.Click(); }) ==
          "Run-time error 57: Device I/O error");
}

TEST_CASE("a desktop that shows the tray menu itself runs the entries' own handlers") {
    Player player;
    player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    world.tray.pickFromMenu("Next");
    CHECK(player.list().ListIndex() == 1);
    player.frmPlayer().window.Hide();
    world.tray.pickFromMenu("Maximized");
    CHECK(simulated::window(player.mainWindow()).visible);
    world.tray.pickFromMenu("Stop");
    CHECK(player.status() == "Idle");
    world.dialogs.opened.clear();
    world.dialogs.foldersOpened.clear();
    world.tray.pickFromMenu("Open File");
    CHECK(world.dialogs.opened.size() == 1);
    world.tray.pickFromMenu("Open Directory");
    CHECK(world.dialogs.foldersOpened.size() == 1);
}

TEST_CASE("an error in an entry of the desktop's own tray menu is the fatal end") {
    Player player;
    player.start();
    world.dialogs.pickFolder("");
    CHECK(behaviour::fatalMessageOf([&] { world.tray.pickFromMenu("Open Directory"); }) ==
          "Run-time error 5: Invalid procedure call or argument");
}
