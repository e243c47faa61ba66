#pragma once

#include "platform/text.h"
#include "toolkit/control.h"
#include "toolkit/painter.h"

#include <string>

namespace toolkit {

/// One line of text on an opaque box.
class Label : public Control {
  public:
    [[nodiscard]] std::string Caption() const;
    void Caption(const std::string& caption);
    [[nodiscard]] StoredColour ForeColor() const;
    void ForeColor(StoredColour colour);

    /// Set once, from the window table; loads nothing.
    void setText(std::string caption, platform::Font font, StoredColour colour);

    /// The colour of its box, black if it isn't set.
    void setBackColour(StoredColour colour) { backColour_ = colour; }

    void paint(const Canvas& target, const platform::Rect& area) const override;

  private:
    std::string caption_;
    platform::Font font_;
    StoredColour colour_ = Yellow;
    StoredColour backColour_ = Black;
};

} // namespace toolkit
