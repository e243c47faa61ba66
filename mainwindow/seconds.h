#pragma once

#include "runtime/fixed.h"
#include "runtime/rounding.h"

/// Seconds of a number of device frames, which are thousandths of a second.
inline runtime::Fixed secondsOf(runtime::Int32 frames) {
    return runtime::Fixed(frames.value() / 1000.0);
}

/// Whole seconds as the playlist window counts them; error 6 above 32767.
inline runtime::Int16 wholeSecondsOf(runtime::Int32 frames) {
    return runtime::roundToInt16(frames.value() / 1000.0);
}
