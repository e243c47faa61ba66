#include "tests/behaviour/alarm_panel.h"
#include "tests/behaviour/ticks.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using behaviour::clickSet;
using behaviour::commandsSent;
using behaviour::Player;
using behaviour::playShortTracks;
using behaviour::tick;
using simulated::world;
using Commands = std::vector<std::string>;

namespace {

constexpr std::uint64_t hour = 3'600'000; // ms

/// What a player could pile up, and its world with it.
struct Held {
    std::size_t timers, planned, windows, regions, tracks, texts, shown, trayCalls;
    bool operator==(const Held&) const = default;
};

Held heldBy(Player& player) {
    const FrmPlayer& form = player.frmPlayer();
    return {world.events.timers.size(),
            world.events.queue.size(),
            world.windows.all.size(),
            world.regions.table.size(),
            static_cast<std::size_t>(form.trackCount.value()),
            form.savedTrackList.size() + form.lastOpenResult.size(),
            world.messages.shown.size() + world.dialogs.opened.size() + world.menus.shown.size(),
            world.tray.calls.size()};
}

/// A player that plays three tracks of two seconds over and over, and what it has to send.
class Day {
  public:
    /// Begins at a time of day at which no alarm is due.
    Day(int hours, int minutes) {
        playShortTracks(player, 0);
        player.frmPlayer().repeatOn = true;
        simulated::setTimeOfDay(hours, minutes, 0);
    }

    /// Arms the alarm as a user does who finds the label to read "Set" or, after an alarm, "Unset".
    void arm(int hours) {
        if (player.frmPlayer().cmdSet.Caption() == "Unset") clickSet(player);
        player.frmPlayer().alarmHour = runtime::Int16(hours);
        clickSet(player);
        REQUIRE(player.frmPlayer().alarmTime >= 0);
    }

    /// Plays for so long, tick by tick, and counts the alarms. Each tick must send what it has to
    /// and nothing else. Returns false at the first that does not.
    bool playsAsItHasTo(std::uint64_t milliseconds) {
        for (const std::uint64_t end = simulated::now() + milliseconds; simulated::now() < end;) {
            const bool wasArmed = player.frmPlayer().alarmTime >= 0;
            simulated::advance(tick);
            ++ticksOfTrack;
            Commands expected = queries;
            if (ticksOfTrack == ticksToTheEnd) start(expected, (track + 1) % 3);
            if (wasArmed && player.frmPlayer().alarmTime < 0) {
                ++alarms;
                alarmAt = (world.events.midnight + simulated::now()) % (24 * hour);
                start(expected, track);
            }
            if (commandsSent() != expected || player.status() != "Playing") return false;
            simulated::clearLog();
            world.media.calls.clear();
        }
        return true;
    }

    Player player;
    int alarms = 0;
    std::uint64_t alarmAt = 0; ///< of the day, ms

  private:
    void start(Commands& expected, int index) {
        const std::string path = std::array{behaviour::A, behaviour::B, behaviour::C}.at(
            static_cast<std::size_t>(index));
        track = index;
        ticksOfTrack = 0;
        const Commands commands = {"Stop mpeg",
                                   "Close mpeg",
                                   "open " + path + " type MpegVideo Alias mpeg parent " +
                                       std::to_string(player.mainWindow()) + " Style 1073741824",
                                   "set mpeg time format frames",
                                   "status mpeg length",
                                   "play mpeg from 1 to 2000"};
        expected.insert(expected.end(), commands.begin(), commands.end());
    }

    const Commands queries = {"status mpeg position", "set mpeg time format frames",
                              "status mpeg length",   "set mpeg time format frames",
                              "status mpeg length",   "status mpeg position"};
    static constexpr int ticksToTheEnd = 3; // 2898 ms, of which the third passes the 1999
    int track = 0;
    int ticksOfTrack = 0;
};

} // namespace

TEST_CASE("a day of play sends what each tick has to, piles nothing up, and wakes once") {
    Day day(7, 30);
    day.arm(7);
    REQUIRE(day.playsAsItHasTo(hour));
    const Held afterAnHour = heldBy(day.player);
    REQUIRE(day.playsAsItHasTo(22 * hour));
    CHECK(day.alarms == 0);
    REQUIRE(day.playsAsItHasTo(hour));
    CHECK(day.alarms == 1);
    // The window of seven o'clock opens a second before it.
    CHECK(day.alarmAt >= 7 * hour - 1000);
    CHECK(day.alarmAt < 7 * hour);
    CHECK(heldBy(day.player) == afterAnHour);
}
