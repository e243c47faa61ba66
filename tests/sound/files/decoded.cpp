#include "tests/sound/files/decoded.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <doctest/doctest.h>
#include <random>

namespace sound_test {

std::vector<std::int16_t> decode(platform::media::Decoder& decoder, std::int64_t from,
                                 std::size_t count) {
    std::vector<std::int16_t> samples(count * 2);
    if (!decoder.seek(from)) return {};
    const std::size_t got = decoder.read(reinterpret_cast<std::byte*>(samples.data()), count);
    samples.resize(got * 2);
    return samples;
}

std::vector<std::int16_t> decodeAll(const std::string& path) {
    platform::media::Decoder decoder;
    REQUIRE(decoder.open(path) == platform::MediaError::None);
    return decode(decoder, 0, static_cast<std::size_t>(decoder.frames()) + 10);
}

std::int64_t framesOf(const std::vector<std::int16_t>& samples) {
    return static_cast<std::int64_t>(samples.size() / 2);
}

int widestGap(const std::vector<std::int16_t>& some, const std::vector<std::int16_t>& all,
              std::int64_t from) {
    int widest = 0;
    for (std::size_t i = 0; i < some.size(); ++i) {
        const int other = all[static_cast<std::size_t>(from) * 2 + i];
        widest = std::max(widest, std::abs(some[i] - other));
    }
    return widest;
}

Bytes chaos(std::size_t size, unsigned seed) {
    std::minstd_rand random(seed);
    Bytes bytes(size, '\0');
    for (char& c : bytes)
        c = static_cast<char>(random() >> 7 & 0xFF);
    return bytes;
}

} // namespace sound_test
