#pragma once

#include "platform/picture.h"
#include "platform/types.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace toolkit {

/// A picture at its natural size and, for displays that need it, at larger ones.
class Artwork {
  public:
    /// Makes the picture with so many pixels to each of its own, 1 to 4; an empty one if there is
    /// none. Only asked when the picture is first needed, and for a form that a display needs.
    using Source = std::function<platform::Picture(std::int32_t times)>;

    Artwork() = default;
    /// What has no larger form is enlarged.
    Artwork(platform::Picture natural, Source larger = nullptr);
    explicit Artwork(Source source) : source_(std::move(source)) {}

    [[nodiscard]] const platform::Picture& natural() const;
    /// Whether nothing shines through it.
    [[nodiscard]] bool opaque() const;

    /// The picture for a display of `scale` pixels to one of its own, from 1 on, its top left
    /// corner at a place of its window. At a fraction it is the next larger form, reduced
    /// (reduce.h). Valid until the next call.
    [[nodiscard]] const platform::Picture& at(double scale, platform::Point corner) const;

  private:
    /// The last form that was asked for, and what it was made of.
    struct Made {
        std::int32_t times = 0;
        platform::Picture larger;
        double scale = 0;
        platform::Point corner;
        platform::Picture fitted;
    };
    [[nodiscard]] const platform::Picture& larger(std::int32_t times) const;

    void setNatural(platform::Picture picture) const;

    mutable platform::Picture natural_;
    mutable bool opaque_ = true;
    Source source_;
    mutable std::shared_ptr<Made> made_;
};

} // namespace toolkit
