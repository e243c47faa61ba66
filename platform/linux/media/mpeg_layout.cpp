#include "platform/linux/media/mpeg_layout.h"

#include "platform/linux/media/mpeg_claims.h"
#include "platform/linux/media/music_tags.h"

#include <algorithm>
#include <utility>

namespace platform::media {
namespace {

// Eight megabytes of random bytes, or of pictures, hold some 1,600 that could be headers; quiet
// samples of 16 bits hold one in every few bytes, and would be searched for seconds.
constexpr int mostTries = 50'000;
constexpr int freeTries = 8; // each is a search of its own

class LayoutReader {
  public:
    LayoutReader(FileWindow& file, const MeasurePatience& patience)
        : file_(file), patience_(patience), end_(beforeTrailingTags(file)) {}

    std::vector<MpegPart> read() {
        if (!findMusic()) return {};
        do
            takeFrames();
        while (!done_ && findMore());
        if (abandoned_) return {};
        std::erase_if(parts_, [](const MpegPart& part) { return part.frames == 0; });
        return std::move(parts_);
    }

  private:
    bool findMusic() {
        const std::int64_t start = bytesOfLeadingTags(file_);
        const std::int64_t last = std::min(end_, start + longestJunk);
        auto before = Before::Nothing;
        int tries = 0;
        for (at_ = start; at_ < last && tries < mostTries; at_ = nextHeader(file_, at_ + 1, last)) {
            const auto header = mpegHeaderAt(file_, at_);
            tries += header && header->bytes == 0 ? freeTries : 1;
            if (const auto stream = streamAt(file_, at_, end_, before)) {
                begin(*stream);
                return true;
            }
            before = Before::Junk;
        }
        return false;
    }

    void begin(const MpegStream& stream) {
        MpegPart& part = parts_.emplace_back();
        part.stream = stream;
        part.padding = readEncoderPadding(file_, at_);
        taken_ = 0;
        if (part.padding) at_ += stream.bytesOf(stream.first);
    }

    /// Takes frames for as long as one follows the other.
    void takeFrames() {
        MpegPart& part = parts_.back();
        while (!done_) {
            const auto header = part.stream.frameAt(file_, at_);
            if (!header) return;
            if (part.frames % MpegPart::indexStep == 0 && !goesOn()) return;
            const int bytes = part.stream.bytesOf(*header);
            if (part.stretches.empty() || part.stretches.back().end != at_)
                part.stretches.push_back({at_, at_});
            // The decoder passes over a last frame that was cut, but may want to see it.
            part.stretches.back().end = std::min(end_, at_ + bytes);
            done_ = at_ + bytes > end_;
            if (!done_) count(part, *header, bytes);
        }
    }

    void count(MpegPart& part, const MpegHeader& header, int bytes) {
        if (part.frames == 0) {
            part.smallestFrame = bytes;
            part.bitRate = header.bitRate;
        }
        if (header.bitRate != part.bitRate) part.bitRate = 0;
        if (part.frames % MpegPart::indexStep == 0) part.index.push_back(taken_);
        part.smallestFrame = std::min(part.smallestFrame, bytes);
        ++part.frames;
        taken_ += bytes;
        at_ += bytes;
    }

    /// Looks up now and then from counting: whether to go on with it.
    bool goesOn() {
        abandoned_ = patience_.abandoned && patience_.abandoned();
        done_ = abandoned_;
        const bool simple = parts_.size() == 1 && parts_.front().stretches.size() == 1;
        if (!done_ && simple && !claimsWeighed_ && parts_.front().frames > 0 &&
            std::chrono::steady_clock::now() >= patience_.until) {
            claimsWeighed_ = true;
            done_ = takeClaims(file_, end_, parts_.front());
        }
        return !done_;
    }

    /// Past a tag, another part's beginning, or junk.
    bool findMore() {
        if (end_ - at_ < static_cast<std::int64_t>(MpegHeader::size)) return false;
        if (const std::int64_t bytes = tagSizeAt(file_, at_); bytes > 0) {
            at_ += bytes;
            return true;
        }
        if (const auto stream = streamAt(file_, at_, end_, Before::Frames)) {
            begin(*stream);
            return true;
        }
        const std::int64_t last = std::min(end_, at_ + longestJunk);
        do
            at_ = nextHeader(file_, at_ + 1, last);
        while (at_ < last && !resumesAt(file_, at_, end_, parts_.back().stream));
        return at_ < last;
    }

    FileWindow& file_;
    const MeasurePatience& patience_;
    const std::int64_t end_;
    std::int64_t at_ = 0;
    std::int64_t taken_ = 0; ///< bytes of the present part
    std::vector<MpegPart> parts_;
    bool done_ = false;
    bool abandoned_ = false;
    bool claimsWeighed_ = false;
};

} // namespace

std::vector<MpegPart> readMpegLayout(FileWindow& file, const MeasurePatience& patience) {
    return LayoutReader(file, patience).read();
}

} // namespace platform::media
