#pragma once

#include "toolkit/control.h"

namespace toolkit {

/// A bitmap or an icon laid on the form. It takes every mouse event over its area.
class Image : public Control {
  public:
    /// Set once, from the window table.
    void setPicture(platform::Picture picture);
    [[nodiscard]] platform::Size pictureSize() const { return {picture_.width, picture_.height}; }

    void paint(platform::Picture& target, const platform::Rect& area) const override;

  private:
    platform::Picture picture_;
    bool opaque_ = true;
};

} // namespace toolkit
