#pragma once

#include "toolkit/artwork.h"
#include "toolkit/control.h"

#include <utility>

namespace toolkit {

/// A bitmap or an icon laid on the form. It takes every mouse event over its area.
class Image : public Control {
  public:
    /// Set once, from the window table.
    void setPicture(Artwork artwork) { artwork_ = std::move(artwork); }
    [[nodiscard]] platform::Size pictureSize() const {
        return {artwork_.natural().width, artwork_.natural().height};
    }

    void paint(const Canvas& target, const platform::Rect& area) const override;

  private:
    Artwork artwork_;
};

} // namespace toolkit
