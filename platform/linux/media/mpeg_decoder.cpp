#include "platform/linux/media/mpeg_decoder.h"

#include "platform/linux/media/mpeg_layout.h"

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

constexpr int headerBytes = 4;

// A frame may borrow this many bytes from the ones before it.
constexpr long borrowedBytes = 511;
constexpr long mostFramesBeforeSeek = 64;

// After this many frames the decoder's filter stands as before them.
constexpr std::int64_t filterPeriod = 8;

// Any disk has given up a whole file by then, but for one so slow that the windows would freeze.
constexpr std::chrono::seconds measurePatience{4};
constexpr int framesBetweenLooks = 128;

// Encoders count the bytes of the stream a little differently.
constexpr std::int64_t bytesMayDiffer = 4096;

/// What a whole stream has of something, if a part of its bytes has so much.
std::int64_t reckoned(std::int64_t counted, std::int64_t bytes, std::int64_t allBytes) {
    return std::llround(static_cast<double>(counted) * static_cast<double>(allBytes) /
                        static_cast<double>(bytes));
}

/// The frames of a stream of which only a part has been read: as its info frame tells, if that
/// fits the file, else as many as follow from the part.
std::int64_t framesFrom(const MpegLayout& part, const std::optional<EncoderPadding>& told,
                        std::int64_t start, std::int64_t size) {
    if (part.whole) return part.frames;
    const bool fits = told && told->frames > 0 && std::abs(told->bytes - size) <= bytesMayDiffer;
    return fits ? told->frames : reckoned(part.frames, part.end - start, size - start);
}

/// The frames to decode ahead of a new place, so that what follows comes out as if all had been.
long framesBeforeSeek(int smallestBody) {
    if (smallestBody <= 0) return mostFramesBeforeSeek;
    return std::min(mostFramesBeforeSeek, borrowedBytes / smallestBody + 4);
}

bool goesOn(int result) { return result == MPG123_OK || result == MPG123_NEW_FORMAT; }

ssize_t readFile(void* file, void* to, std::size_t size) {
    return static_cast<ssize_t>(static_cast<FileWindow*>(file)->read(to, size));
}

off_t seekFile(void* file, off_t offset, int origin) {
    auto* window = static_cast<FileWindow*>(file);
    std::int64_t start = 0;
    if (origin == SEEK_CUR) start = window->position();
    if (origin == SEEK_END) start = window->size();
    if (start + offset < 0) return -1;
    window->seek(start + offset);
    return window->position();
}

} // namespace

void MpegDecoder::Closer::operator()(mpg123_handle_struct* handle) const {
    mpg123_close(handle);
    mpg123_delete(handle);
}

bool MpegDecoder::open(FileWindow file) {
    file_ = std::make_unique<FileWindow>(std::move(file));
    return prepare() && measure() && seek(0);
}

bool MpegDecoder::prepare() {
    const auto header = mpegHeaderAt(*file_, 0);
    if (!header) return false;
    format_ = {header->rate, SampleKind::Signed16};
    // Layer III is always started one frame early by the library itself.
    decoderPreframes_ = header->sideBytes != 0 ? 1 : 0;

    handle_.reset(mpg123_new(nullptr, nullptr));
    mpg123_handle_struct* handle = handle_.get();
    if (handle == nullptr) return false;
    constexpr long flags = MPG123_QUIET | MPG123_SKIP_ID3V2 | MPG123_FORCE_STEREO;
    mpg123_param(handle, MPG123_ADD_FLAGS, flags, 0.0);
    mpg123_param(handle, MPG123_REMOVE_FLAGS, MPG123_GAPLESS, 0.0);
    mpg123_param(handle, MPG123_RESYNC_LIMIT, -1, 0.0);
    mpg123_param(handle, MPG123_PREFRAMES, decoderPreframes_, 0.0);
    mpg123_format_none(handle);
    if (mpg123_format(handle, header->rate, MPG123_STEREO, MPG123_ENC_SIGNED_16) != MPG123_OK)
        return false;
    return mpg123_replace_reader_handle(handle, readFile, seekFile, nullptr) == MPG123_OK &&
           rewind();
}

