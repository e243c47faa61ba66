#include "platform/linux/media/mpeg_layout.h"

#include "platform/linux/media/mpeg_frames.h"

#include <algorithm>

namespace platform::media {

std::optional<MpegLayout> readMpegLayout(FileWindow& file, std::int64_t start,
                                         std::chrono::steady_clock::time_point until) {
    const auto first = mpegHeaderAt(file, start);
    if (!first) return std::nullopt;
    MpegLayout layout;
    layout.smallestFrame = first->bytes;
    std::int64_t at = start;
    while (file.size() - at >= 4) {
        const auto header = mpegHeaderAt(file, at);
        if (!header || header->bytes == 0 || !sameStream(header->word, first->word))
            return std::nullopt;
        if (at + header->bytes > file.size()) break; // a last frame that was cut can't be decoded
        if (layout.frames % MpegLayout::indexStep == 0) {
            layout.whole = layout.frames == 0 || std::chrono::steady_clock::now() < until;
            if (!layout.whole) break;
            layout.index.push_back(at);
        }
        layout.smallestFrame = std::min(layout.smallestFrame, header->bytes);
        ++layout.frames;
        at += header->bytes;
    }
    layout.end = at;
    return layout;
}

} // namespace platform::media
