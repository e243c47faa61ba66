#pragma once

#include "platform/linux/media/decoder.h"
#include "tests/sound/support/sound_files.h"

#include <cstdint>
#include <string>
#include <vector>

namespace sound_test {

/// Up to `count` frames from a place on, left and right in turns.
std::vector<std::int16_t> decode(platform::media::Decoder& decoder, std::int64_t from,
                                 std::size_t count);

/// What a file of 16-bit sound gives, all of it; fails the test if it doesn't open.
std::vector<std::int16_t> decodeAll(const std::string& path);

std::int64_t framesOf(const std::vector<std::int16_t>& samples);

/// The widest difference between some frames and those from a place on.
int widestGap(const std::vector<std::int16_t>& some, const std::vector<std::int16_t>& all,
              std::int64_t from);

/// Bytes without any order.
Bytes chaos(std::size_t size, unsigned seed = 9);

} // namespace sound_test
