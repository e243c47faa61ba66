#include "platform/linux/media/mpeg_decoder.h"

#include <algorithm>
#include <utility>

namespace platform::media {

bool MpegDecoder::open(FileWindow file, const MeasurePatience& patience) {
    file_ = std::make_unique<FileWindow>(std::move(file));
    parts_ = readMpegLayout(*file_, patience);
    if (parts_.empty()) return false;
    format_ = {parts_.front().stream.first.rate, SampleKind::Signed16};
    for (const MpegPart& part : parts_) {
        Placed placed;
        placed.start = frames_;
        std::int64_t frames = MpegPartDecoder::framesOf(part);
        if (const int rate = part.stream.first.rate; rate != format_.rate)
            frames = placed.resampler.emplace(rate, format_.rate).framesOf(frames);
        frames_ += std::max<std::int64_t>(0, frames);
        placed.end = frames_;
        placed_.push_back(std::move(placed));
    }
    return frames_ > 0 && seek(0);
}

bool MpegDecoder::startAt(std::size_t part, std::int64_t frame) {
    if (!decoder_ || part != current_) {
        decoder_ = std::make_unique<MpegPartDecoder>();
        current_ = part;
        if (!decoder_->open(*file_, parts_[part])) return false;
    }
    auto& resampler = placed_[part].resampler;
    return resampler ? resampler->seek(*decoder_, frame) : decoder_->seek(frame);
}

bool MpegDecoder::seek(std::int64_t frame) {
    at_ = frame;
    const auto holds = [frame](const Placed& placed) { return frame < placed.end; };
    const auto found = std::ranges::find_if(placed_, holds);
    if (found == placed_.end()) return true;
    return startAt(static_cast<std::size_t>(found - placed_.begin()), frame - found->start);
}

std::size_t MpegDecoder::read(std::byte* to, std::size_t count) {
    const std::size_t size = format_.bytesPerFrame();
    std::size_t done = 0;
    while (done < count && at_ < frames_) {
        Placed& placed = placed_[current_];
        if (at_ == placed.end) {
            if (!seek(at_)) break;
            continue;
        }
        std::byte* out = to + done * size;
        const std::size_t wanted =
            std::min(count - done, static_cast<std::size_t>(placed.end - at_));
        const std::size_t got =
            placed.resampler
                ? placed.resampler->read(*decoder_, reinterpret_cast<std::int16_t*>(out), wanted)
                : decoder_->read(out, wanted);
        if (got == 0) break;
        done += got;
        at_ += static_cast<std::int64_t>(got);
    }
    return done;
}

} // namespace platform::media
