#include "platform/linux/media/mpeg_claims.h"

#include <cmath>
#include <cstdlib>
#include <optional>

namespace platform::media {
namespace {

// Encoders count the bytes of the stream a little differently.
constexpr std::int64_t bytesMayDiffer = 4096;

// Where files of one bit rate were joined, the places are a byte or two off from then on.
constexpr std::int64_t placeMayDiffer = 16;

/// Frames of one bit rate, evenly spaced but for their padding.
class EvenFrames {
  public:
    EvenFrames(FileWindow& file, std::int64_t end, const MpegPart& part)
        : file_(file), part_(part), start_(part.stretches.front().start), end_(end) {
        const auto& first = part.stream.first;
        const double seconds = static_cast<double>(first.samples) / first.rate;
        bytesEach_ = seconds * part.bitRate / 8;
    }

    std::optional<std::int64_t> count() const {
        const auto about =
            static_cast<std::int64_t>(static_cast<double>(end_ - start_) / bytesEach_);
        for (const int quarter : {1, 2, 3}) {
            if (!placeOf(about * quarter / 4)) return std::nullopt;
        }
        std::int64_t frames = about - 2;
        auto at = placeOf(frames);
        while (at && *at < end_) {
            const auto header = part_.stream.frameAt(file_, *at);
            if (!header || *at + header->bytes > end_) break;
            *at += header->bytes;
            ++frames;
        }
        return at && end_ - *at < static_cast<std::int64_t>(bytesEach_) + 2 ? std::optional(frames)
                                                                            : std::nullopt;
    }

  private:
    /// Where a frame stands that is followed by another, both of the bit rate.
    std::optional<std::int64_t> placeOf(std::int64_t frame) const {
        const std::int64_t about = start_ + std::llround(bytesEach_ * static_cast<double>(frame));
        for (std::int64_t at = about - placeMayDiffer; at <= about + placeMayDiffer; ++at) {
            const auto header = part_.stream.frameAt(file_, at);
            if (!header || header->bitRate != part_.bitRate) continue;
            const auto next = part_.stream.frameAt(file_, at + header->bytes);
            if (next && next->bitRate == part_.bitRate) return at;
        }
        return std::nullopt;
    }

    FileWindow& file_;
    const MpegPart& part_;
    std::int64_t start_;
    std::int64_t end_;
    double bytesEach_ = 0;
};

} // namespace

bool takeClaims(FileWindow& file, std::int64_t end, MpegPart& part) {
    if (part.frames == 0) return false;
    const std::int64_t start = part.stretches.front().start;
    std::optional<std::int64_t> frames;
    const auto& told = part.padding;
    if (told && told->frames > part.frames) {
        const std::int64_t infoBytes = part.stream.bytesOf(part.stream.first);
        if (std::abs(told->bytes - (end - start + infoBytes)) <= bytesMayDiffer)
            frames = told->frames;
    }
    if (!frames && part.bitRate > 0) frames = EvenFrames(file, end, part).count();
    if (!frames) return false;
    part.frames = *frames;
    part.whole = false;
    part.stretches.front().end = end;
    return true;
}

} // namespace platform::media
