#pragma once

#include "tests/sound/support/sound_files.h"

namespace sound_test {

/// Frames of MPEG-1 audio layer I at 44100, 384 samples each, their sound ever-changing. No encoder
/// for it is at hand, but its frames are simple enough to be written bit by bit.
struct LayerOne {
    int frames = 300;
    int channels = 2;
    bool freeFormat = false;
    bool padded = false; ///< every other frame is a slot longer
};
Bytes layerOne(const LayerOne& wanted);

} // namespace sound_test
