#include "platform/linux/media/mpeg_run.h"

#include "platform/linux/media/mpeg_body.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace platform::media {
namespace {

constexpr int shortestFreeFrame = 24;
constexpr int longestFreeFrame = 3456;
constexpr std::uint32_t fixedBits = 0xFFFF0C0F; // sync, version, layer, checksum, rate, rights

// How many frames in a row make music. Measured on 2,400 files of a system that hold no sound, on
// 1,800 programs and libraries and on 150 files of bare samples, none of which may sound: at the
// first eight megabytes' every place, the longest row that was none was 2 frames of layer III and 9
// of layer II. Of layer I it was 32, and in free format 128 and more, where tables repeat; but such
// a row never was a tenth of what followed, but for samples of a wave that repeats.
constexpr int framesToBelieve = 3;
constexpr int framesToBelieveLayerTwo = 6;
constexpr int framesToBelieveRare = 16;

// Where nothing else stands in the file, fewer are enough.
constexpr int fewestRare = 3;

constexpr int framesToResume = 3;

bool isRare(const MpegHeader& header) { return header.layer == 1 || header.bytes == 0; }

int framesNeeded(const MpegHeader& header, Before before) {
    int frames = header.layer == 3 ? framesToBelieve : framesToBelieveLayerTwo;
    if (isRare(header)) frames = framesToBelieveRare;
    return before == Before::Junk ? 2 * frames : frames;
}

/// Frames that follow each other.
struct Row {
    int frames = 0;
    int changes = 0; ///< frames that begin otherwise than the one before
    std::int64_t end = 0;
    bool toTheEnd = false; ///< but for one that was cut, or less
};

bool agrees(const MpegHeader& header, const MpegHeader& first) {
    if (header.layer == 3 && header.bytes != 0) return true;
    const bool oneRate = header.layer != 1 || header.bitRate == first.bitRate;
    return oneRate && (header.word & fixedBits) == (first.word & fixedBits) &&
           header.channels == first.channels;
}

using Beginning = std::array<unsigned char, bytesToJudge>;

/// The row from a place on: until it breaks, or has `most` frames and reaches `least`.
Row rowAt(FileWindow& file, std::int64_t position, std::int64_t end, const MpegStream& stream,
          int most, std::int64_t least) {
    Row row;
    Beginning last{};
    while (row.frames < most || position < least) {
        row.toTheEnd = end - position < static_cast<std::int64_t>(MpegHeader::size);
        if (row.toTheEnd) break;
        const auto header = stream.frameAt(file, position);
        if (!header || !agrees(*header, stream.first)) break;
        const int bytes = stream.bytesOf(*header);
        row.toTheEnd = position + bytes > end;
        const auto seen = file.look(position, bytesToJudge);
        if (row.toTheEnd || !bodyCanBe(*header, bytes, seen)) break;
        Beginning beginning{};
        std::ranges::copy(seen.first(std::min(seen.size(), beginning.size())), beginning.begin());
        if (beginning != last) ++row.changes;
        last = beginning;
        position += bytes;
        ++row.frames;
    }
    row.end = position;
    return row;
}

bool isBelieved(FileWindow& file, std::int64_t position, std::int64_t end, const MpegStream& stream,
                Before before) {
    const bool rare = isRare(stream.first);
    const int needed = framesNeeded(stream.first, before);
    const Row row = rowAt(file, position, end, stream, needed, 0);
    if (row.frames < needed)
        return before == Before::Nothing && row.toTheEnd && row.frames >= (rare ? fewestRare : 1);
    if (!rare || before != Before::Junk) return true;
    if (row.changes <= row.frames / 2) return false;
    const std::int64_t half = position + (end - position) / 2;
    return rowAt(file, position, end, stream, needed, half).end >= half;
}

/// Whether three bytes can begin a header: no more than keeps most of other data out.
bool mayBegin(const unsigned char* bytes) {
    return bytes[1] >= 0xE0 && bytes[2] < 0xF0 && (bytes[2] & 0x0C) != 0x0C;
}

/// The next place that may begin a header.
std::int64_t nextSync(FileWindow& file, std::int64_t position, std::int64_t end) {
    while (position < end) {
        const auto bytes = file.look(position, 3);
        if (bytes.size() < 3) return end;
        const unsigned char* from = bytes.data();
        const unsigned char* last = from + bytes.size() - 2;
        while (from < last) {
            const void* found = std::memchr(from, 0xFF, static_cast<std::size_t>(last - from));
            if (found == nullptr) break;
            from = static_cast<const unsigned char*>(found);
            if (mayBegin(from)) return std::min(end, position + (from - bytes.data()));
            ++from;
        }
        position += static_cast<std::int64_t>(bytes.size()) - 2;
    }
    return end;
}

/// Free format: a frame's size is the distance to a header like its own, but not each such distance
/// is one.
std::optional<MpegStream> freeStreamAt(FileWindow& file, std::int64_t position, std::int64_t end,
                                       const MpegHeader& first, Before before) {
    if (!bodyCanBe(first, longestFreeFrame, file.look(position, bytesToJudge))) return std::nullopt;
    const std::int64_t last = std::min(end, position + longestFreeFrame + 1);
    for (std::int64_t next = nextSync(file, position + shortestFreeFrame, last); next < last;
         next = nextSync(file, next + 1, last)) {
        const auto header = mpegHeaderAt(file, next);
        if (!header || header->bytes != 0 || !agrees(*header, first)) continue;
        MpegStream stream{first, static_cast<int>(next - position)};
        if (first.padded()) stream.freeBytes -= first.slot();
        if (isBelieved(file, position, end, stream, before)) return stream;
    }
    return std::nullopt;
}

} // namespace

std::optional<MpegHeader> MpegStream::frameAt(FileWindow& file, std::int64_t position) const {
    auto header = mpegHeaderAt(file, position);
    const bool own = header && sameStream(header->word, first.word) &&
                     (header->bytes == 0) == (first.bytes == 0);
    return own ? header : std::nullopt;
}

std::optional<MpegStream> streamAt(FileWindow& file, std::int64_t position, std::int64_t end,
                                   Before before) {
    const auto first = mpegHeaderAt(file, position);
    if (!first) return std::nullopt;
    if (first->bytes == 0) return freeStreamAt(file, position, end, *first, before);
    const MpegStream stream{*first, 0};
    return isBelieved(file, position, end, stream, before) ? std::optional(stream) : std::nullopt;
}

bool resumesAt(FileWindow& file, std::int64_t position, std::int64_t end,
               const MpegStream& stream) {
    const Row row = rowAt(file, position, end, stream, framesToResume, 0);
    return row.frames >= framesToResume;
}

std::int64_t nextHeader(FileWindow& file, std::int64_t position, std::int64_t end) {
    position = nextSync(file, position, end);
    while (position < end && !mpegHeaderAt(file, position))
        position = nextSync(file, position + 1, end);
    return position;
}

} // namespace platform::media
