#pragma once

#include "platform/text.h"
#include "toolkit/control.h"
#include "toolkit/painter.h"

#include <cstdint>
#include <string>
#include <vector>

namespace toolkit {

/// Several lines of text, each centred and folded at blanks to the box's width. Only shown: it
/// takes no input.
class TextBox : public Control {
  public:
    /// What is shown, with its lines separated by a carriage return and a line feed.
    [[nodiscard]] std::string Text() const;

    /// Set once, when the box has its place; loads nothing.
    void setText(std::string text, platform::Font font, StoredColour colour,
                 StoredColour backColour);

    void paint(const Canvas& target, const platform::Rect& area) const override;

  private:
    void fold(const std::string& line, std::int32_t width);

    std::string text_;
    std::vector<std::string> rows_;
    platform::Font font_;
    StoredColour colour_ = Black;
    StoredColour backColour_ = White;
};

} // namespace toolkit
