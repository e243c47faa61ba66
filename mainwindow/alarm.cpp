#include "mainwindow/alarm.h"

namespace alarms {

runtime::Fixed fractionOf(runtime::Int16 hour, runtime::Int16 minute) {
    return runtime::Fixed((hour.value() + minute.value() / 60.0) / 24);
}

bool isDue(runtime::Fixed alarmTime, std::int32_t secondsSinceMidnight) {
    return runtime::Fixed(secondsSinceMidnight / 86400.0) == alarmTime;
}

runtime::Int16 stepped(runtime::Int16 value, std::int16_t highest) {
    return value < highest ? value + 1 : runtime::Int16(0);
}

Wait waitOf(runtime::Int16 pass, const Steps& steps) {
    if (pass <= 3) return {300, pass};
    if (pass <= 6) return {150, pass};
    // The last speed of a label holds its count, so that it lasts.
    if (!steps.fourSpeeds) return {75, 6};
    if (pass <= 12) return {75, pass};
    return {32, 12};
}

} // namespace alarms
