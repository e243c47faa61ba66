#include "mainwindow/alarm.h"

#include <algorithm>
#include <cstdint>
#include <doctest/doctest.h>
#include <vector>

namespace {

constexpr int secondsADay = 86400;

int secondOf(int hour, int minute, int second) { return (hour * 60 + minute) * 60 + second; }

/// The seconds since midnight at which an alarm is due, as distances from its exact minute,
/// -43200 to 43199.
std::vector<int> dueAround(int hour, int minute) {
    const runtime::Fixed alarm = alarms::fractionOf(runtime::Int16(hour), runtime::Int16(minute));
    std::vector<int> due;
    for (int distance = -secondsADay / 2; distance < secondsADay / 2; ++distance) {
        const int second = (secondOf(hour, minute, 0) + distance + secondsADay) % secondsADay;
        if (alarms::isDue(alarm, second)) due.push_back(distance);
    }
    return due;
}

} // namespace

TEST_CASE("an alarm is due for some seconds around its minute") {
    struct Row {
        int hour;
        int minute;
        double fraction;
        int first;
        int last;
    };
    const Row rows[] = {
        {0, 0, 0, secondOf(0, 0, 0), secondOf(0, 0, 4)},
        {7, 0, 0.2917, secondOf(6, 59, 59), secondOf(7, 0, 7)},
        {8, 30, 0.3542, secondOf(8, 29, 59), secondOf(8, 30, 7)},
        {12, 0, 0.5, secondOf(11, 59, 56), secondOf(12, 0, 4)},
        {18, 45, 0.7812, secondOf(18, 44, 52), secondOf(18, 45, 0)},
        {23, 59, 0.9993, secondOf(23, 58, 56), secondOf(23, 59, 3)},
    };
    for (const Row& row : rows) {
        CAPTURE(row.hour);
        CAPTURE(row.minute);
        const runtime::Fixed alarm =
            alarms::fractionOf(runtime::Int16(row.hour), runtime::Int16(row.minute));
        CHECK(alarm == runtime::Fixed(row.fraction));
        for (int second = 0; second < secondsADay; ++second)
            if (alarms::isDue(alarm, second) != (second >= row.first && second <= row.last)) {
                CAPTURE(second);
                FAIL_CHECK("the window is another");
            }
    }
}

TEST_CASE("every alarm of the day starts 8 s early to 1 s late and lasts 5 to 9 whole seconds") {
    int earliest = 0;
    int latest = -secondsADay;
    std::size_t shortest = secondsADay;
    std::size_t longest = 0;
    for (int hour = 0; hour < 24; ++hour)
        for (int minute = 0; minute < 60; ++minute) {
            const std::vector<int> due = dueAround(hour, minute);
            CAPTURE(hour);
            CAPTURE(minute);
            REQUIRE_FALSE(due.empty());
            // One window without gaps.
            CHECK(due.back() - due.front() + 1 == static_cast<int>(due.size()));
            earliest = std::min(earliest, due.front());
            latest = std::max(latest, due.front());
            shortest = std::min(shortest, due.size());
            longest = std::max(longest, due.size());
        }
    CHECK(earliest == -8);
    CHECK(latest == 1);
    CHECK(shortest == 5);
    CHECK(longest == 9);
}

TEST_CASE("an alarm that isn't armed is never due") {
    for (int second = 0; second < secondsADay; ++second)
        if (alarms::isDue(alarms::Disarmed, second)) FAIL_CHECK("due at second " << second);
}

TEST_CASE("a held label steps ever faster, and the minute has the fourth speed") {
    const auto waits = [](const alarms::Steps& steps, int count) {
        std::vector<std::uint32_t> all;
        runtime::Int16 pass = 1;
        for (int i = 0; i < count; ++i) {
            const alarms::Wait wait = alarms::waitOf(pass, steps);
            all.push_back(wait.milliseconds);
            pass = wait.pass + 1;
        }
        return all;
    };
    CHECK(waits(alarms::hourSteps, 16) == std::vector<std::uint32_t>{300, 300, 300, 150, 150, 150,
                                                                     75, 75, 75, 75, 75, 75, 75, 75,
                                                                     75, 75});
    CHECK(waits(alarms::minuteSteps, 16) == std::vector<std::uint32_t>{300, 300, 300, 150, 150, 150,
                                                                       75, 75, 75, 75, 75, 75, 32,
                                                                       32, 32, 32});
    // Each label's last speed keeps its count of passes where it is.
    CHECK(alarms::waitOf(7, alarms::hourSteps).pass == 6);
    CHECK(alarms::waitOf(12, alarms::hourSteps).pass == 6);
    CHECK(alarms::waitOf(12, alarms::minuteSteps).pass == 12);
    CHECK(alarms::waitOf(13, alarms::minuteSteps).pass == 12);
    CHECK(waits(alarms::minuteSteps, 40000).back() == 32);
    CHECK(waits(alarms::hourSteps, 40000).back() == 75);
}

TEST_CASE("steps go upwards and wrap round, out of any value") {
    struct Row {
        int value;
        int hour;
        int minute;
    };
    const Row rows[] = {{0, 1, 1},  {22, 23, 23}, {23, 0, 24},     {58, 0, 59},  {59, 0, 0},
                        {99, 0, 0}, {-1, 0, 0},   {-40, -39, -39}, {32767, 0, 0}};
    for (const Row& row : rows) {
        CAPTURE(row.value);
        CHECK(alarms::stepped(runtime::Int16(row.value), alarms::hourSteps.highest) == row.hour);
        CHECK(alarms::stepped(runtime::Int16(row.value), alarms::minuteSteps.highest) ==
              row.minute);
    }
}
