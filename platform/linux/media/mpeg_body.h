#pragma once

#include "platform/linux/media/mpeg_frames.h"

#include <cstdint>
#include <span>

namespace platform::media {

/// Whether a frame's body can be what its header says: what stands in the first bytes of one
/// describes the rest, and in data of another kind demands more bits than the frame has, or what no
/// encoder may write. `frame` is the whole frame, or as much as `bytesToJudge`; `bytes` its size.
bool bodyCanBe(const MpegHeader& header, std::int64_t bytes, std::span<const unsigned char> frame);

/// What `bodyCanBe` wants to see of a frame.
inline constexpr std::size_t bytesToJudge = 48;

} // namespace platform::media
