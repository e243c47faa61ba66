#include "platform/linux/media/decoder.h"

#include "platform/linux/media/music_tags.h"
#include "platform/linux/media/wave_parts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

namespace platform::media {
namespace {

enum class Container { None, Wave, Other };

/// What a file names itself, behind any tags. Nothing but these is given to libsndfile: it takes
/// too much for MPEG audio.
Container containerOf(FileWindow& file) {
    constexpr std::array<std::string_view, 7> others{"riff", "FORM", "fLaC", "OggS",
                                                     ".snd", "caff", "NIST"};
    std::array<char, 4> head{};
    file.seek(bytesOfLeadingTags(file));
    const std::string_view start(head.data(), file.read(head.data(), head.size()));
    if (isWaveMark(start)) return Container::Wave;
    return std::ranges::find(others, start) != others.end() ? Container::Other : Container::None;
}

MediaError errorOf(int systemError) {
    switch (systemError) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
        return MediaError::FileNotFound;
    default:
        return MediaError::FileUnreadable;
    }
}

} // namespace

MediaError Decoder::open(const std::string& hostPath, const MeasurePatience& patience) {
    FileWindow file;
    if (const int error = file.open(hostPath); error != 0) return errorOf(error);
    const Container container = containerOf(file);
    if (container == Container::None) return openMpeg(std::move(file), patience);
    const std::int64_t start = bytesOfLeadingTags(file);
    file.narrow(start, file.size());
    if (container == Container::Wave) return openWave(std::move(file), patience);
    if (source_.emplace<SoundFileDecoder>().open(std::move(file))) return MediaError::None;
    FileWindow again;
    if (const int error = again.open(hostPath); error != 0) return errorOf(error);
    return openMpeg(std::move(again), patience);
}

MediaError Decoder::openWave(FileWindow file, const MeasurePatience& patience) {
    const auto parts = findWaveParts(file);
    if (!parts) return openMpeg(std::move(file), patience);
    file.narrow(parts->dataStart, parts->dataEnd);
    if (parts->isMpeg()) return openMpeg(std::move(file), patience);
    const bool good = source_.emplace<SoundFileDecoder>().open(std::move(file), parts->header());
    return good ? MediaError::None : MediaError::NotAudio;
}

MediaError Decoder::openMpeg(FileWindow file, const MeasurePatience& patience) {
    const bool good = source_.emplace<MpegDecoder>().open(std::move(file), patience);
    return good ? MediaError::None : MediaError::NotAudio;
}

SoundFormat Decoder::format() const {
    return std::visit(
        [](const auto& source) -> SoundFormat {
            if constexpr (requires { source.format(); })
                return source.format();
            else
                return {};
        },
        source_);
}

std::int64_t Decoder::frames() const {
    return std::visit(
        [](const auto& source) -> std::int64_t {
            if constexpr (requires { source.frames(); })
                return source.frames();
            else
                return 0;
        },
        source_);
}

bool Decoder::seek(std::int64_t frame) {
    return std::visit(
        [frame](auto& source) {
            if constexpr (requires { source.seek(frame); })
                return source.seek(frame);
            else
                return false;
        },
        source_);
}

std::size_t Decoder::read(std::byte* to, std::size_t count) {
    return std::visit(
        [to, count](auto& source) -> std::size_t {
            if constexpr (requires { source.read(to, count); })
                return source.read(to, count);
            else
                return 0;
        },
        source_);
}

} // namespace platform::media
