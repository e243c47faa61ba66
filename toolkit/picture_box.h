#pragma once

#include "toolkit/control.h"
#include "toolkit/painter.h"

#include <utility>
#include <vector>

namespace toolkit {

/// A box without a border that shows a bitmap from its top left corner, cropped to the box, on its
/// back colour. It may hold other controls, which it crops too; the pointer doesn't reach them.
class PictureBox : public Control {
  public:
    /// Set once, from the window table.
    void setPicture(Artwork artwork) { artwork_ = std::move(artwork); }
    /// Black if it isn't set.
    void setBackColour(StoredColour colour) { backColour_ = colour; }
    /// Takes a control, placed relative to the box, below those taken before.
    void hold(Control& control) { held_.push_back(&control); }

    void paint(const Canvas& target, const platform::Rect& area) const override;

  private:
    Artwork artwork_;
    StoredColour backColour_ = Black;
    std::vector<Control*> held_;
};

} // namespace toolkit
