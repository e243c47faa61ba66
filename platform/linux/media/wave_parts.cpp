#include "platform/linux/media/wave_parts.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace platform::media {
namespace {

constexpr std::int64_t headBytes = 12;     // of the file, before its first chunk
constexpr std::int64_t longestFormat = 64; // more of a format chunk than anybody reads
constexpr std::uint32_t sizeUnknown = 0xFFFFFFFF;
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

/// A size that was never filled in means the rest of the file.
std::int64_t endOfData(FileWindow& file, std::int64_t start, std::uint32_t size, bool bigEndian) {
    const bool open = size == sizeUnknown || (size == 0 && !onlyChunksFrom(file, start, bigEndian));
    return open ? file.size() : std::min(file.size(), start + size);
}

} // namespace

bool WaveParts::isMpeg() const {
    const std::uint32_t tag = numberAt(format, 0, 2, bigEndian);
    return tag == mpegTag || tag == mpegLayerThreeTag;
}

std::string WaveParts::header() const {
    const std::int64_t bytes = dataEnd - dataStart;
    const auto formatBytes = static_cast<std::int64_t>(format.size());
    std::string text = bigEndian ? "RIFX" : "RIFF";
    appendNumber(text, 4 + 8 + formatBytes + 8 + bytes, bigEndian);
    text += "WAVEfmt ";
    appendNumber(text, formatBytes, bigEndian);
    text += format + "data";
    appendNumber(text, bytes, bigEndian);
    return text;
}

std::optional<WaveParts> findWaveParts(FileWindow& file) {
    const std::string head = readText(file, 0, headBytes);
    constexpr std::array<std::string_view, 4> marks{"RIFF", "RIFX", "RF64", "BW64"};
    const bool isWave = head.size() == headBytes && head.ends_with("WAVE") &&
                        std::ranges::find(marks, head.substr(0, 4)) != marks.end();
    if (!isWave) return std::nullopt;
    WaveParts parts;
    parts.bigEndian = head.starts_with("RIFX");
    std::int64_t at = headBytes;
    while (parts.format.empty() || parts.dataEnd == 0) {
        const auto chunk = chunkAt(file, at, parts.bigEndian);
        if (!chunk) return std::nullopt;
        const std::int64_t body = at + 8;
        std::int64_t end = body + chunk->size;
        if (chunk->name == "fmt " && parts.format.empty())
            parts.format = readText(file, body, std::min<std::int64_t>(chunk->size, longestFormat));
        if (chunk->name == "data" && parts.dataEnd == 0) {
            end = endOfData(file, body, chunk->size, parts.bigEndian);
            parts.dataStart = body;
            parts.dataEnd = end;
        }
        at = behind(file, end, chunk->size, parts.bigEndian);
    }
    if (parts.format.size() < 16 || parts.format.size() % 2 != 0) return std::nullopt;
    return parts;
}

} // namespace platform::media
