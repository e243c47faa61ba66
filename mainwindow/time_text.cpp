#include "mainwindow/time_text.h"

#include "runtime/number_text.h"

#include <cstdint>

std::string timeText(runtime::Fixed length, runtime::Fixed position, bool showElapsed) {
    const runtime::Fixed time = showElapsed ? position : length - position;
    const std::int32_t seconds = runtime::roundToInt32(time).value() % 60;
    const double minutes = (time - runtime::Fixed(seconds)).toDouble() / 60;
    return (showElapsed ? "" : "-") + runtime::twoDigits(minutes) + ":" +
           runtime::twoDigits(seconds);
}

std::string counterText(runtime::Int16 position, runtime::Int16 length) {
    return runtime::textOf(position) + " / " + runtime::textOf(length);
}
