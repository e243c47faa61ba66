#include "platform/linux/media/mpeg_frames.h"

#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace platform::media {
namespace {

constexpr std::uint32_t streamBits = 0xFFFE0C00; // sync, version, layer, rate
constexpr std::uint32_t freeFormatBits = 0xFFFEFC00;
constexpr std::int64_t longestGarbage = std::int64_t{8} * 1024 * 1024;
constexpr int longestFreeFrame = 3456;
constexpr int framesToBelieve = 3;
constexpr int headerBytes = 4;

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

std::uint32_t littleEndian(const unsigned char* bytes) {
    return std::uint32_t{bytes[3]} << 24 | std::uint32_t{bytes[2]} << 16 |
           std::uint32_t{bytes[1]} << 8 | bytes[0];
}

template <std::size_t size>
bool readAt(FileWindow& file, std::int64_t position, std::array<unsigned char, size>& bytes) {
    if (position < 0 || position + static_cast<std::int64_t>(size) > file.size()) return false;
    file.seek(position);
    return file.read(bytes.data(), size) == size;
}

bool startsWith(const unsigned char* bytes, std::string_view text) {
    return std::memcmp(bytes, text.data(), text.size()) == 0;
}

/// Bytes of the ID3v2 tag at a place, 0 if none.
std::int64_t id3v2SizeAt(FileWindow& file, std::int64_t position) {
    std::array<unsigned char, 10> head{};
    if (!readAt(file, position, head) || !startsWith(head.data(), "ID3")) return 0;
    if (head[3] == 0xFF || head[4] == 0xFF) return 0;
    std::int64_t size = 0;
    for (std::size_t i = 6; i < 10; ++i) {
        if (head[i] >= 0x80) return 0;
        size = size << 7 | head[i];
    }
    return 10 + size + ((head[5] & 0x10) != 0 ? 10 : 0);
}

/// Bytes of the APE tag whose head stands at a place, 0 if none.
std::int64_t apeSizeAt(FileWindow& file, std::int64_t position) {
    std::array<unsigned char, 32> head{};
    if (!readAt(file, position, head) || !startsWith(head.data(), "APETAGEX")) return 0;
    return 32 + std::int64_t{littleEndian(head.data() + 12)};
}

std::int64_t apeSizeBefore(FileWindow& file, std::int64_t end) {
    std::array<unsigned char, 32> foot{};
    if (!readAt(file, end - 32, foot) || !startsWith(foot.data(), "APETAGEX")) return 0;
    const bool hasHead = (littleEndian(foot.data() + 20) & 0x80000000U) != 0;
    return std::int64_t{littleEndian(foot.data() + 12)} + (hasHead ? 32 : 0);
}

std::int64_t id3v1SizeBefore(FileWindow& file, std::int64_t end) {
    std::array<unsigned char, 3> mark{};
    if (!readAt(file, end - 128, mark) || !startsWith(mark.data(), "TAG")) return 0;
    std::array<unsigned char, 4> extended{};
    const bool more =
        readAt(file, end - 128 - 227, extended) && startsWith(extended.data(), "TAG+");
    return more ? 128 + 227 : 128;
}

std::int64_t lyricsSizeBefore(FileWindow& file, std::int64_t end) {
    std::array<unsigned char, 15> foot{};
    if (!readAt(file, end - 15, foot)) return 0;
    if (startsWith(foot.data() + 6, "LYRICS200")) {
        std::int64_t size = 0;
        for (std::size_t i = 0; i < 6; ++i) {
            if (foot[i] < '0' || foot[i] > '9') return 0;
            size = size * 10 + (foot[i] - '0');
        }
        return size + 15;
    }
    if (!startsWith(foot.data() + 6, "LYRICSEND")) return 0;
    constexpr std::int64_t longest = 5100 + 11 + 9;
    std::array<unsigned char, 11> head{};
    for (std::int64_t size = 20; size <= longest; ++size) {
        if (readAt(file, end - size, head) && startsWith(head.data(), "LYRICSBEGIN")) return size;
    }
    return 0;
}

std::int64_t id3v2SizeBefore(FileWindow& file, std::int64_t end) {
    std::array<unsigned char, 10> foot{};
    if (!readAt(file, end - 10, foot) || !startsWith(foot.data(), "3DI")) return 0;
    std::int64_t size = 0;
    for (std::size_t i = 6; i < 10; ++i)
        size = size << 7 | (foot[i] & 0x7F);
    return size + 20;
}

/// Where the tags at the end begin.
std::int64_t beforeTrailingTags(FileWindow& file) {
    std::int64_t end = file.size();
    while (true) {
        std::int64_t size = id3v1SizeBefore(file, end);
        if (size == 0) size = apeSizeBefore(file, end);
        if (size == 0) size = lyricsSizeBefore(file, end);
        if (size == 0) size = id3v2SizeBefore(file, end);
        if (size == 0 || size > end) return end;
        end -= size;
    }
}

/// The size of the free-format frame at a place: the distance to the next header like it.
int freeFrameSize(FileWindow& file, std::int64_t position, std::uint32_t word) {
    for (int size = 24; size <= longestFreeFrame; ++size) {
        const auto next = mpegHeaderAt(file, position + size);
        if (next && (next->word & freeFormatBits) == (word & freeFormatBits)) return size;
    }
    return 0;
}

/// Whether enough frames follow each other from here, or all that the file still has.
bool framesRunFrom(FileWindow& file, std::int64_t position, std::int64_t end, bool atStart) {
    const auto first = mpegHeaderAt(file, position);
    if (!first) return false;
    const int freeSize = first->bytes == 0 ? freeFrameSize(file, position, first->word) : 0;
    int whole = 0;
    while (whole < framesToBelieve) {
        const auto header = mpegHeaderAt(file, position);
        if (!header || !sameStream(header->word, first->word)) return false;
        // Padding makes a free-format frame a byte or four longer.
        int size = header->bytes;
        if (size == 0) size = freeSize;
        if (size == 0) return false;
        if (header->bytes == 0 && !mpegHeaderAt(file, position + size)) {
            const int unit = header->samples == 384 ? 4 : 1;
            const bool longer = (header->word & 0x200) != 0;
            size += longer ? unit : -unit;
        }
        position += size;
        if (position > end) return atStart && whole > 0;
        ++whole;
        if (end - position < headerBytes) return atStart;
    }
    return true;
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
    header.rate = rates[rateIndex] >> (mpeg1 ? 0 : version == 2 ? 1 : 2);
    header.channels = (word >> 6 & 3) == 3 ? 1 : 2;
    header.samples = layer == 1 ? 384 : layer == 3 && !mpeg1 ? 576 : 1152;
    const std::size_t row = mpeg1 ? layer - 1 : layer == 1 ? 3 : 4;
    const int bits = bitRates[row][bitRateIndex] * 1000;
    const int padding = (word & 0x200) != 0 ? 1 : 0;
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
    std::array<unsigned char, 4> bytes{};
    if (!readAt(file, position, bytes)) return std::nullopt;
    return readMpegHeader(bigEndian(bytes.data()));
}

std::int64_t bytesOfLeadingTags(FileWindow& file) {
    std::int64_t start = 0;
    while (true) {
        std::int64_t size = id3v2SizeAt(file, start);
        if (size == 0) size = apeSizeAt(file, start);
        if (size == 0 || start + size >= file.size()) return start;
        start += size;
    }
}

bool narrowToMpegSound(FileWindow& file) {
    const std::int64_t end = beforeTrailingTags(file);
    const std::int64_t start = bytesOfLeadingTags(file);
    for (std::int64_t at = start; at < end && at - start < longestGarbage; ++at) {
        if (!framesRunFrom(file, at, end, at == start)) continue;
        file.narrow(at, end);
        return true;
    }
    file.seek(0);
    return false;
}

std::optional<EncoderPadding> readEncoderPadding(FileWindow& file) {
    const auto header = mpegHeaderAt(file, 0);
    std::array<unsigned char, 192> bytes{};
    if (!header || header->sideBytes == 0 || !readAt(file, 4, bytes)) return std::nullopt;
    const unsigned char* tag = bytes.data() + header->sideBytes;
    if (!startsWith(tag, "Xing") && !startsWith(tag, "Info")) return std::nullopt;
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
