#include "tests/behaviour/player.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::endsTheProcess;
using behaviour::fatalMessageOf;
using behaviour::Player;
using simulated::world;

namespace {

using Commands = std::vector<std::string>;

const std::string file = "C:\\Orvan\\MyPlayerSettings.mps";
const std::string oldLine = "3*0*0**120*90*0*0**0*0*120*1320*\n";
constexpr const char* A = "C:\\Music\\a.mp3";
constexpr const char* B = "C:\\Music\\b.mp3";

/// The log from here on, without what only concerns the screen.
Commands logOf(const std::function<void()>& deed) {
    simulated::clearLog();
    deed();
    Commands kept;
    for (const std::string& line : simulated::log())
        if (!line.starts_with("hide") && !line.starts_with("show") && !line.starts_with("paint"))
            kept.push_back(line);
    return kept;
}

void quit(Player& player) {
    CHECK_THROWS_AS(player.click(player.frmPlayer().pctquit), simulated::ProcessEnded);
}

bool saved() { return world.files.exists(file); }

} // namespace

TEST_CASE("quitting takes the icon away, saves, stops the sound and ends the process") {
    Player player;
    player.play({A});
    const Commands log = logOf([&] { quit(player); });
    CHECK(log == Commands{"tray 2", "replace " + file, "send Stop mpeg", "send Close mpeg",
                          "end of the process 0"});
    CHECK_FALSE(world.tray.icon);
    CHECK_FALSE(world.media.open());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("the tray icon's object is there while the settings are written, and gone after it") {
    Player player;
    player.start();
    bool thereThen = false;
    world.watch = [&](const std::string& note) {
        if (note == "replace " + file) thereThen = player.frmPlayer().gSysTray != nullptr;
    };
    simulated::closeByUser(player.mainWindow());
    world.watch = nullptr;
    CHECK(thereThen);
    CHECK(player.frmPlayer().gSysTray == nullptr);
}

TEST_CASE("the worker lists are there while the settings are written, and gone before the stop") {
    Player player;
    player.start();
    const FrmPlayer& form = player.frmPlayer();
    int looks = 0;
    world.watch = [&](const std::string& note) {
        const bool saves = note == "replace " + file;
        if (!saves && note != "send Stop mpeg") return;
        ++looks;
        CHECK((form.gSysTray != nullptr) == saves);
        CHECK((form.DirTemp != nullptr) == saves);
        CHECK((form.ListDir != nullptr) == saves);
    };
    simulated::closeByUser(player.mainWindow());
    world.watch = nullptr;
    CHECK(looks == 2);
}

TEST_CASE("the quit key is up again before the program ends") {
    Player player;
    player.start();
    quit(player);
    // Not by the form, which is gone, but by the control's own state.
    CHECK_FALSE(player.frmPlayer().pctquitdown.shown());
}

TEST_CASE("exit in the tray menu quits the same way") {
    Player player;
    player.play({A});
    world.menus.choose("Exit");
    const Commands log =
        logOf([] { CHECK_THROWS_AS(world.tray.clickRight(), simulated::ProcessEnded); });
    CHECK(log == Commands{"open menu", "pick Exit", "tray 2", "replace " + file, "send Stop mpeg",
                          "send Close mpeg", "end of the process 0"});
}

TEST_CASE("quitting while paused closes the device too") {
    Player player;
    player.play({A});
    player.engine().PauseM();
    commandsSent();
    quit(player);
    CHECK(commandsSent() == Commands{"Stop mpeg", "Close mpeg"});
    CHECK_FALSE(world.media.open());
}

TEST_CASE("quitting with nothing open shows no error") {
    Player player;
    player.start();
    quit(player);
    CHECK(commandsSent() == Commands{"Stop mpeg"});
    CHECK(world.messages.shown.empty());
    CHECK(world.messages.fatal.empty());
    CHECK(saved());
}

TEST_CASE("the saved line holds the windows' places of the running player, playlist shown or not") {
    Player player;
    player.play({A, B});
    player.frmPlaylist().window.Show();
    player.frmPlayer().window.Left(150);
    player.frmPlayer().window.Top(75);
    player.frmPlaylist().window.Left(8010);
    player.frmPlaylist().window.Top(3000);
    quit(player);
    CHECK(world.files.text(file) ==
          "3*0*0*C:\\Music\\a.mp3/C:\\Music\\b.mp3//*150*75*0*0**0*0*8010*3000*\n");
}

TEST_CASE("a player that ends while it is in the tray saves the places where it was hidden") {
    Player player;
    player.start();
    player.click(player.frmPlayer().pctplaylist);
    const auto drag = [](platform::WindowHandle window, platform::Point grip, int x, int y) {
        simulated::pressAt(window, grip.x, grip.y);
        simulated::moveTo(window, grip.x + x, grip.y + y);
        simulated::release();
    };
    drag(player.mainWindow(), {20, 72}, 37, -60);
    drag(player.playlistWindow(), {5, 50}, 50, 90);
    player.click(player.frmPlayer().pctplaylistdown);
    player.click(player.frmPlayer().pctminimise);
    REQUIRE_FALSE(player.frmPlayer().window.Visible());
    REQUIRE_FALSE(player.frmPlaylist().window.Visible());
    world.menus.choose("Exit");
    CHECK_THROWS_AS(world.tray.clickRight(), simulated::ProcessEnded);
    CHECK(world.files.text(file) == "3*0*0**6165*4245*0*0**0*0*8310*8070*\n");
}

TEST_CASE("an alarm that was armed when the player quit lets its time pass in the next run") {
    std::string line;
    {
        Player player;
        world.files.addFile(file, "3*0*0*C:\\Music\\a.mp3//*120*90*7*0**0*0*120*1320*\n");
        player.start();
        player.click(player.frmPlayer().pctalarm);
        player.click(player.frmPlayer().cmdSet);
        REQUIRE(player.frmPlayer().lblshowtime.Caption() == "Timer On");
        quit(player);
        line = world.files.text(file);
    }
    Player player;
    world.files.addFile(file, line);
    world.media.addFile(A, 2000);
    player.start();
    REQUIRE(player.list().ListIndex() == 0);
    // The tick that would start it runs, as after a play and a stop.
    player.frmPlayer().Timer1.Enabled(true);
    simulated::setTimeOfDay(6, 59, 50);
    simulated::advance(20'000);
    CHECK(player.status() == "Idle");
    CHECK(commandsSent().empty());
    CHECK(player.frmPlayer().lblshowtime.Caption() == "Timer off");
}

TEST_CASE("no tick runs between the quit and the end") {
    Player player;
    player.play({A});
    // A tick is overdue, but nothing on the way out lets it through.
    world.events.now += 5000;
    commandsSent();
    CHECK_THROWS_AS(player.frmPlayer().unloadmebaby(), simulated::ProcessEnded);
    CHECK(commandsSent() == Commands{"Stop mpeg", "Close mpeg"});
}

TEST_CASE(
    "settings that can't be written are the fatal end: icon gone, device open, old line kept") {
    struct Fault {
        int error;
        const char* message;
    };
    const Fault faults[] = {
        {runtime::DiskFull, "Run-time error 61: Disk full"},
        {runtime::PermissionDenied, "Run-time error 70: Permission denied"},
        {runtime::PathFileAccess, "Run-time error 75: Path/File access error"},
        {runtime::PathNotFound, "Run-time error 76: Path not found"},
        {runtime::DeviceError, "Run-time error 57: Device I/O error"},
    };
    for (const Fault& fault : faults) {
        CAPTURE(fault.message);
        Player player;
        world.files.addFile(file, oldLine);
        player.play({A});
        world.files.nextReplaceError = fault.error;
        const auto message = fatalMessageOf([&] { player.frmPlayer().unloadmebaby(); });
        REQUIRE(message);
        CHECK(*message == fault.message + ("\n" + file));
        CHECK_FALSE(world.tray.icon);
        CHECK(world.media.open());
        CHECK(world.files.text(file) == oldLine);
    }
}

TEST_CASE("a full disk at the first exit leaves no file behind") {
    Player player;
    player.start();
    world.files.diskFull = true;
    CHECK(fatalMessageOf([&] { player.frmPlayer().unloadmebaby(); }));
    CHECK_FALSE(saved());
}

TEST_CASE("the system closing the window saves and stops, leaves the icon, then the loop ends") {
    Player player;
    player.play({A});
    simulated::after(100, [&] { simulated::closeByUser(player.mainWindow()); });
    int status = -1;
    const Commands log = logOf([&] { status = platform::runEvents(); });
    CHECK(status == 0);
    CHECK(log == Commands{"replace " + file, "send Stop mpeg", "send Close mpeg"});
    CHECK(world.tray.icon);
    CHECK_FALSE(player.frmPlayer().window.loaded());
}

TEST_CASE("settings that can't be written as the system closes the window are the fatal end") {
    Player player;
    world.files.addFile(file, oldLine);
    player.play({A});
    world.files.nextReplaceError = runtime::DiskFull;
    const auto message = fatalMessageOf([&] { simulated::closeByUser(player.mainWindow()); });
    REQUIRE(message);
    CHECK(world.tray.icon);
    CHECK(world.media.open());
    CHECK(world.files.text(file) == oldLine);
}

TEST_CASE("no tick follows once the system has closed the window") {
    Player player;
    player.play({A});
    simulated::closeByUser(player.mainWindow());
    commandsSent();
    simulated::advance(10'000);
    CHECK(commandsSent().empty());
    CHECK_FALSE(player.frmPlayer().window.loaded());
}

TEST_CASE("a close while a dialog is open ends the program once the dialog is gone") {
    Player player;
    player.play({A});
    world.media.addFile(B, 2000);
    world.dialogs.pickFiles({B}, [&] { simulated::closeByUser(player.mainWindow()); });
    commandsSent();
    const Commands log =
        logOf([&] { CHECK_THROWS_AS(player.frmPlayer().openfiles(), simulated::ProcessEnded); });
    CHECK(log.back() == "end of the process 0");
    // What the closed player has saved stands, and nothing plays again.
    CHECK(world.files.text(file).find("b.mp3") == std::string::npos);
    CHECK(commandsSent() == Commands{"Stop mpeg", "Close mpeg"});
    CHECK(std::count(log.begin(), log.end(), "tray 0") == 0);
}

TEST_CASE("a close while the folder dialog is open ends the program, and no folder is walked") {
    Player player;
    player.play({A});
    world.files.addFile("C:\\Music\\new.mp3");
    world.dialogs.pickFolder("C:\\Music", [&] { simulated::closeByUser(player.mainWindow()); });
    CHECK_THROWS_AS(player.frmPlayer().opendir(), simulated::ProcessEnded);
    CHECK(simulated::log().back() == "end of the process 0");
    CHECK(world.files.text(file).find("new.mp3") == std::string::npos);
}

TEST_CASE("a close while the tray menu is open ends the program, whatever is picked") {
    for (const char* entry : {"Exit", "Stop"}) {
        CAPTURE(entry);
        Player player;
        player.play({A});
        world.menus.choose(entry, [&] { simulated::closeByUser(player.mainWindow()); });
        CHECK_THROWS_AS(world.tray.clickRight(), simulated::ProcessEnded);
        CHECK(simulated::log().back() == "end of the process 0");
    }
}

TEST_CASE("a close inside the yield of a drag ends the program there") {
    Player player;
    player.play({A});
    simulated::advance(50'000);
    player.press(player.frmPlayer().pctprogressbar);
    REQUIRE(player.frmPlayer().mouseHeld);
    simulated::post([&] { simulated::closeByUser(player.mainWindow()); });
    CHECK_THROWS_AS(player.moveFrom(player.frmPlayer().pctprogressbar, 10),
                    simulated::ProcessEnded);
    CHECK(saved());
    CHECK_FALSE(world.media.open());
    CHECK(world.messages.fatal.empty());
}

TEST_CASE("a close behind the fatal message saves nothing") {
    Player player;
    world.files.addFile(file, oldLine);
    player.play({A});
    world.files.nextReplaceError = runtime::DiskFull;
    world.messages.whileOpen([&] { simulated::closeByUser(player.mainWindow()); });
    CHECK(fatalMessageOf([&] { player.frmPlayer().unloadmebaby(); }));
    CHECK(world.files.text(file) == oldLine);
    CHECK(world.messages.fatal.size() == 1);
}

TEST_CASE("quit from inside a dialog's time ends the process at once") {
    Player player;
    player.play({A});
    world.dialogs.cancelFiles([&] { player.frmPlayer().unloadmebaby(); });
    CHECK_THROWS_AS(player.frmPlayer().openfiles(), simulated::ProcessEnded);
    CHECK(saved());
    CHECK_FALSE(world.tray.icon);
}

TEST_CASE("a close while the start's message is up ends the program when it is answered") {
    Player player;
    world.files.nextReadError = runtime::DeviceError;
    world.messages.whileOpen([&] { simulated::closeByUser(player.mainWindow()); });
    CHECK(endsTheProcess([&] { player.start(); }));
    CHECK(world.messages.fatal.empty());
}
