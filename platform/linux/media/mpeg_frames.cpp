#include "platform/linux/media/mpeg_frames.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace platform::media {
namespace {

constexpr std::uint32_t streamBits = 0xFFFE0C00; // sync, version, layer, rate

// What an info frame is read for stands in so many bytes behind its header.
constexpr std::size_t infoBytes = 192;

constexpr std::array<std::array<int, 15>, 5> bitRates{{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448}, // MPEG-1 layer I
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},    // MPEG-1 layer II
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},     // MPEG-1 layer III
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},    // MPEG-2 layer I
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},         // MPEG-2 II and III
}};

std::uint32_t bigEndian(const unsigned char* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | bytes[3];
}

} // namespace

std::optional<MpegHeader> readMpegHeader(std::uint32_t word) {
    const std::uint32_t version = word >> 19 & 3; // 0 is 2.5, 2 is MPEG-2, 3 is MPEG-1
    const std::uint32_t layer = 4 - (word >> 17 & 3);
    const std::uint32_t bitRateIndex = word >> 12 & 15;
    const std::uint32_t rateIndex = word >> 10 & 3;
    if (word >> 21 != 0x7FF || version == 1 || layer == 4 || bitRateIndex == 15 || rateIndex == 3)
        return std::nullopt;
    constexpr std::array<int, 3> rates{44100, 48000, 32000};
    const bool mpeg1 = version == 3;
    MpegHeader header;
    header.word = word;
    header.layer = static_cast<int>(layer);
    header.rate = rates[rateIndex] >> (mpeg1 ? 0 : version == 2 ? 1 : 2);
    header.channels = (word >> 6 & 3) == 3 ? 1 : 2;
    header.samples = layer == 1 ? 384 : layer == 3 && !mpeg1 ? 576 : 1152;
    const std::size_t row = mpeg1 ? layer - 1 : layer == 1 ? 3 : 4;
    const int bits = bitRates[row][bitRateIndex] * 1000;
    header.bitRate = bits;
    const int padding = header.padded() ? 1 : 0;
    if (bits != 0) {
        header.bytes = layer == 1 ? (12 * bits / header.rate + padding) * 4
                                  : header.samples / 8 * bits / header.rate + padding;
    }
    if (layer == 3) {
        header.sideBytes =
            mpeg1 ? (header.channels == 1 ? 17 : 32) : (header.channels == 1 ? 9 : 17);
    }
    return header;
}

bool sameStream(std::uint32_t one, std::uint32_t other) {
    return (one & streamBits) == (other & streamBits);
}

std::optional<MpegHeader> mpegHeaderAt(FileWindow& file, std::int64_t position) {
    const auto bytes = file.look(position, MpegHeader::size);
    if (bytes.size() < MpegHeader::size) return std::nullopt;
    return readMpegHeader(bigEndian(bytes.data()));
}

std::optional<EncoderPadding> readEncoderPadding(FileWindow& file, std::int64_t position) {
    const auto header = mpegHeaderAt(file, position);
    const auto bytes = file.look(position + 4, infoBytes);
    if (!header || header->sideBytes == 0 || bytes.size() < infoBytes) return std::nullopt;
    // Nothing but a checksum stands before the mark.
    const auto side = static_cast<std::size_t>(header->sideBytes);
    const auto isZero = [](unsigned char byte) { return byte == 0; };
    if (!std::ranges::all_of(bytes.subspan(2, side - 2), isZero)) return std::nullopt;
    const unsigned char* tag = bytes.data() + side;
    const std::string_view mark(reinterpret_cast<const char*>(tag), 4);
    if (mark != "Xing" && mark != "Info") return std::nullopt;
    const std::uint32_t flags = bigEndian(tag + 4);
    EncoderPadding info;
    std::ptrdiff_t at = 8;
    if ((flags & 1) != 0) {
        info.frames = bigEndian(tag + at);
        at += 4;
    }
    if ((flags & 2) != 0) {
        info.bytes = bigEndian(tag + at);
        at += 4;
    }
    if ((flags & 4) != 0) at += 100;
    if ((flags & 8) != 0) at += 4;
    if (tag[at] == 0) return info;
    const unsigned char* delays = tag + at + 21;
    info.delay = delays[0] << 4 | delays[1] >> 4;
    info.padding = (delays[1] & 15) << 8 | delays[2];
    return info;
}

} // namespace platform::media
