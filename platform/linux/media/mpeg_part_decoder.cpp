#include "platform/linux/media/mpeg_part_decoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <mpg123.h>
#include <utility>
#include <vector>

namespace platform::media {
namespace {

// Any decoder of layer III puts this many samples before the sound, on top of the encoder's own.
constexpr std::int64_t decoderDelay = 529;

// A frame may borrow this many bytes from the ones before it.
constexpr long borrowedBytes = 511;
constexpr long mostFramesBeforeSeek = 64;

// After this many frames the decoder's filter stands as before them.
constexpr std::int64_t filterPeriod = 8;

/// The frames to decode ahead of a new place, so that what follows comes out as if all had been.
long framesBeforeSeek(int smallestBody) {
    if (smallestBody <= 0) return mostFramesBeforeSeek;
    return std::min(mostFramesBeforeSeek, borrowedBytes / smallestBody + 4);
}

bool goesOn(int result) { return result == MPG123_OK || result == MPG123_NEW_FORMAT; }

ssize_t readFile(void* file, void* to, std::size_t size) {
    return static_cast<ssize_t>(static_cast<StretchedFile*>(file)->read(to, size));
}

off_t seekFile(void* file, off_t offset, int origin) {
    auto* bytes = static_cast<StretchedFile*>(file);
    std::int64_t start = 0;
    if (origin == SEEK_CUR) start = bytes->position();
    if (origin == SEEK_END) start = bytes->size();
    if (start + offset < 0) return -1;
    bytes->seek(start + offset);
    return bytes->position();
}

/// What an encoder put before the sound, and any decoder on top of it.
std::int64_t delayOf(const MpegPart& part) {
    if (!part.padding || part.padding->frames == 0) return 0;
    return std::min(part.frames * part.stream.first.samples, part.padding->delay + decoderDelay);
}

} // namespace

void MpegPartDecoder::Closer::operator()(mpg123_handle_struct* handle) const {
    mpg123_close(handle);
    mpg123_delete(handle);
}

bool MpegPartDecoder::open(FileWindow& file, const MpegPart& part) {
    const MpegHeader& header = part.stream.first;
    part_ = &part;
    bytes_ = std::make_unique<StretchedFile>(file, part.stretches);
    format_ = {header.rate, SampleKind::Signed16};
    frames_ = framesOf(part);
    delay_ = delayOf(part);
    const int smallestBody =
        part.smallestFrame - static_cast<int>(MpegHeader::size) - header.sideBytes;
    framesAhead_ = part.whole ? framesBeforeSeek(smallestBody) : mostFramesBeforeSeek;
    // Layer III is always started one frame early by the library itself.
    decoderPreframes_ = header.sideBytes != 0 ? 1 : 0;

    handle_.reset(mpg123_new(nullptr, nullptr));
    mpg123_handle_struct* handle = handle_.get();
    if (handle == nullptr) return false;
    constexpr long flags =
        MPG123_QUIET | MPG123_SKIP_ID3V2 | MPG123_FORCE_STEREO | MPG123_IGNORE_INFOFRAME;
    mpg123_param(handle, MPG123_ADD_FLAGS, flags, 0.0);
    mpg123_param(handle, MPG123_REMOVE_FLAGS, MPG123_GAPLESS, 0.0);
    mpg123_param(handle, MPG123_RESYNC_LIMIT, -1, 0.0);
    mpg123_param(handle, MPG123_PREFRAMES, decoderPreframes_, 0.0);
    // The library counts a frame without its header.
    if (const int bytes = part.stream.freeBytes; bytes != 0)
        mpg123_param(handle, MPG123_FREEFORMAT_SIZE, bytes - static_cast<int>(MpegHeader::size),
                     0.0);
    mpg123_format_none(handle);
    if (mpg123_format(handle, header.rate, MPG123_STEREO, MPG123_ENC_SIGNED_16) != MPG123_OK)
        return false;
    return mpg123_replace_reader_handle(handle, readFile, seekFile, nullptr) == MPG123_OK &&
           seek(0);
}

std::int64_t MpegPartDecoder::framesOf(const MpegPart& part) {
    const std::int64_t samples = part.frames * part.stream.first.samples;
    std::int64_t frames = samples - delayOf(part);
    // A file that was cut short has lost its padding.
    const auto& told = part.padding;
    if (told && told->frames > 0 && told->frames <= part.frames)
        frames -= std::max<std::int64_t>(0, told->padding - decoderDelay);
    return frames;
}

/// From the start, with nothing left of what was decoded before.
bool MpegPartDecoder::rewind() {
    mpg123_close(handle_.get());
    bytes_->seek(0);
    if (mpg123_open_handle(handle_.get(), bytes_.get()) != MPG123_OK) return false;
    // The library copies them.
    auto* places = const_cast<off_t*>(part_->index.data());
    return part_->index.empty() || mpg123_set_index(handle_.get(), places, MpegPart::indexStep,
                                                    part_->index.size()) == MPG123_OK;
}

/// Starts some frames early, at one whose number has no remainder: the decoder's filter is then in
/// the very state it would be in had it decoded everything, and rounds the same way.
bool MpegPartDecoder::seek(std::int64_t frame) {
    at_ = frame;
    const int frameSamples = part_->stream.first.samples;
    const std::int64_t target = delay_ + frame;
    std::int64_t first = target / frameSamples - framesAhead_;
    first = std::max<std::int64_t>(0, first - first % filterPeriod);
    const std::int64_t early = first == 0 ? 0 : decoderPreframes_;
    if (!rewind() || mpg123_seek(handle_.get(), (first + early) * frameSamples, SEEK_SET) < 0)
        return false;
    std::int64_t left = target - (first + early) * frameSamples;
    std::array<std::byte, 8192> skipped{};
    while (left > 0) {
        const auto wanted =
            std::min(skipped.size(), static_cast<std::size_t>(left) * format_.bytesPerFrame());
        std::size_t got = 0;
        const int result = mpg123_read(handle_.get(), skipped.data(), wanted, &got);
        left -= static_cast<std::int64_t>(got / format_.bytesPerFrame());
        if (!goesOn(result)) break;
    }
    return true;
}

std::size_t MpegPartDecoder::read(std::byte* to, std::size_t count) {
    const std::size_t size = format_.bytesPerFrame();
    const auto left = static_cast<std::size_t>(std::max<std::int64_t>(0, frames_ - at_));
    const std::size_t wanted = std::min(count, left) * size;
    std::size_t done = 0;
    while (done < wanted) {
        std::size_t got = 0;
        const int result = mpg123_read(handle_.get(), to + done, wanted - done, &got);
        done += got;
        if (!goesOn(result)) break;
    }
    at_ += static_cast<std::int64_t>(done / size);
    return done / size;
}

} // namespace platform::media
