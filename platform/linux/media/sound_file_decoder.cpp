#include "platform/linux/media/sound_file_decoder.h"

#include "platform/linux/media/down_mix.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <sndfile.h>
#include <utility>

namespace platform::media {
namespace {

// Frames mixed at a time: keeps the buffer small for files of very many channels.
constexpr std::size_t mixFrames = 1024;

using Source = SoundFileDecoder::Source;

sf_count_t fileSize(void* source) { return static_cast<Source*>(source)->size(); }

sf_count_t seekFile(sf_count_t offset, int origin, void* to) {
    auto* source = static_cast<Source*>(to);
    std::int64_t start = 0;
    if (origin == SEEK_CUR) start = source->at;
    if (origin == SEEK_END) start = source->size();
    source->at = std::clamp<std::int64_t>(start + offset, 0, source->size());
    return source->at;
}

sf_count_t readFile(void* to, sf_count_t size, void* source) {
    const auto count = static_cast<std::size_t>(std::max<sf_count_t>(0, size));
    return static_cast<sf_count_t>(
        static_cast<Source*>(source)->read(static_cast<char*>(to), count));
}

sf_count_t writeNothing(const void*, sf_count_t, void*) { return 0; }

sf_count_t positionOf(void* source) { return static_cast<Source*>(source)->at; }

sf_count_t readFrames(SNDFILE* sound, short* to, sf_count_t count) {
    return sf_readf_short(sound, to, count);
}

sf_count_t readFrames(SNDFILE* sound, float* to, sf_count_t count) {
    return sf_readf_float(sound, to, count);
}

SampleKind kindOf(int format) {
    switch (format & SF_FORMAT_SUBMASK) {
    case SF_FORMAT_PCM_24:
    case SF_FORMAT_PCM_32:
    case SF_FORMAT_FLOAT:
    case SF_FORMAT_DOUBLE:
    case SF_FORMAT_VORBIS:
    case SF_FORMAT_OPUS:
    case SF_FORMAT_ALAC_20:
    case SF_FORMAT_ALAC_24:
    case SF_FORMAT_ALAC_32:
        return SampleKind::Float32;
    default:
        return SampleKind::Signed16;
    }
}

bool isMpeg(int format) {
    const int sub = format & SF_FORMAT_SUBMASK;
    return (format & SF_FORMAT_TYPEMASK) == SF_FORMAT_MPEG ||
           (sub >= SF_FORMAT_MPEG_LAYER_I && sub <= SF_FORMAT_MPEG_LAYER_III);
}

} // namespace

void SoundFileDecoder::Closer::operator()(sf_private_tag* file) const { sf_close(file); }

std::size_t SoundFileDecoder::Source::read(char* to, std::size_t count) {
    const std::size_t place = std::min(static_cast<std::size_t>(at), head.size());
    std::size_t done = head.copy(to, count, place);
    if (done < count) {
        file.seek(at + static_cast<std::int64_t>(done) - static_cast<std::int64_t>(head.size()));
        done += file.read(to + done, count - done);
    }
    at += static_cast<std::int64_t>(done);
    return done;
}

bool SoundFileDecoder::open(FileWindow file, std::string head) {
    source_ = std::make_unique<Source>(Source{std::move(head), std::move(file)});
    SF_INFO info{};
    if (!openSound(info)) return false;
    // Frames of MPEG audio are found more strictly elsewhere.
    if (isMpeg(info.format)) return false;
    if (info.frames <= 0 || info.channels <= 0) return false;
    if (info.samplerate < lowestRate || info.samplerate > highestRate) return false;
    format_ = {info.samplerate, kindOf(info.format)};
    frames_ = info.frames;
    channels_ = static_cast<std::size_t>(info.channels);
    // Some codings say that they can be searched, and then can't.
    findsPlaces_ = info.seekable != 0 && sf_seek(sound_.get(), frames_ / 2, SEEK_SET) >= 0;
    // Laid out now: the decoding thread has nobody to tell that memory ran out.
    const std::size_t samples = channels_ == 2 ? 0 : channels_ * mixFrames;
    if (format_.kind == SampleKind::Signed16)
        shorts_.resize(samples);
    else
        floats_.resize(samples);
    at_ = frames_; // wherever the search has left it
    return seek(0);
}

bool SoundFileDecoder::openSound(SF_INFO& info) {
    SF_VIRTUAL_IO callbacks{fileSize, seekFile, readFile, writeNothing, positionOf};
    sound_.reset();
    source_->at = 0;
    sound_.reset(sf_open_virtual(&callbacks, SFM_READ, &info, source_.get()));
    return sound_ != nullptr;
}

bool SoundFileDecoder::seek(std::int64_t frame) {
    if (!findsPlaces_) return seekByDecoding(frame);
    at_ = frame;
    return sf_seek(sound_.get(), frame, SEEK_SET) == frame;
}

/// GSM 6.10 goes at about 4,800 times its own speed, the slowest of the others, G.721, at 1,000: a
/// place ten minutes back in a telephone call is reached in 0.13 s and in 0.6 s.
bool SoundFileDecoder::seekByDecoding(std::int64_t frame) {
    if (frame < at_ || !sound_) {
        SF_INFO info{};
        at_ = 0;
        if (!openSound(info)) return false;
    }
    alignas(float) std::array<std::byte, 8192> dropped{};
    while (at_ < frame) {
        const auto most = static_cast<std::int64_t>(dropped.size() / format_.bytesPerFrame());
        const std::int64_t wanted = std::min(most, frame - at_);
        if (read(dropped.data(), static_cast<std::size_t>(wanted)) == 0) return false;
    }
    return true;
}

template <class Sample>
std::size_t SoundFileDecoder::readSamples(std::byte* to, std::size_t count,
                                          std::vector<Sample>& mixBuffer) {
    auto* out = reinterpret_cast<Sample*>(to);
    if (channels_ == 2)
        return static_cast<std::size_t>(
            std::max<sf_count_t>(0, readFrames(sound_.get(), out, static_cast<sf_count_t>(count))));
    std::size_t done = 0;
    while (done < count) {
        const std::size_t wanted = std::min(count - done, mixFrames);
        const sf_count_t got =
            readFrames(sound_.get(), mixBuffer.data(), static_cast<sf_count_t>(wanted));
        if (got <= 0) break;
        mixDown(mixBuffer.data(), channels_, static_cast<std::size_t>(got), out + 2 * done);
        done += static_cast<std::size_t>(got);
    }
    return done;
}

std::size_t SoundFileDecoder::read(std::byte* to, std::size_t count) {
    const auto left = static_cast<std::size_t>(std::max<std::int64_t>(0, frames_ - at_));
    const std::size_t wanted = std::min(count, left);
    const std::size_t done = format_.kind == SampleKind::Signed16
                                 ? readSamples<short>(to, wanted, shorts_)
                                 : readSamples<float>(to, wanted, floats_);
    at_ += static_cast<std::int64_t>(done);
    return done;
}

} // namespace platform::media