/// From the start, with nothing left of what was decoded before.
bool MpegDecoder::rewind() {
    mpg123_close(handle_.get());
    file_->seek(0);
    if (mpg123_open_handle(handle_.get(), file_.get()) != MPG123_OK) return false;
    return index_.empty() ||
           mpg123_set_index(handle_.get(), index_.data(), indexStep_, index_.size()) == MPG123_OK;
}

bool MpegDecoder::measure() {
    const auto padding = readEncoderPadding(*file_);
    file_->seek(0);
    if (!goesOn(mpg123_framebyframe_next(handle_.get()))) return false;
    frameSamples_ = mpg123_spf(handle_.get());
    const Until until = std::chrono::steady_clock::now() + measurePatience;
    if (!measureByHeaders(padding, until) && !measureByDecoder(until)) return false;

    frames_ = samples_;
    if (!padding || padding->frames == 0) return frames_ > 0;
    delay_ = std::min(samples_, padding->delay + decoderDelay);
    frames_ -= delay_;
    // A file that was cut short has lost its padding.
    if (padding->frames * frameSamples_ <= samples_)
        frames_ -= std::max<std::int64_t>(0, padding->padding - decoderDelay);
    return frames_ > 0;
}

/// The usual file: nothing but frames. Their headers tell all, and far sooner than a decoder.
bool MpegDecoder::measureByHeaders(const std::optional<EncoderPadding>& told, Until until) {
    const std::int64_t resumeAt = file_->position();
    const std::int64_t start = mpg123_framepos(handle_.get());
    const auto layout = readMpegLayout(*file_, start, until);
    file_->seek(resumeAt);
    if (!layout || layout->frames == 0) return false;
    const auto header = mpegHeaderAt(*file_, layout->index.front());
    file_->seek(resumeAt);

    samples_ = framesFrom(*layout, told, start, file_->size()) * header->samples;
    const int smallestBody = layout->smallestFrame - headerBytes - header->sideBytes;
    framesAhead_ = layout->whole ? framesBeforeSeek(smallestBody) : mostFramesBeforeSeek;
    index_.assign(layout->index.begin(), layout->index.end());
    indexStep_ = MpegLayout::indexStep;
    return true;
}

/// Junk between frames, free format, changes of rate: counts what the decoder finds.
bool MpegDecoder::measureByDecoder(Until until) {
    framesAhead_ = mostFramesBeforeSeek;
    samples_ = 0;
    int result = MPG123_OK;
    int frames = 0;
    while (goesOn(result)) {
        unsigned long word = 0;
        unsigned char* body = nullptr;
        std::size_t bytes = 0;
        if (mpg123_framedata(handle_.get(), &word, &body, &bytes) != MPG123_OK) break;
        const auto header = readMpegHeader(static_cast<std::uint32_t>(word));
        if (header) samples_ += std::int64_t{header->samples} * format_.rate / header->rate;
        result = mpg123_framebyframe_next(handle_.get());
        const std::int64_t place = mpg123_framepos(handle_.get());
        if (++frames % framesBetweenLooks == 0 && place > 0 &&
            std::chrono::steady_clock::now() >= until) {
            samples_ = reckoned(samples_, place, file_->size());
            break;
        }
    }
    off_t* places = nullptr;
    off_t step = 0;
    std::size_t count = 0;
    if (mpg123_index(handle_.get(), &places, &step, &count) == MPG123_OK && places != nullptr) {
        index_.assign(places, places + count);
        indexStep_ = step;
    }
    return samples_ > 0;
}

/// Starts some frames early, at one whose number has no remainder: the decoder's filter is then in
/// the very state it would be in had it decoded everything, and rounds the same way.
bool MpegDecoder::seek(std::int64_t frame) {
    at_ = frame;
    const std::int64_t target = delay_ + frame;
    std::int64_t first = target / frameSamples_ - framesAhead_;
    first = std::max<std::int64_t>(0, first - first % filterPeriod);
    const std::int64_t early = first == 0 ? 0 : decoderPreframes_;
    if (!rewind() || mpg123_seek(handle_.get(), (first + early) * frameSamples_, SEEK_SET) < 0)
        return false;
    std::int64_t left = target - (first + early) * frameSamples_;
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

std::size_t MpegDecoder::read(std::byte* to, std::size_t count) {
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
