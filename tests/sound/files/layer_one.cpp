#include "tests/sound/files/layer_one.h"

#include <cstddef>
#include <cstdint>
#include <random>

namespace sound_test {
namespace {

constexpr unsigned bands = 32;
constexpr unsigned loudBands = 3;
constexpr unsigned bitsPerSample = 5;
constexpr std::size_t bytesAt160 = 172; // 12 * 160000 / 44100 slots of four bytes
constexpr std::size_t bytesFree = 120;

class Bits {
  public:
    void add(unsigned value, unsigned count) {
        while (count-- > 0) {
            if (used_++ % 8 == 0) bytes_ += '\0';
            const auto last = static_cast<unsigned char>(bytes_.back());
            bytes_.back() = static_cast<char>(unsigned{last} << 1 | (value >> count & 1));
        }
    }
    Bytes padded(std::size_t size) {
        while (used_ % 8 != 0)
            add(0, 1);
        bytes_.resize(size, '\0');
        return bytes_;
    }

  private:
    Bytes bytes_;
    std::size_t used_ = 0;
};

} // namespace

Bytes layerOne(const LayerOne& wanted) {
    std::minstd_rand random(11);
    const auto channels = static_cast<unsigned>(wanted.channels);
    Bytes all;
    for (int frame = 0; frame < wanted.frames; ++frame) {
        const unsigned longer = wanted.padded && frame % 2 != 0 ? 1 : 0;
        Bits bits;
        bits.add(0xFFFF, 16); // MPEG-1, layer I, no checksum
        bits.add(wanted.freeFormat ? 0 : 5, 4);
        bits.add(longer << 1, 4);
        bits.add(channels == 1 ? 0xC0 : 0, 8);
        for (unsigned i = 0; i < bands * channels; ++i)
            bits.add(i < loudBands * channels ? bitsPerSample - 1 : 0, 4);
        for (unsigned i = 0; i < loudBands * channels; ++i)
            bits.add(6 + static_cast<unsigned>(random() >> 8) % 12, 6); // how loud
        for (unsigned i = 0; i < 12 * loudBands * channels; ++i)
            bits.add(static_cast<unsigned>(random() >> 8) % 31, bitsPerSample);
        all += bits.padded((wanted.freeFormat ? bytesFree : bytesAt160) + std::size_t{4} * longer);
    }
    return all;
}

} // namespace sound_test
