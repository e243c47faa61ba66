#include "mainwindow/alarm.h"
#include "tests/behaviour/player.h"

#include <cstddef>
#include <string>
#include <vector>

using behaviour::fatalMessageOf;
using behaviour::Player;
using simulated::world;

namespace {

const std::string file = "C:\\Orvan\\MyPlayerSettings.mps";

constexpr const char* noNumber = "x";
constexpr const char* tooLarge = "1E400";

/// The fatal message of a start with a line that is right but for two fields.
std::string fatalStartWith(std::size_t first, const std::string& text, std::size_t second,
                           const std::string& otherText) {
    std::vector<std::string> fields = {"3", "0", "0", "",  "120", "90",  "0",
                                       "0", "",  "0", "0", "120", "1320"};
    fields.at(first) = text;
    fields.at(second) = otherText;
    std::string line;
    for (const std::string& field : fields)
        line += field + "*";
    Player player;
    world.files.addFile(file, line + "\n");
    return fatalMessageOf([&] { player.start(); }).value_or("none");
}

/// What the windows have done, and what the player holds meanwhile, at each move of a window.
struct Move {
    bool ofMain;
    platform::Point from; // screen pixels
    int tracks;
    int alarmHour;
    bool armed;

    bool operator==(const Move&) const = default;
};

bool starts(const std::string& message, const std::string& start) {
    return message.starts_with("Run-time error " + start);
}

} // namespace

TEST_CASE("of two fields that can't be taken the error is that of the one that is taken first") {
    const std::vector<std::size_t> inTheirOrder = {1, 2, 4, 5, 11, 12, 6, 7, 9, 10};
    for (std::size_t i = 1; i < inTheirOrder.size(); ++i) {
        const std::size_t first = inTheirOrder[i - 1];
        const std::size_t second = inTheirOrder[i];
        CAPTURE(first);
        CAPTURE(second);
        CHECK(starts(fatalStartWith(first, noNumber, second, tooLarge), "13"));
        CHECK(starts(fatalStartWith(first, tooLarge, second, noNumber), "6"));
    }
}

TEST_CASE("a track list that lacks its end is met behind the volume and before the places") {
    const std::string noEnd = "C:\\a.mp3";
    CHECK(starts(fatalStartWith(2, noNumber, 3, noEnd), "13"));
    CHECK(starts(fatalStartWith(3, noEnd, 4, noNumber), "6"));
    CHECK(starts(fatalStartWith(3, noEnd, 4, ""), "6"));
}

TEST_CASE("a line is taken over in its order: the tracks, each window's left and top, the alarm") {
    const std::string moved = "move window ";
    Player player;
    world.files.addFile(file, "3*0*0*C:\\a.mp3//*120*90*7*30**0*0*135*1320*\n");
    std::vector<Move> moves;
    world.watch = [&](const std::string& note) {
        if (!note.starts_with(moved)) return;
        const int window = std::stoi(note.substr(moved.size()));
        const FrmPlayer& form = player.frmPlayer();
        moves.push_back({static_cast<platform::WindowHandle>(window) == player.mainWindow(),
                         simulated::window(window).position, form.trackCount.value(),
                         form.alarmHour.value(), form.alarmTime != alarms::Disarmed});
    };
    player.start();
    world.watch = nullptr;
    CHECK(moves == std::vector<Move>{{true, {374, 343}, 1, 0, false},
                                     {true, {8, 343}, 1, 0, false},
                                     {false, {504, 448}, 1, 0, false},
                                     {false, {9, 448}, 1, 0, false}});
    CHECK(player.frmPlayer().alarmHour == 7);
}

TEST_CASE("the saved list comes back in no order but its own, and is saved in it again") {
    const std::string line = "3*0*0*C:\\m\\c.mp3/D:\\A.mp3/C:\\m\\c.mp3/C:\\b.wav/D:\\m\\B.mp3//"
                             "*120*90*0*0**0*0*120*1320*\n";
    const std::vector<std::string> titles = {"c.mp3", "A.mp3", "c.mp3", "b.wav", "B.mp3"};
    Player player;
    world.files.addFile(file, line);
    player.start();
    REQUIRE(player.list().ListCount() == 5);
    for (int n = 0; n < 5; ++n)
        CHECK(player.list().List(n) == titles[static_cast<std::size_t>(n)]);
    CHECK(player.frmPlayer().trackPaths[0] == "C:\\m\\c.mp3");
    CHECK(player.frmPlayer().trackPaths[4] == "D:\\m\\B.mp3");
    CHECK(player.list().ListIndex() == 0);
    CHECK(behaviour::endsTheProcess([&] { player.click(player.frmPlayer().pctquit); }));
    CHECK(world.files.text(file) == line);
}

TEST_CASE("what follows the end of the saved list is the leftover of taking it apart") {
    Player player;
    world.files.addFile(file, "3*0*0*C:\\a.mp3//left*120*90*0*0**0*0*120*1320*\n");
    player.start();
    CHECK(player.list().ListCount() == 1);
    CHECK(player.frmPlayer().savedTrackList == "left");
}
