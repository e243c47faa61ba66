#include "toolkit/list_box.h"

#include "runtime/errors.h"
#include "runtime/text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

namespace toolkit {
namespace {

constexpr platform::Pixel selectedBack = 0xFF2B3F78U;
constexpr platform::Pixel selectedText = 0xFFFFFFFFU;
constexpr std::int32_t leftMargin = 2;

/// Whether both texts start with the same letter, case aside.
bool startsAlike(const std::string& text, const std::string& letter) {
    return runtime::equalIgnoringCase(std::string_view(text).substr(0, letter.size()), letter);
}

} // namespace

void ListBox::AddItem(const std::string& text) {
    touch();
    items_.push_back(text);
    ++rowChanges_;
    changed();
}

void ListBox::RemoveItem(runtime::Int16 index) {
    touch();
    const std::int32_t at = index.value();
    if (at < 0 || at >= count()) runtime::raise(runtime::InvalidCall);
    items_.erase(items_.begin() + at);
    if (at == selected_)
        selected_ = -1;
    else if (at < selected_)
        --selected_;
    ++rowChanges_;
    scrollTo(top_);
    changed();
}

void ListBox::Clear() {
    touch();
    items_.clear();
    ++rowChanges_;
    selected_ = -1;
    top_ = 0;
    changed();
}

runtime::Int16 ListBox::ListCount() const {
    touch();
    return runtime::Int16(items_.size());
}

std::string ListBox::List(runtime::Int16 index) const {
    touch();
    if (index < 0 || index.value() >= count()) return {};
    return items_[static_cast<std::size_t>(index.value())];
}

runtime::Int16 ListBox::ListIndex() const {
    touch();
    return runtime::Int16(selected_);
}

void ListBox::ListIndex(runtime::Int16 index) {
    touch();
    if (index < -1 || index.value() >= count()) return;
    select(index.value());
}

runtime::Int16 ListBox::TopIndex() const {
    touch();
    return runtime::Int16(top_);
}

void ListBox::TopIndex(runtime::Int16 index) {
    touch();
    scrollTo(index.value());
}

void ListBox::setText(platform::Font font, StoredColour colour) {
    font_ = std::move(font);
    colour_ = colour;
}

bool ListBox::clicksWith(platform::PointerButton button) const {
    return button == platform::PointerButton::Left;
}

std::int32_t ListBox::rowHeight() const {
    const platform::Rect box = area();
    return std::max(1, (box.bottom - box.top) / Rows);
}

void ListBox::paint(const Canvas& target, const platform::Rect& box) const {
    fill(target, box, pixelOf(Black));
    const std::int32_t height = rowHeight();
    for (std::int32_t row = 0; row < Rows && top_ + row < count(); ++row) {
        const std::int32_t y = box.top + row * height;
        const platform::Rect place = intersection(box, {box.left, y, box.right, y + height});
        const bool selected = top_ + row == selected_;
        if (selected) fill(target, place, selectedBack);
        const std::string& text =
            items_[static_cast<std::size_t>(top_) + static_cast<std::size_t>(row)];
        const std::int32_t spare = height - platform::measureText(font_, text).height;
        write(target, place, {place.left + leftMargin, y + spare / 2}, font_,
              selected ? selectedText : pixelOf(colour_), text);
    }
}

void ListBox::pointer(const platform::PointerEvent& event) {
    using platform::PointerAction;
    switch (event.action) {
    case PointerAction::Press:
        selecting_ = event.button == platform::PointerButton::Left;
        // The box is a little higher than its rows: what is left below belongs to the last one.
        if (selecting_) selectRowAt(std::min(event.position.y, Rows * rowHeight() - 1));
        break;
    case PointerAction::Move:
        if (selecting_ && event.buttonsHeld) selectRowAt(event.position.y);
        break;
    case PointerAction::Wheel:
        scrollTo(top_ + event.wheelRows);
        break;
    case PointerAction::Release:
        selecting_ = selecting_ && event.buttonsHeld;
        break;
    case PointerAction::Leave:
        break;
    }
}

void ListBox::key(const platform::KeyEvent& event) {
    using platform::Key;
    if (items_.empty()) return;
    const std::int32_t last = count() - 1;
    const auto clamped = [&](std::int32_t index) { return std::clamp(index, 0, last); };
    switch (event.key) {
    case Key::Up:
        select(clamped(selected_ - 1));
        break;
    case Key::Down:
        select(clamped(selected_ + 1));
        break;
    case Key::Home:
        select(0);
        break;
    case Key::End:
        select(last);
        break;
    case Key::PageUp:
        select(clamped(selected_ - (Rows - 1)));
        break;
    case Key::PageDown:
        select(clamped(selected_ + (Rows - 1)));
        break;
    default:
        selectByLetter(event.text);
        break;
    }
}

void ListBox::selectByLetter(const std::string& letter) {
    if (letter.empty() || static_cast<unsigned char>(letter[0]) < ' ') return;
    for (std::int32_t step = 1; step <= count(); ++step) {
        const std::int32_t index = (std::max(selected_, -1) + step) % count();
        if (!startsAlike(items_[static_cast<std::size_t>(index)], letter)) continue;
        select(index);
        return;
    }
}

void ListBox::selectRowAt(std::int32_t y) {
    // Above or below the rows, a held press reaches one entry further and so scrolls.
    const std::int32_t row = y < 0 ? -1 : std::min(y / rowHeight(), Rows);
    if (selecting_ && row >= 0 && row < Rows && top_ + row >= count()) return;
    if (items_.empty()) return;
    select(std::clamp(top_ + row, 0, count() - 1));
}

void ListBox::select(std::int32_t index) {
    selected_ = index;
    if (index >= 0 && index < top_) top_ = index;
    if (index >= top_ + Rows) top_ = index - Rows + 1;
    changed();
}

void ListBox::bringIntoView(std::int32_t index) {
    scrollTo(std::clamp(top_, index - Rows + 1, index));
}

platform::Rect ListBox::rowArea(std::int32_t index) const {
    const platform::Rect box = area();
    const std::int32_t top = box.top + (index - top_) * rowHeight();
    return {box.left, top, box.right, top + rowHeight()};
}

void ListBox::scrollTo(std::int32_t top) {
    const std::int32_t kept = std::clamp(top, 0, std::max(0, count() - Rows));
    if (kept == top_) return;
    top_ = kept;
    changed();
}

} // namespace toolkit
