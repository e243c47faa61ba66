#include "toolkit/text_box.h"

#include "runtime/text.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace toolkit {
namespace {

constexpr std::int32_t margin = 3; // pixels left and right

} // namespace

std::string TextBox::Text() const {
    touch();
    return text_;
}

void TextBox::setText(std::string text, platform::Font font, StoredColour colour,
                      StoredColour backColour) {
    text_ = std::move(text);
    font_ = std::move(font);
    colour_ = colour;
    backColour_ = backColour;
    rows_.clear();
    const std::int32_t width = area().right - area().left - 2 * margin;
    const std::string lineEnd = "\r\n";
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + lineEnd.size()) {
        end = text_.find(lineEnd, start);
        fold(text_.substr(start, end - start), width);
    }
}

/// Adds a line's rows. Blanks at a row's end may lie outside the box; a word that is wider than the
/// box is cut by it.
void TextBox::fold(const std::string& line, std::int32_t width) {
    std::string row;
    std::size_t start = 0;
    while (start < line.size()) {
        const std::size_t blank = std::min(line.find(' ', start), line.size() - 1);
        const std::string word = line.substr(start, blank + 1 - start);
        start = blank + 1;
        const std::string longer = runtime::withoutTrailingBlanks(row + word);
        if (!row.empty() && platform::measureText(font_, longer).width > width)
            rows_.push_back(runtime::withoutTrailingBlanks(std::exchange(row, "")));
        row += word;
    }
    rows_.push_back(runtime::withoutTrailingBlanks(row));
}

void TextBox::paint(const Canvas& target, const platform::Rect& area) const {
    fill(target, area, pixelOf(backColour_));
    const std::int32_t height = platform::measureText(font_, "X").height;
    std::int32_t top = area.top;
    for (const std::string& row : rows_) {
        const std::int32_t spare = area.right - area.left - platform::measureText(font_, row).width;
        const bool seen = target.shows({area.left, top, area.right, top + height});
        if (seen && !row.empty())
            write(target, area, {area.left + std::max(spare / 2, margin), top}, font_,
                  pixelOf(colour_), row);
        top += height;
    }
}

} // namespace toolkit
