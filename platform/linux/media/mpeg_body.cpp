#include "platform/linux/media/mpeg_body.h"

#include <cstddef>

namespace platform::media {
namespace {

/// Bits from the left; zeros behind the end.
class BitReader {
  public:
    explicit BitReader(std::span<const unsigned char> bytes) : bytes_(bytes) {}

    int take(int count) {
        int value = 0;
        for (; count > 0; --count, ++at_) {
            const std::size_t byte = at_ / 8;
            const int bit = byte < bytes_.size() ? bytes_[byte] >> (7 - at_ % 8) & 1 : 0;
            value = value << 1 | bit;
        }
        return value;
    }

  private:
    std::span<const unsigned char> bytes_;
    std::size_t at_ = 0;
};

constexpr int mostBigValues = 288;

/// One granule of one channel; adds the bits that it takes. False if it can't be.
bool takeGranule(BitReader& bits, bool mpeg1, int& total) {
    total += bits.take(12);
    if (bits.take(9) > mostBigValues) return false;
    bits.take(8); // gain
    bits.take(mpeg1 ? 4 : 9);
    const auto isTable = [](int table) { return table != 4 && table != 14; };
    if (bits.take(1) != 0) {
        const bool ordinaryBlock = bits.take(2) == 0;
        bits.take(1);
        const bool tables = isTable(bits.take(5)) && isTable(bits.take(5));
        bits.take(9); // gains
        if (ordinaryBlock || !tables) return false;
    } else {
        for (int region = 0; region < 3; ++region) {
            if (!isTable(bits.take(5))) return false;
        }
        bits.take(7); // the regions' sizes
    }
    bits.take(mpeg1 ? 3 : 2);
    return true;
}

/// The side information counts the bits of the sound, which may begin in earlier frames.
bool layerThreeCanBe(const MpegHeader& header, std::int64_t bodyBytes, BitReader bits) {
    const bool mpeg1 = header.isMpeg1();
    const int borrowed = bits.take(mpeg1 ? 9 : 8);
    if (mpeg1)
        bits.take((header.channels == 1 ? 5 : 3) + 4 * header.channels);
    else
        bits.take(header.channels == 1 ? 1 : 2);
    int total = 0;
    for (int granule = 0; granule < (mpeg1 ? 2 : 1); ++granule) {
        for (int channel = 0; channel < header.channels; ++channel) {
            if (!takeGranule(bits, mpeg1, total)) return false;
        }
    }
    return total <= 8 * (bodyBytes - header.sideBytes + borrowed);
}

/// Each of 32 bands has a width in bits, for each channel or for both together.
bool layerOneCanBe(const MpegHeader& header, std::int64_t bodyBytes, BitReader bits) {
    constexpr int bands = 32;
    constexpr int samplesOfBand = 12;
    constexpr int scaleBits = 6;
    const bool joint = (header.word >> 6 & 3) == 1;
    const int apart = joint ? 4 * static_cast<int>((header.word >> 4 & 3) + 1) : bands;
    std::int64_t total = 0;
    for (int band = 0; band < bands; ++band) {
        const bool shared = band >= apart;
        for (int channel = 0; channel < (shared ? 1 : header.channels); ++channel) {
            const int code = bits.take(4);
            if (code == 15) return false;
            total += 4;
            if (code == 0) continue;
            total += samplesOfBand * (code + 1) + scaleBits * (shared ? header.channels : 1);
        }
    }
    return total <= 8 * bodyBytes;
}

} // namespace

bool bodyCanBe(const MpegHeader& header, std::int64_t bytes, std::span<const unsigned char> frame) {
    const std::size_t before = MpegHeader::size + (header.hasChecksum() ? 2 : 0);
    if (bytes < static_cast<std::int64_t>(before) || frame.size() < before) return false;
    const auto bodyBytes = bytes - static_cast<std::int64_t>(before);
    const BitReader bits(frame.subspan(before));
    if (header.layer == 3) return layerThreeCanBe(header, bodyBytes, bits);
    if (header.layer == 1) return layerOneCanBe(header, bodyBytes, bits);
    return true;
}

} // namespace platform::media
