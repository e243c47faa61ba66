#pragma once

#include "platform/text.h"
#include "runtime/integers.h"
#include "toolkit/control.h"
#include "toolkit/painter.h"

#include <cstdint>
#include <string>
#include <vector>

namespace toolkit {

/// A list of texts with three rows in view and one selection at most. It has no scroll bar of its
/// own; keys and the wheel work as people expect of a list.
class ListBox : public Control {
  public:
    static constexpr std::int32_t Rows = 3;

    /// Appends an entry; neither selection nor view changes.
    void AddItem(const std::string& text);
    /// Removes an entry; error 5 where there is none. Removing the selected one leaves no
    /// selection.
    void RemoveItem(runtime::Int16 index);
    void Clear();

    /// Number of entries; error 6 above 32767.
    [[nodiscard]] runtime::Int16 ListCount() const;
    /// The text of an entry; empty where there is none.
    [[nodiscard]] std::string List(runtime::Int16 index) const;

    /// The selected entry, -1 for none. Selecting an entry brings it into view; an index without an
    /// entry changes nothing.
    [[nodiscard]] runtime::Int16 ListIndex() const;
    void ListIndex(runtime::Int16 index);

    /// The entry in the first row, kept between 0 and the last full view.
    [[nodiscard]] runtime::Int16 TopIndex() const;
    void TopIndex(runtime::Int16 index);

    /// Scrolls as little as it takes to have an entry in a row.
    void bringIntoView(std::int32_t index);
    /// The row of an entry, client pixels of the window; above or below the box if out of view.
    [[nodiscard]] platform::Rect rowArea(std::int32_t index) const;
    /// How often entries were added or removed.
    [[nodiscard]] std::uint32_t rowChanges() const { return rowChanges_; }

    /// Set once, from the window table; loads nothing.
    void setText(platform::Font font, StoredColour colour);

    [[nodiscard]] bool clicksWith(platform::PointerButton button) const override;
    void paint(const Canvas& target, const platform::Rect& area) const override;
    void pointer(const platform::PointerEvent& event) override;
    void key(const platform::KeyEvent& event) override;

  private:
    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(items_.size()); }
    [[nodiscard]] std::int32_t rowHeight() const;
    void select(std::int32_t index);
    void scrollTo(std::int32_t top);
    void selectRowAt(std::int32_t y);
    void selectByLetter(const std::string& letter);

    std::vector<std::string> items_;
    std::int32_t selected_ = -1;
    std::int32_t top_ = 0;
    std::uint32_t rowChanges_ = 0;
    bool selecting_ = false;
    platform::Font font_;
    StoredColour colour_ = Yellow;
};

} // namespace toolkit
