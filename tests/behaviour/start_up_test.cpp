#include "tests/behaviour/player.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

using behaviour::endsTheProcess;
using behaviour::Player;
using simulated::world;

namespace {

/// Where a line stands in the log; the end if it isn't there.
std::size_t placeOf(const std::string& line) {
    const auto& log = simulated::log();
    return static_cast<std::size_t>(std::find(log.begin(), log.end(), line) - log.begin());
}

std::string numbered(const char* what, platform::WindowHandle window) {
    return std::string(what) + " window " + std::to_string(window);
}

/// What was asked for to cut windows, in order.
std::vector<std::string> regionCalls() {
    std::vector<std::string> calls;
    for (const std::string& line : simulated::log())
        if (line.find("region") != std::string::npos || line.starts_with("shape"))
            calls.push_back(line);
    return calls;
}

} // namespace

TEST_CASE("a second copy exits in silence and drops its file") {
    Player player;
    world.desktop.previousInstance = true;
    world.media.addFile("C:\\a.mp3", 1000);
    player.start("C:\\a.mp3");
    CHECK(simulated::log().empty());
    CHECK(world.windows.all.empty());
    CHECK(player.program().engine == nullptr);
    CHECK(world.messages.shown.empty());
    CHECK(world.media.commands().empty());
    CHECK(world.sound.calls.empty());
    CHECK_FALSE(world.tray.icon);
}

