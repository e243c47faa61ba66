#pragma once

#include "runtime/fixed.h"

#include <cstdint>

/// The alarm's arithmetic: times of day as fractions of a day with four decimal places. That
/// rounding makes the alarm a window of several seconds, which no tick can miss.
namespace alarms {

/// What an alarm that isn't armed holds; no time of day equals it.
inline constexpr std::int32_t Disarmed = -1;

/// The armed value for an hour and a minute, (hour + minute / 60) / 24 rounded.
runtime::Fixed fractionOf(runtime::Int16 hour, runtime::Int16 minute);

/// Whether an alarm is due at a number of whole seconds since midnight.
bool isDue(runtime::Fixed alarmTime, std::int32_t secondsSinceMidnight);

/// How a held label steps: the highest value, behind which 0 follows, and whether its waits reach
/// the fourth and fastest speed.
struct Steps {
    std::int16_t highest;
    bool fourSpeeds;
};
inline constexpr Steps hourSteps{23, false};
inline constexpr Steps minuteSteps{59, true};

/// The value after one step upwards.
runtime::Int16 stepped(runtime::Int16 value, std::int16_t highest);

/// A pause between two steps, and the pass to go on counting from.
struct Wait {
    std::uint32_t milliseconds = 0;
    runtime::Int16 pass;
};

/// What follows the step of a pass, counted from 1: three slow waits, three of half their length,
/// then ever faster ones.
Wait waitOf(runtime::Int16 pass, const Steps& steps);

} // namespace alarms
