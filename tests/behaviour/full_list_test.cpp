#include "tests/behaviour/adding.h"
#include "tests/behaviour/open_playlist.h"
#include "tests/behaviour/saved_list.h"

#include <cstddef>
#include <string>
#include <vector>

using behaviour::endsTheProcess;
using behaviour::fatalMessageOf;
using behaviour::OpenPlaylist;
using behaviour::Player;
using behaviour::savedList;
using simulated::Key;
using simulated::world;
using namespace behaviour::adding;

namespace {

constexpr const char* settingsFile = "C:\\Orvan\\MyPlayerSettings.mps";
constexpr const char* last = "C:\\Music\\last.mp3";

/// Fills the list up to all the tracks that it holds.
void fill(Player& player) {
    fillTo32766(player);
    pick(player, {last});
    REQUIRE(player.list().ListCount() == 32767);
}

} // namespace

TEST_CASE("a list of 32767 tracks is scrolled through from end to end, and the ends meet") {
    OpenPlaylist player;
    fill(player);
    player.list().ListIndex(0);
    for (int row = 1; row <= 32764; ++row) {
        player.click(player.form.pctLBoxDownUp);
        if (player.firstRow() != row) FAIL("it stands at row " << player.firstRow());
        world.text.drawn.clear();
        simulated::clearLog();
    }
    player.click(player.form.pctLBoxDownUp);
    CHECK(player.firstRow() == 0);
    player.click(player.form.pctLBoxUpUp);
    CHECK(player.firstRow() == 32764);
    player.turnWheel(30);
    CHECK(player.firstRow() == 32764);
    player.turnWheel(-40000);
    CHECK(player.firstRow() == 0);
    player.turnWheel(40000);
    CHECK(player.firstRow() == 32764);
    CHECK(world.text.shows("last.mp3"));
    CHECK(player.selected() == 0);
}

TEST_CASE("the keys of a list go to both ends of 32767 tracks and no further") {
    OpenPlaylist player;
    fill(player);
    const auto type = [&](Key key) {
        simulated::typeKey(player.playlistWindow(), key);
        return player.selected();
    };
    CHECK(type(Key::Home) == 0);
    CHECK(type(Key::End) == 32766);
    CHECK(player.firstRow() == 32764);
    CHECK(type(Key::Down) == 32766);
    CHECK(type(Key::PageDown) == 32766);
    CHECK(type(Key::Up) == 32765);
    simulated::typeText(player.playlistWindow(), "l");
    CHECK(player.selected() == 32766);
    simulated::typeText(player.playlistWindow(), "0");
    CHECK(player.selected() == 0);
    CHECK(type(Key::PageUp) == 0);
}

TEST_CASE("the last of 32767 tracks plays, and next and previous go round from it") {
    Player player;
    player.start();
    fill(player);
    CHECK(world.media.openPath() == last);
    player.frmPlayer().nextfile();
    CHECK(player.list().ListIndex() == 32766);
    player.frmPlayer().repeatOn = true;
    player.frmPlayer().nextfile();
    CHECK(player.list().ListIndex() == 0);
    player.frmPlayer().prevfile();
    CHECK(player.list().ListIndex() == 32766);
    CHECK(world.media.openPath() == last);
}

TEST_CASE("a list of 32767 tracks is saved whole, and the next start can't take it") {
    std::string saved;
    {
        Player player;
        player.start();
        fill(player);
        std::string expected;
        for (const std::string& path : paths(player))
            expected += path + '/';
        CHECK(endsTheProcess([&] { player.click(player.frmPlayer().pctquit); }));
        CHECK((savedList() == expected + '/'));
        saved = world.files.text(settingsFile);
    }
    Player player;
    world.files.addFile(settingsFile, saved);
    const auto message = fatalMessageOf([&] { player.start(); });
    REQUIRE(message);
    CHECK(message->starts_with("Run-time error 6: Overflow"));
}

TEST_CASE("an entry less makes room for one more in a full list") {
    Player player;
    player.start();
    fill(player);
    player.frmPlayer().clear();
    CHECK(player.list().ListCount() == 32766);
    CHECK(player.list().ListIndex() == 0);
    pick(player, {A});
    CHECK(player.list().ListCount() == 32767);
    CHECK(player.list().ListIndex() == 32766);
    CHECK(player.frmPlayer().trackPaths[32766] == A);
    CHECK(world.media.openPath() == A);
}

TEST_CASE("a play that finds no track, and room for none in what is picked for it, tells of it") {
    for (const bool several : {false, true}) {
        CAPTURE(several);
        Player player;
        player.start();
        // Both windows are alive while the dialog is open.
        std::vector<std::string> picked = {"D:\\Other\\b.mp3"};
        if (several) picked.emplace_back("D:\\Other\\c.mp3");
        world.dialogs.pickFiles(picked, [&] { fill(player); });
        player.frmPlayer().startfile();
        REQUIRE(world.messages.shown.size() == 1);
        CHECK(world.messages.shown[0].text == "Error: 6. Overflow");
        CHECK(player.frmPlayer().trackCount == 32767);
        CHECK(player.list().ListCount() == 32767);
        CHECK(player.frmPlayer().lastFolder == (several ? "D:\\Other" : "C:\\Music\\"));
        // It lives on.
        player.frmPlayer().nextfile();
        CHECK(world.messages.fatal.empty());
    }
}
