#include "platform/linux/media/stretched_file.h"

#include <algorithm>

namespace platform::media {

StretchedFile::StretchedFile(FileWindow& file, const std::vector<Stretch>& stretches)
    : file_(file) {
    stretches_.reserve(stretches.size());
    for (const Stretch& stretch : stretches) {
        stretches_.push_back({size_, stretch});
        size_ += stretch.end - stretch.start;
    }
}

void StretchedFile::seek(std::int64_t position) {
    at_ = std::clamp<std::int64_t>(position, 0, size_);
}

std::size_t StretchedFile::read(void* to, std::size_t size) {
    auto* out = static_cast<std::byte*>(to);
    std::size_t done = 0;
    while (done < size && at_ < size_) {
        const auto next = std::ranges::upper_bound(stretches_, at_, {}, &Placed::at);
        const Placed& placed = *(next - 1);
        const std::int64_t place = placed.stretch.start + at_ - placed.at;
        const auto wanted = std::min<std::int64_t>(static_cast<std::int64_t>(size - done),
                                                   placed.stretch.end - place);
        file_.seek(place);
        const std::size_t got = file_.read(out + done, static_cast<std::size_t>(wanted));
        done += got;
        at_ += static_cast<std::int64_t>(got);
        if (static_cast<std::int64_t>(got) < wanted) break;
    }
    return done;
}

} // namespace platform::media
