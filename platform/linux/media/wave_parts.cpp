#include "platform/linux/media/wave_parts.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace platform::media {
namespace {

constexpr std::int64_t headBytes = 12;     // of the file, before its first chunk
constexpr std::int64_t longestFormat = 64; // more of a format chunk than anybody reads
constexpr std::int64_t longestGap = std::int64_t{64} * 1024;
constexpr int mostChunks = 10'000;
constexpr std::uint32_t sizeUnknown = 0xFFFFFFFF;
constexpr std::int64_t longestShortData = 0xFFFFFF00;
constexpr int mpegTag = 0x50;
constexpr int mpegLayerThreeTag = 0x55;

struct Chunk {
    std::string name;
    std::uint32_t size = 0;
};

std::string readText(FileWindow& file, std::int64_t position, std::int64_t size) {
    std::string text(static_cast<std::size_t>(size), '\0');
    file.seek(position);
    text.resize(file.read(text.data(), text.size()));
    return text;
}

std::uint32_t numberAt(std::string_view text, std::size_t at, std::size_t bytes, bool bigEndian) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < bytes; ++i) {
        const std::size_t place = bigEndian ? at + i : at + bytes - 1 - i;
        number = number << 8 | static_cast<unsigned char>(text[place]);
    }
    return number;
}

void appendLong(std::string& text, std::int64_t number) {
    for (unsigned shift = 0; shift < 64; shift += 8)
        text += static_cast<char>(number >> shift & 0xFF);
}

void appendNumber(std::string& text, std::int64_t number, bool bigEndian) {
    const auto wide = static_cast<std::uint32_t>(std::min<std::int64_t>(number, sizeUnknown));
    for (const unsigned shift : {0U, 8U, 16U, 24U})
        text += static_cast<char>(wide >> (bigEndian ? 24 - shift : shift) & 0xFF);
}

std::optional<Chunk> chunkAt(FileWindow& file, std::int64_t position, bool bigEndian) {
    const std::string head = readText(file, position, 8);
    if (head.size() < 8) return std::nullopt;
    const auto printable = [](char c) { return c >= ' ' && c <= '~'; };
    if (!std::all_of(head.begin(), head.begin() + 4, printable)) return std::nullopt;
    return Chunk{head.substr(0, 4), numberAt(head, 4, 4, bigEndian)};
}

/// The chunk at a place. Where there is none, or one that is longer than the file, moves on to the
/// next that matters: some writers leave a gap, or a size that is nonsense.
std::optional<Chunk> chunkFrom(FileWindow& file, std::int64_t& at, bool bigEndian) {
    auto chunk = chunkAt(file, at, bigEndian);
    const bool matters = chunk && (chunk->name == "fmt " || chunk->name == "data");
    if (matters || (chunk && at + 8 + chunk->size <= file.size())) return chunk;
    const std::string text = readText(file, at, longestGap);
    const std::size_t next = std::min(text.find("fmt "), text.find("data"));
    if (next == std::string::npos) return std::nullopt;
    at += static_cast<std::int64_t>(next);
    return chunkAt(file, at, bigEndian);
}

/// Where the next chunk begins: one idle byte follows a chunk of odd size, or should.
std::int64_t behind(FileWindow& file, std::int64_t end, std::uint32_t size, bool bigEndian) {
    if (size % 2 == 0) return end;
    const auto padded = chunkAt(file, end + 1, bigEndian);
    if (padded && end + 1 + 8 + padded->size <= file.size()) return end + 1;
    return chunkAt(file, end, bigEndian) ? end : end + 1;
}

/// Whether nothing but whole chunks stands from here to the end.
bool onlyChunksFrom(FileWindow& file, std::int64_t position, bool bigEndian) {
    while (position < file.size()) {
        const auto chunk = chunkAt(file, position, bigEndian);
        if (!chunk) return false;
        position = behind(file, position + 8 + chunk->size, chunk->size, bigEndian);
    }
    return position == file.size() || position == file.size() + 1;
}

/// The size of the sound as a WAV of more than four gigabytes tells it, none if it is nonsense.
std::int64_t longDataSize(FileWindow& file, std::int64_t body) {
    const std::string text = readText(file, body, 16);
    if (text.size() < 16) return 0;
    const std::uint64_t high = numberAt(text, 12, 4, false);
    const std::uint64_t size = high << 32 | numberAt(text, 8, 4, false);
    return size <= static_cast<std::uint64_t>(file.size()) ? static_cast<std::int64_t>(size) : 0;
}

/// A size that was never filled in means the rest of the file.
std::int64_t endOfData(FileWindow& file, std::int64_t start, std::uint32_t size,
                       std::int64_t longSize, bool bigEndian) {
    if (size == sizeUnknown && longSize > 0) return std::min(file.size(), start + longSize);
    const bool open = size == sizeUnknown || (size == 0 && !onlyChunksFrom(file, start, bigEndian));
    return open ? file.size() : std::min(file.size(), start + size);
}

} // namespace

bool isWaveMark(std::string_view letters) {
    constexpr std::array<std::string_view, 4> marks{"RIFF", "RIFX", "RF64", "BW64"};
    return std::ranges::find(marks, letters) != marks.end();
}

bool WaveParts::isMpeg() const {
    const std::uint32_t tag = numberAt(format, 0, 2, bigEndian);
    return tag == mpegTag || tag == mpegLayerThreeTag;
}

std::string WaveParts::header() const {
    const std::int64_t bytes = dataEnd - dataStart;
    const auto formatBytes = static_cast<std::int64_t>(format.size());
    const bool isLong = bytes > longestShortData && !bigEndian;
    std::string text = bigEndian ? "RIFX" : isLong ? "RF64" : "RIFF";
    appendNumber(text, isLong ? sizeUnknown : 4 + 8 + formatBytes + 8 + bytes, bigEndian);
    text += "WAVE";
    if (isLong) {
        text += "ds64";
        appendNumber(text, 28, bigEndian);
        appendLong(text, 4 + 8 + 28 + 8 + formatBytes + 8 + bytes);
        appendLong(text, bytes);
        text += std::string(12, '\0');
    }
    text += "fmt ";
    appendNumber(text, formatBytes, bigEndian);
    text += format + "data";
    appendNumber(text, bytes, bigEndian);
    return text;
}

std::optional<WaveParts> findWaveParts(FileWindow& file) {
    const std::string head = readText(file, 0, headBytes);
    if (!head.ends_with("WAVE") || !isWaveMark(head.substr(0, 4))) return std::nullopt;
    WaveParts parts;
    parts.bigEndian = head.starts_with("RIFX");
    std::int64_t at = headBytes;
    std::int64_t longData = 0;
    for (int i = 0; i < mostChunks && (parts.format.empty() || parts.dataEnd == 0); ++i) {
        const auto chunk = chunkFrom(file, at, parts.bigEndian);
        if (!chunk) return std::nullopt;
        const std::int64_t body = at + 8;
        std::int64_t end = body + chunk->size;
        if (chunk->name == "fmt " && parts.format.empty())
            parts.format = readText(file, body, std::min<std::int64_t>(chunk->size, longestFormat));
        if (chunk->name == "ds64") longData = longDataSize(file, body);
        if (chunk->name == "data" && parts.dataEnd == 0) {
            end = endOfData(file, body, chunk->size, longData, parts.bigEndian);
            parts.dataStart = body;
            parts.dataEnd = end;
        }
        at = behind(file, end, chunk->size, parts.bigEndian);
    }
    if (parts.dataEnd == 0 || parts.format.size() < 16 || parts.format.size() % 2 != 0)
        return std::nullopt;
    return parts;
}

} // namespace platform::media
