#include "tests/behaviour/open_playlist.h"
#include "tests/behaviour/saved_list.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::OpenPlaylist;
using behaviour::savedList;
using simulated::world;

namespace {

using Texts = std::vector<std::string>;

Texts entries(OpenPlaylist& player) {
    Texts texts;
    for (runtime::Int16 n = 0; n < player.list().ListCount(); n += 1)
        texts.push_back(player.list().List(n));
    return texts;
}

/// The names behind the paths, every element of the array.
Texts paths(OpenPlaylist& player) {
    Texts texts;
    const auto& tracks = player.frmPlayer().trackPaths;
    for (std::size_t n = 0; n < tracks.size(); ++n) {
        const std::string& path = tracks[static_cast<std::int32_t>(n)];
        texts.push_back(path.substr(path.rfind('\\') + 1));
    }
    return texts;
}

/// Count, list and paths are in step, with one empty element above the tracks.
void checkLeft(OpenPlaylist& player, const Texts& left, int selected) {
    CHECK(entries(player) == left);
    CHECK(player.frmPlayer().trackCount == static_cast<std::int32_t>(left.size()));
    CHECK(player.selected() == selected);
    Texts expected = left;
    expected.emplace_back();
    CHECK(paths(player) == expected);
}

constexpr const char* settingsFile = "C:\\Orvan\\MyPlayerSettings.mps";

void playToTheEnd() { simulated::advance(201'000); }

} // namespace

TEST_CASE("remove on an empty list does nothing") {
    OpenPlaylist player;
    player.click(player.form.pctClear);
    CHECK(entries(player).empty());
    CHECK(player.selected() == -1);
    CHECK(player.frmPlayer().trackCount == 0);
    CHECK(player.frmPlayer().trackPaths.size() == 0);
}

TEST_CASE("remove all on an empty list shows nothing and leaves one empty path") {
    OpenPlaylist player;
    player.click(player.form.pctClearAll);
    checkLeft(player, {}, -1);
    CHECK(world.messages.shown.empty());
}

TEST_CASE("neither remove nor remove all changes a thing that is seen or kept on an empty list") {
    for (const bool all : {false, true}) {
        CAPTURE(all);
        OpenPlaylist player;
        FrmPlayer& main = player.frmPlayer();
        main.savedTrackList = "left over";
        main.lastFolder = "C:\\Music";
        const auto list = simulated::picture(player.playlistWindow());
        const auto face = simulated::picture(player.mainWindow());
        commandsSent();
        player.click(all ? player.form.pctClearAll : player.form.pctClear);
        CHECK(player.selected() == -1);
        CHECK(player.list().ListCount() == 0);
        CHECK(main.trackCount == 0);
        CHECK(main.savedTrackList == (all ? "" : "left over"));
        CHECK(main.lastFolder == "C:\\Music");
        CHECK_FALSE(main.Timer1.Enabled());
        CHECK(commandsSent().empty());
        CHECK(world.messages.shown.empty());
        CHECK(world.dialogs.opened.empty());
        CHECK(simulated::picture(player.playlistWindow()) == list);
        CHECK(simulated::picture(player.mainWindow()) == face);
    }
}

TEST_CASE("remove empties a list of one, selected or not") {
    for (const int selected : {0, -1}) {
        OpenPlaylist player;
        player.addLetters(1);
        player.list().ListIndex(selected);
        player.click(player.form.pctClear);
        checkLeft(player, {}, -1);
    }
}

TEST_CASE("remove without a selection leaves a longer list alone") {
    OpenPlaylist player;
    player.addLetters(2);
    player.click(player.form.pctClear);
    CHECK(entries(player) == Texts{"a.mp3", "b.mp3"});
    CHECK(player.frmPlayer().trackCount == 2);
    CHECK(paths(player) == Texts{"a.mp3", "b.mp3"});
    CHECK(player.selected() == -1);
}

TEST_CASE("after a removal the entry that followed is selected") {
    OpenPlaylist player;
    player.addLetters(3);
    player.list().ListIndex(1);
    player.click(player.form.pctClear);
    checkLeft(player, {"a.mp3", "c.mp3"}, 1);
}

TEST_CASE("after the first entry's removal the new first one is selected") {
    OpenPlaylist player;
    player.addLetters(3);
    player.list().ListIndex(0);
    player.click(player.form.pctClear);
    checkLeft(player, {"b.mp3", "c.mp3"}, 0);
}

TEST_CASE("after the last entry's removal the first one is selected") {
    OpenPlaylist player;
    player.addLetters(3);
    player.list().ListIndex(2);
    player.click(player.form.pctClear);
    checkLeft(player, {"a.mp3", "b.mp3"}, 0);
}

TEST_CASE("a long list empties by remove alone, entry by entry") {
    OpenPlaylist player;
    player.addLetters(12);
    player.list().ListIndex(5);
    for (int left = 11; left >= 1; --left) {
        player.click(player.form.pctClear);
        CHECK(player.list().ListCount() == left);
        CHECK(player.frmPlayer().trackCount == left);
        Texts expected = entries(player);
        expected.emplace_back();
        CHECK(paths(player) == expected);
    }
    player.click(player.form.pctClear);
    checkLeft(player, {}, -1);
    player.click(player.form.pctClear);
    checkLeft(player, {}, -1);
}

TEST_CASE("tracks added after a removal follow those that are left") {
    OpenPlaylist player;
    player.addLetters(3);
    player.list().ListIndex(0);
    player.click(player.form.pctClear);
    player.addTracks({"C:\\More\\x.mp3"});
    CHECK(entries(player) == Texts{"b.mp3", "c.mp3", "x.mp3"});
    CHECK(paths(player) == Texts{"b.mp3", "c.mp3", "x.mp3"});
    player.list().ListIndex(2);
    player.click(player.form.pctPlsPlay);
    CHECK(player.sounding() == "C:\\More\\x.mp3");
}

TEST_CASE("remove fires as a click: not when the pointer has slid off") {
    OpenPlaylist player;
    player.addLetters(3);
    player.list().ListIndex(0);
    player.clickAndSlideOff(player.form.pctClear);
    player.clickAndSlideOff(player.form.pctClearAll);
    CHECK(player.list().ListCount() == 3);
    player.press(player.form.pctClearAll);
    CHECK(player.list().ListCount() == 3);
    simulated::release();
    CHECK(player.list().ListCount() == 0);
}

TEST_CASE("remove doesn't interrupt the sound, and the display goes on") {
    OpenPlaylist player;
    player.playLetters(3);
    simulated::advance(2000);
    commandsSent();
    player.click(player.form.pctClear);
    player.click(player.form.pctClearAll);
    CHECK(commandsSent().empty());
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlayer().Timer1.Enabled());
    simulated::advance(3000);
    CHECK(player.frmPlaylist().lblPlaying.Caption() == "Playing");
    CHECK(player.frmPlaylist().lblTitle.Caption() == "5 / 200");
}

TEST_CASE("a removal leaves every display as it stands, and the next tick moves each of them on") {
    for (const bool all : {false, true})
        for (const int count : {1, 3}) {
            CAPTURE(all);
            CAPTURE(count);
            OpenPlaylist player;
            player.playLetters(count);
            simulated::advance(10 * 966);
            FrmPlayer& main = player.frmPlayer();
            const auto shown = [&] {
                return Texts{main.lblTimenow.Caption(), player.form.lblTitle.Caption(),
                             player.form.lblPlaying.Caption()};
            };
            const toolkit::Twips thumb = main.pctprogressbar.Left();
            CHECK(shown() == Texts{"-03:10", "10 / 200", "Playing"});
            player.click(all ? player.form.pctClearAll : player.form.pctClear);
            CHECK(shown() == Texts{"-03:10", "10 / 200", "Playing"});
            CHECK(main.pctprogressbar.Left() == thumb);
            simulated::advance(966);
            CHECK(shown() == Texts{"-03:09", "11 / 200", "Playing"});
            CHECK(main.pctprogressbar.Left() > thumb);
        }
}

TEST_CASE("no removal asks the device for anything, whatever is removed and whatever is left") {
    for (int count = 1; count <= 4; ++count)
        for (int selected = -1; selected < count; ++selected)
            for (const bool paused : {false, true})
                for (const bool all : {false, true}) {
                    CAPTURE(count);
                    CAPTURE(selected);
                    OpenPlaylist player;
                    player.playLetters(count);
                    if (paused) player.click(player.form.pctPlsPause);
                    player.list().ListIndex(selected);
                    const std::string status = player.status();
                    REQUIRE(status == (paused ? "Paused" : "Playing"));
                    commandsSent();
                    player.click(all ? player.form.pctClearAll : player.form.pctClear);
                    CHECK(commandsSent().empty());
                    CHECK(player.status() == status);
                    CHECK(player.sounding() == "C:\\Music\\a.mp3");
                    CHECK(player.frmPlayer().Timer1.Enabled());
                    CHECK(player.frmPlayer().pctprogressbar.Visible());
                    CHECK(player.frmPlayer().lblTimenow.Visible());
                    CHECK(world.messages.shown.empty());
                }
}

TEST_CASE("remove leaves the pause keys as they are") {
    OpenPlaylist player;
    player.playLetters(2);
    player.click(player.form.pctPlsPause);
    player.click(player.form.pctClearAll);
    CHECK(player.status() == "Paused");
    CHECK(player.frmPlaylist().pctPlsPauseDown.Visible());
    player.click(player.form.pctPlsPauseDown);
    CHECK(player.status() == "Playing");
}

TEST_CASE("the entry behind a removed playing one is skipped at the end of the track") {
    OpenPlaylist player;
    player.playLetters(3);
    player.click(player.form.pctClear);
    CHECK(player.selected() == 0);
    playToTheEnd();
    CHECK(player.sounding() == "C:\\Music\\c.mp3");
}

TEST_CASE("with nothing behind the entry that followed, the end of the track is the end") {
    OpenPlaylist player;
    player.playLetters(2);
    player.click(player.form.pctClear);
    playToTheEnd();
    CHECK(player.status() == "Idle");
    CHECK_FALSE(world.media.open());
}

TEST_CASE("removing another entry than the one that plays counts the same") {
    OpenPlaylist player;
    player.playLetters(4);
    player.clickRow(1);
    player.click(player.form.pctClear);
    CHECK(player.selected() == 1);
    CHECK(player.sounding() == "C:\\Music\\a.mp3");
    playToTheEnd();
    CHECK(player.sounding() == "C:\\Music\\d.mp3");
}

TEST_CASE("after remove all the track plays to its end and stops, and play asks for files") {
    OpenPlaylist player;
    player.playLetters(3);
    player.click(player.form.pctClearAll);
    checkLeft(player, {}, -1);
    CHECK(player.status() == "Playing");
    playToTheEnd();
    CHECK(player.status() == "Idle");
    CHECK(world.dialogs.opened.empty());
    player.click(player.form.pctPlsPlay);
    CHECK(world.dialogs.opened.size() == 1);
}

TEST_CASE("after remove all with repeat on the end of the track starts nothing") {
    OpenPlaylist player;
    player.playLetters(3);
    player.frmPlayer().lblRepeat_Click();
    player.click(player.form.pctClearAll);
    commandsSent();
    playToTheEnd();
    for (const std::string& command : commandsSent())
        CHECK_FALSE(command.starts_with("open"));
    CHECK(world.dialogs.opened.empty());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("remove all forgets the leftover list text and keeps the last folder") {
    OpenPlaylist player;
    player.addLetters(2);
    player.frmPlayer().savedTrackList = "left over";
    player.frmPlayer().lastFolder = "C:\\Music";
    player.click(player.form.pctClearAll);
    CHECK(player.frmPlayer().savedTrackList.empty());
    CHECK(player.frmPlayer().lastFolder == "C:\\Music");
}

TEST_CASE("remove of the only entry keeps the leftover list text") {
    OpenPlaylist player;
    player.addLetters(1);
    player.frmPlayer().savedTrackList = "left over";
    player.click(player.form.pctClear);
    CHECK(player.frmPlayer().savedTrackList == "left over");
}

TEST_CASE("after remove all the settings hold an empty list") {
    OpenPlaylist player;
    player.addLetters(3);
    player.click(player.form.pctClearAll);
    simulated::closeByUser(player.mainWindow());
    const std::string line = world.files.text("C:\\Orvan\\MyPlayerSettings.mps");
    CHECK(line.find("**") != std::string::npos);
    CHECK(line.find(".mp3") == std::string::npos);
}

TEST_CASE(
    "after remove all the list that is saved is no text at all, and the next start has none") {
    std::string saved;
    {
        OpenPlaylist player;
        player.addLetters(3);
        player.list().ListIndex(1);
        player.click(player.form.pctClearAll);
        CHECK(player.frmPlayer().trackCount == 0);
        CHECK(player.list().ListCount() == 0);
        CHECK(player.selected() == -1);
        simulated::closeByUser(player.mainWindow());
        CHECK(savedList().empty());
        saved = world.files.text(settingsFile);
    }
    behaviour::Player player;
    world.files.addFile(settingsFile, saved);
    player.start();
    CHECK(player.list().ListCount() == 0);
    CHECK(player.list().ListIndex() == -1);
    CHECK(player.frmPlayer().trackCount == 0);
    CHECK(world.messages.shown.empty());
}

TEST_CASE("after a removal the settings hold what is left, in its order") {
    OpenPlaylist player;
    player.addLetters(3);
    player.list().ListIndex(1);
    player.click(player.form.pctClear);
    simulated::closeByUser(player.mainWindow());
    const std::string line = world.files.text("C:\\Orvan\\MyPlayerSettings.mps");
    CHECK(line.find("*C:\\Music\\a.mp3/C:\\Music\\c.mp3//*") != std::string::npos);
}

TEST_CASE("entries removed while the open dialog is up are gone before what it picks arrives") {
    OpenPlaylist player;
    player.playLetters(3);
    world.media.addFile("C:\\Music\\x.mp3", 3000);
    world.menus.choose("File");
    world.dialogs.pickFiles({"C:\\Music\\x.mp3"}, [&] { player.click(player.form.pctClear); });
    player.click(player.form.pctPlsOpen);
    CHECK(entries(player) == Texts{"b.mp3", "c.mp3", "x.mp3"});
    CHECK(player.frmPlayer().trackCount == 3);
    CHECK(player.selected() == 2);
    CHECK(player.sounding() == "C:\\Music\\x.mp3");
}

TEST_CASE("the whole list removed while the open dialog is up leaves what it picks") {
    OpenPlaylist player;
    player.playLetters(3);
    world.media.addFile("C:\\Music\\x.mp3", 3000);
    world.menus.choose("File");
    world.dialogs.pickFiles({"C:\\Music\\x.mp3"}, [&] { player.click(player.form.pctClearAll); });
    player.click(player.form.pctPlsOpen);
    CHECK(entries(player) == Texts{"x.mp3"});
    CHECK(paths(player) == Texts{"x.mp3"});
    CHECK(player.selected() == 0);
    CHECK(player.sounding() == "C:\\Music\\x.mp3");
}

TEST_CASE("a removal that shortens the list keeps the view full") {
    OpenPlaylist player;
    player.addLetters(5);
    player.list().ListIndex(4);
    CHECK(player.firstRow() == 2);
    player.list().TopIndex(2);
    player.list().ListIndex(3);
    player.click(player.form.pctClear);
    CHECK(player.firstRow() == 1);
    CHECK(player.selected() == 3);
}
