#include "platform/linux/media/music_tags.h"

#include "runtime/little_endian.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace platform::media {
namespace {

/// The number of four bytes at a place of a tag's head or foot.
std::uint32_t numberAt(const std::array<unsigned char, 32>& bytes, std::size_t at) {
    return runtime::littleEndian(std::as_bytes(std::span(bytes)), at, 4);
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
    return 32 + std::int64_t{numberAt(head, 12)};
}

std::int64_t apeSizeBefore(FileWindow& file, std::int64_t end) {
    std::array<unsigned char, 32> foot{};
    if (!readAt(file, end - 32, foot) || !startsWith(foot.data(), "APETAGEX")) return 0;
    const bool hasHead = (numberAt(foot, 20) & 0x80000000U) != 0;
    return std::int64_t{numberAt(foot, 12)} + (hasHead ? 32 : 0);
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

} // namespace

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

std::int64_t bytesOfLeadingTags(FileWindow& file) {
    std::int64_t start = 0;
    while (true) {
        std::int64_t size = id3v2SizeAt(file, start);
        if (size == 0) size = apeSizeAt(file, start);
        if (size == 0 || start + size >= file.size()) return start;
        start += size;
    }
}

std::int64_t tagSizeAt(FileWindow& file, std::int64_t position) {
    std::int64_t size = id3v2SizeAt(file, position);
    if (size == 0) size = apeSizeAt(file, position);
    std::array<unsigned char, 3> mark{};
    if (size == 0 && readAt(file, position, mark) && startsWith(mark.data(), "TAG")) size = 128;
    return position + size <= file.size() ? size : 0;
}

} // namespace platform::media
