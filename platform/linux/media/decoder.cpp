#include "platform/linux/media/decoder.h"

#include "platform/linux/media/mpeg_frames.h"
#include "platform/linux/media/wave_parts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

namespace platform::media {
namespace {

/// Whether a file names itself, behind any tags, as one of the containers of libsndfile. Nothing
/// else is given to that library: it takes too much for MPEG audio.
bool isContainer(FileWindow& file) {
    constexpr std::array<std::string_view, 11> marks{"RIFF", "RIFX", "RF64", "BW64", "riff", "FORM",
                                                     "fLaC", "OggS", ".snd", "caff", "NIST"};
    std::array<char, 4> head{};
    file.seek(bytesOfLeadingTags(file));
    const std::string_view start(head.data(), file.read(head.data(), head.size()));
    return std::ranges::find(marks, start) != marks.end();
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

MediaError Decoder::open(const std::string& hostPath) {
    FileWindow file;
    if (const int error = file.open(hostPath); error != 0) return errorOf(error);
    if (!isContainer(file)) return openMpeg(std::move(file));
    const std::int64_t start = bytesOfLeadingTags(file);
    file.narrow(start, file.size());
    if (source_.emplace<SoundFileDecoder>().open(std::move(file))) return MediaError::None;
    FileWindow again;
    if (const int error = again.open(hostPath); error != 0) return errorOf(error);
    again.narrow(start, again.size());
    return openOddWave(std::move(again));
}

MediaError Decoder::openOddWave(FileWindow file) {
    const auto parts = findWaveParts(file);
    if (!parts) return openMpeg(std::move(file));
    file.narrow(parts->dataStart, parts->dataEnd);
    if (parts->isMpeg()) return openMpeg(std::move(file));
    const bool good = source_.emplace<SoundFileDecoder>().open(std::move(file), parts->header());
    return good ? MediaError::None : MediaError::NotAudio;
}

MediaError Decoder::openMpeg(FileWindow file) {
    const bool good =
        narrowToMpegSound(file) && source_.emplace<MpegDecoder>().open(std::move(file));
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
