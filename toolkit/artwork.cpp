#include "toolkit/artwork.h"

#include "toolkit/reduce.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace toolkit {
namespace {

/// Every pixel `times` wide and high.
platform::Picture enlarged(const platform::Picture& picture, std::int32_t times) {
    platform::Picture large(picture.width * times, picture.height * times);
    for (std::int32_t y = 0; y < large.height; ++y)
        for (std::int32_t x = 0; x < large.width; ++x)
            large.row(y)[x] = picture.row(y / times)[x / times];
    return large;
}

} // namespace

Artwork::Artwork(platform::Picture natural, Source larger) : source_(std::move(larger)) {
    setNatural(std::move(natural));
}

void Artwork::setNatural(platform::Picture picture) const {
    natural_ = std::move(picture);
    opaque_ = std::all_of(natural_.pixels.begin(), natural_.pixels.end(),
                          [](platform::Pixel pixel) { return pixel >= 0xFF000000U; });
}

const platform::Picture& Artwork::natural() const {
    if (natural_.empty() && source_) setNatural(source_(1));
    return natural_;
}

bool Artwork::opaque() const { return natural().empty() || opaque_; }

const platform::Picture& Artwork::larger(std::int32_t times) const {
    if (made_ == nullptr) made_ = std::make_shared<Made>();
    if (made_->times == times) return made_->larger;
    *made_ = {};
    made_->times = times;
    if (source_) made_->larger = source_(times);
    if (made_->larger.empty()) made_->larger = enlarged(natural(), times);
    return made_->larger;
}

const platform::Picture& Artwork::at(double scale, platform::Point corner) const {
    if (scale == 1 || natural().empty()) return natural();
    const auto times = static_cast<std::int32_t>(std::ceil(scale));
    const platform::Picture& whole = larger(times);
    if (scale == times) return whole;
    if (made_->scale != scale || made_->corner != corner) {
        made_->scale = scale;
        made_->corner = corner;
        made_->fitted = reduced(natural(), whole, scale, corner);
    }
    return made_->fitted;
}

} // namespace toolkit
