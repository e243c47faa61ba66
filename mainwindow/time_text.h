#pragma once

#include "runtime/fixed.h"

#include <string>

/// The time of a track as `lblTimenow` shows it: "02:05" played, or "-00:03" to go. Minutes are
/// not cut at an hour. Times may be negative while the thumb is dragged past an end.
std::string timeText(runtime::Fixed length, runtime::Fixed position, bool showElapsed);

/// The playlist's counter: whole seconds of position and length, "125 / 200".
std::string counterText(runtime::Int16 position, runtime::Int16 length);