TEST_CASE("after the start the main window shows and the playlist hides, both shaped") {
    Player player;
    player.start();
    CHECK(simulated::window(player.mainWindow()).visible);
    CHECK_FALSE(simulated::window(player.playlistWindow()).visible);
    CHECK(simulated::window(player.mainWindow()).shape.has_value());
    CHECK(simulated::window(player.playlistWindow()).shape.has_value());
    CHECK(player.status() == "Idle");
    CHECK_FALSE(player.frmPlayer().Timer1.Enabled());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("the main window shows, the volume is asked for, then both windows get their shapes") {
    Player player;
    player.start();
    const std::size_t shown = placeOf(numbered("show", player.mainWindow()));
    const std::size_t asked = placeOf("volume get 0");
    const std::size_t mainShaped = placeOf(numbered("shape", player.mainWindow()));
    const std::size_t playlistShaped = placeOf(numbered("shape", player.playlistWindow()));
    CHECK(shown < asked);
    CHECK(asked < mainShaped);
    CHECK(mainShaped < playlistShaped);
    CHECK(playlistShaped < simulated::log().size());
    CHECK(placeOf(numbered("show", player.playlistWindow())) == simulated::log().size());
}

TEST_CASE(
    "the work area is read before the wave device is looked for, the shapes are cut after it") {
    Player player;
    world.sound.devices.clear();
    world.desktop.workArea = {60, 30, 1000, 700};
    world.messages.whileOpen([&] {
        CHECK(player.program().workArea == platform::Rect{60, 30, 1000, 700});
        CHECK(simulated::window(player.mainWindow()).visible);
        CHECK_FALSE(simulated::window(player.playlistWindow()).visible);
        CHECK_FALSE(simulated::window(player.mainWindow()).shape.has_value());
        CHECK_FALSE(simulated::window(player.playlistWindow()).shape.has_value());
    });
    player.start();
    REQUIRE(world.messages.shown.size() == 1);
}

TEST_CASE("the playlist is hidden once the main window shows, whatever showed it before") {
    Player player;
    world.watch = [&](const std::string& note) {
        if (note == numbered("show", player.mainWindow())) player.frmPlaylist().window.Show();
    };
    player.start();
    world.watch = nullptr;
    CHECK(simulated::window(player.mainWindow()).visible);
    CHECK_FALSE(simulated::window(player.playlistWindow()).visible);
}

TEST_CASE("both windows get their size before the main one shows, whatever they had before") {
    Player player;
    const auto forms = [&] {
        return std::vector<toolkit::Form*>{&player.frmPlayer().window,
                                           &player.frmPlaylist().window};
    };
    int looks = 0;
    world.watch = [&](const std::string& note) {
        if (note == "read C:\\Orvan\\MyPlayerSettings.mps") {
            for (toolkit::Form* form : forms()) {
                form->Width(3000);
                form->Height(3000);
            }
        } else if (note == numbered("show", player.mainWindow())) {
            ++looks;
            for (toolkit::Form* form : forms()) {
                CHECK(form->Width() == 4140);
                CHECK(form->Height() == 1230);
            }
        }
    };
    player.start();
    world.watch = nullptr;
    CHECK(looks == 1);
}

TEST_CASE("the worker lists and the tray menu are there before the icon is") {
    Player player;
    int looks = 0;
    world.watch = [&](const std::string& note) {
        if (note != "tray 0") return;
        ++looks;
        CHECK(player.frmPlayer().DirTemp != nullptr);
        CHECK(player.frmPlayer().ListDir != nullptr);
        CHECK_FALSE(world.tray.menu.empty());
    };
    player.start();
    world.watch = nullptr;
    CHECK(looks == 1);
}

TEST_CASE("the desktop may ask once both windows are cut, and not before") {
    Player player;
    int looks = 0;
    world.watch = [&](const std::string& note) {
        if (!note.starts_with("shape window")) return;
        ++looks;
        CHECK_FALSE(world.remote.events);
    };
    player.start();
    world.watch = nullptr;
    CHECK(looks == 2);
    CHECK(world.remote.events);
}

TEST_CASE("the work area is that of the moment behind the playlist's hiding") {
    Player player;
    world.watch = [&](const std::string& note) {
        if (note == numbered("show", player.mainWindow())) player.frmPlaylist().window.Show();
        if (note == numbered("hide", player.playlistWindow()))
            world.desktop.workArea = {60, 30, 1000, 700};
    };
    player.start();
    world.watch = nullptr;
    CHECK(player.program().workArea == platform::Rect{60, 30, 1000, 700});
}

TEST_CASE("the windows are cut by these regions, in this order, the first one left unused") {
    Player player;
    player.start();
    CHECK(regionCalls() == std::vector<std::string>{
                               "round region 1 0 0 378 220 20 20",
                               "round region 2 0 0 277 83 15 15",
                               "region 3 0 15 276 82",
                               "combine regions 3 2 3 2",
                               numbered("shape", player.mainWindow()),
                               "region 4 0 0 276 67",
                               "round region 5 0 0 277 83 15 15",
                               "combine regions 5 4 5 2",
                               numbered("shape", player.playlistWindow()),
                           });
}

TEST_CASE("the tray icon is there before the main window and before the settings are read") {
    Player player;
    player.start();
    const std::size_t tray = placeOf("tray 0");
    const std::size_t settings = placeOf("read C:\\Orvan\\MyPlayerSettings.mps");
    const std::size_t shown = placeOf(numbered("show", player.mainWindow()));
    CHECK(placeOf("tray 1") < tray);
    CHECK(tray < settings);
    CHECK(settings < shown);
    CHECK(shown < simulated::log().size());
}

TEST_CASE("both windows are 276 by 82 pixels") {
    Player player;
    player.start();
    for (const auto window : {player.mainWindow(), player.playlistWindow()})
        CHECK(simulated::window(window).size == platform::Size{276, 82});
    CHECK(player.frmPlayer().window.Width() == 4140);
    CHECK(player.frmPlaylist().window.Height() == 1230);
}

TEST_CASE("without settings the main window is centred and the playlist keeps its place") {
    Player player;
    player.start();
    CHECK(player.frmPlayer().window.Left() == (1024 * 15 - 4140) / 2.0);
    CHECK(player.frmPlayer().window.Top() == (768 * 15 - 1230) / 2.0);
    CHECK(player.frmPlaylist().window.Left() == 7560);
    CHECK(player.frmPlaylist().window.Top() == 6720);
    CHECK(player.list().ListCount() == 0);
    CHECK(player.list().ListIndex() == -1);
}

TEST_CASE("without settings the main window is in the middle of the screen, whatever its size") {
    struct Row {
        platform::Size screen;
        platform::Rect workArea;
        float twipsX;
        float twipsY;
    };
    const Row rows[] = {{{1920, 1081}, {60, 30, 1000, 700}, 15, 15},
                        {{640, 480}, {0, 0, 640, 480}, 15, 15},
                        {{800, 600}, {100, 0, 800, 600}, 12, 20}};
    for (const Row& row : rows) {
        CAPTURE(row.screen.width);
        Player player;
        world.desktop.screen = row.screen;
        world.desktop.workArea = row.workArea;
        world.desktop.twipsPerPixelX = row.twipsX;
        world.desktop.twipsPerPixelY = row.twipsY;
        player.start();
        const auto width = static_cast<float>(row.screen.width) * row.twipsX;
        const auto height = static_cast<float>(row.screen.height) * row.twipsY;
        CHECK(player.frmPlayer().window.Left() == (width - 4140) / 2);
        CHECK(player.frmPlayer().window.Top() == (height - 1230) / 2);
        CHECK(player.frmPlaylist().window.Left() == 7560);
        CHECK(player.frmPlaylist().window.Top() == 6720);
    }
}

TEST_CASE("the work area is read once at the start") {
    Player player;
    world.desktop.workArea = {60, 30, 1000, 700};
    player.start();
    world.desktop.workArea = {0, 0, 640, 480};
    simulated::advance(5000);
    CHECK(player.program().workArea == platform::Rect{60, 30, 1000, 700});
}

TEST_CASE("the main window is round above and square below, the playlist the reverse") {
    Player player;
    player.start();
    const auto mainHas = [&](int x, int y) {
        return simulated::inShape(player.mainWindow(), x, y);
    };
    const auto listHas = [&](int x, int y) {
        return simulated::inShape(player.playlistWindow(), x, y);
    };
    CHECK_FALSE(mainHas(0, 0));
    CHECK_FALSE(mainHas(275, 0));
    CHECK(mainHas(138, 0));
    CHECK(mainHas(0, 15));
    CHECK(mainHas(0, 81));
    CHECK(mainHas(275, 81));
    CHECK_FALSE(mainHas(276, 81));
    CHECK_FALSE(mainHas(0, 82));
    CHECK(listHas(0, 0));
    CHECK(listHas(275, 0));
    CHECK(listHas(0, 66));
    CHECK_FALSE(listHas(0, 81));
    CHECK_FALSE(listHas(275, 81));
    CHECK(listHas(138, 81));
}

TEST_CASE("the corners are as wide as the screen has twips per pixel") {
    Player player;
    world.desktop.twipsPerPixelX = 12;
    world.desktop.twipsPerPixelY = 12;
    player.start();
    // 4140 twips are 345 pixels here; the round strip is 12 pixels high, so row 12 is square.
    CHECK_FALSE(simulated::inShape(player.mainWindow(), 0, 0));
    CHECK(simulated::inShape(player.mainWindow(), 0, 12));
    CHECK(simulated::inShape(player.mainWindow(), 344, 101));
    CHECK_FALSE(simulated::inShape(player.mainWindow(), 345, 101));
}

TEST_CASE("each axis is cut by its own twips per pixel, and rounded where it is passed") {
    struct Row {
        float twipsX;
        float twipsY;
        const char* round;
        const char* lower;
        const char* upper;
    };
    const Row rows[] = {
        // 4140 / 12 = 345, 1230 / 20 = 61.5: the even one, also one further and 20 less.
        {12, 20, " 0 0 346 62 12 20", " 0 20 345 62", " 0 0 345 42"},
        {20, 12, " 0 0 208 104 20 12", " 0 12 207 102", " 0 0 207 90"},
        // 4140 / 8 = 517.5, 1230 / 8 = 153.75.
        {8, 8, " 0 0 518 155 8 8", " 0 8 518 154", " 0 0 518 146"},
        // 4140 / 7.5 = 552, 1230 / 7.5 = 164; a corner of 7.5 pixels is one of 8.
        {7.5F, 7.5F, " 0 0 553 165 8 8", " 0 8 552 164", " 0 0 552 156"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.twipsX);
        Player player;
        world.desktop.twipsPerPixelX = row.twipsX;
        world.desktop.twipsPerPixelY = row.twipsY;
        player.start();
        const std::vector<std::string> calls = regionCalls();
        REQUIRE(calls.size() == 9);
        CHECK(calls[1] == std::string("round region 2") + row.round);
        CHECK(calls[2] == std::string("region 3") + row.lower);
        CHECK(calls[5] == std::string("region 4") + row.upper);
        CHECK(calls[6] == std::string("round region 5") + row.round);
    }
}

TEST_CASE("a screen without twips per pixel is the fatal end") {
    Player player;
    world.desktop.twipsPerPixelX = 0;
    const auto message = behaviour::fatalMessageOf([&] { player.program().Main(); });
    REQUIRE(message);
    CHECK(message->find("11: Division by zero") != std::string::npos);
}

TEST_CASE("an mp3 named on the command line is added, selected and played") {
    const std::string tails[] = {"C:\\Music\\a.mp3", "C:\\Music\\B.MP3", "C:\\Music\\c d.Mp3"};
    for (const std::string& tail : tails) {
        CAPTURE(tail);
        Player player;
        world.media.addFile(tail, 3000);
        player.start(tail);
        CHECK(player.frmPlayer().trackCount == 1);
        CHECK(player.frmPlayer().trackPaths[0] == tail);
        CHECK(player.list().List(0) == tail.substr(9));
        CHECK(player.list().ListIndex() == 0);
        CHECK(player.status() == "Playing");
        CHECK(player.frmPlayer().Timer1.Enabled());
    }
}

TEST_CASE("a file from the command line plays before the main window shows") {
    Player player;
    world.media.addFile("C:\\a.mp3", 3000);
    player.start("C:\\a.mp3");
    CHECK(placeOf("send play mpeg from 1 to 3000") <
          placeOf(numbered("show", player.mainWindow())));
}

TEST_CASE("a command line that doesn't end in mp3 is ignored") {
    for (const char* tail :
         {"C:\\Music\\a.wav", "\"C:\\Music\\a.mp3\"", "p3", "mp", "C:\\a.mp3 ", "C:\\Music\\a.WAV",
          "C:\\a.mp3 C:\\b.wav", "C:\\Music\\a.mp", "C:\\a.xp3", ""}) {
        CAPTURE(tail);
        Player player;
        // Each of them is there to be played.
        for (const char* file : {tail, "C:\\Music\\a.mp3", "C:\\a.mp3"})
            if (*file == 'C') world.media.addFile(file, 3000);
        player.start(tail);
        CHECK(world.media.commands().empty());
        CHECK(world.messages.shown.empty());
        CHECK(player.frmPlayer().trackCount == 0);
        CHECK(player.list().ListCount() == 0);
        CHECK(player.status() == "Idle");
        CHECK_FALSE(player.frmPlayer().Timer1.Enabled());
    }
}

TEST_CASE("several paths on the command line are one path, which fails in silence") {
    Player player;
    player.start("C:\\a.mp3 C:\\b.mp3");
    CHECK(player.frmPlayer().trackCount == 1);
    CHECK(player.frmPlayer().trackPaths[0] == "C:\\a.mp3 C:\\b.mp3");
    CHECK(player.list().List(0) == "b.mp3");
    CHECK(player.status() == "Idle");
    CHECK(world.messages.shown.empty());
    CHECK(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("a file from the command line goes behind the saved list, is selected and played") {
    Player player;
    world.files.addFile("C:\\Orvan\\MyPlayerSettings.mps",
                        "3*0*0*C:\\x.mp3/C:\\y.mp3//*120*90*0*0**0*0*120*1320*\r\n");
    world.media.addFile("C:\\a.mp3", 3000);
    world.media.addFile("C:\\x.mp3", 3000);
    player.start("C:\\a.mp3");
    CHECK(player.frmPlayer().trackCount == 3);
    CHECK(player.list().List(0) == "x.mp3");
    CHECK(player.list().List(2) == "a.mp3");
    CHECK(player.list().ListIndex() == 2);
    CHECK(world.media.openPath() == "C:\\a.mp3");
    // The saved list stays in front of it, as a whole, and nothing of it is played.
    const char* paths[] = {"C:\\x.mp3", "C:\\y.mp3", "C:\\a.mp3"};
    CHECK(player.list().ListCount() == 3);
    CHECK(player.list().List(1) == "y.mp3");
    for (int n = 0; n < 3; ++n)
        CHECK(player.frmPlayer().trackPaths[n] == paths[n]);
    CHECK(player.status() == "Playing");
    CHECK(world.media.playing());
    CHECK(world.media.commands().size() == 4);
}

TEST_CASE("the volume thumb follows the device and not the settings") {
    Player player;
    world.files.addFile("C:\\Orvan\\MyPlayerSettings.mps",
                        "3*16200*2500**120*90*0*0**0*0*120*1320*\r\n");
    world.sound.devices = {{0U, 0}};
    player.start();
    CHECK(player.frmPlayer().pctvolume.Left() == 2400);
    CHECK(player.frmPlayer().volumeThumbLeft == 2500);
}

TEST_CASE("every image has exactly the size of its bitmap") {
    Player player;
    player.start();
    int images = 0;
    for (toolkit::Form* form : {&player.frmPlayer().window, &player.frmPlaylist().window})
        for (toolkit::Control* control : form->controls()) {
            const auto* image = dynamic_cast<toolkit::Image*>(control);
            if (image == nullptr) continue;
            CAPTURE(image->name());
            ++images;
            const platform::Rect area = image->area();
            CHECK(image->pictureSize() ==
                  platform::Size{area.right - area.left, area.bottom - area.top});
        }
    CHECK(images == 39);
}

TEST_CASE("tracks added while the message about the settings is up are gone when it is answered") {
    Player player;
    world.files.nextReadError = runtime::DeviceError;
    world.media.addFile("C:\\Music\\a.mp3", 1000);
    world.messages.whileOpen([&] {
        world.dialogs.pickFolder("C:\\Music");
        world.tray.pickFromMenu("Open Directory");
        CHECK(player.frmPlayer().trackCount == 1);
    });
    player.start();
    REQUIRE(world.messages.shown.size() == 1);
    CHECK(player.frmPlayer().trackCount == 0);
    CHECK(endsTheProcess([&] { player.click(player.frmPlayer().pctquit); }));
    const std::string saved = world.files.text("C:\\Orvan\\MyPlayerSettings.mps");
    CHECK(saved.starts_with("3*0*0**"));
}
