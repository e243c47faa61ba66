#pragma once

#include "toolkit/form.h"
#include "toolkit/image.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/picture_box.h"

#include <span>
#include <variant>

/// Window layouts as data: one row a control, from the topmost to the lowest.
namespace toolkit {

/// Whether a control is visible at load.
enum class Start { Hidden, Shown };

/// One row of a window table. Places and sizes are twips.
template <class Window>
struct ControlRow {
    std::variant<Image Window::*, Label Window::*, PictureBox Window::*, ListBox Window::*> control;
    const char* name;
    Twips left;
    Twips top;
    Twips width;
    Twips height;
    Start start;
    const char* tooltip; ///< empty for none
    const char* bitmap;  ///< file name of the asset; empty for none
};

/// One row of a window's texts: a label's caption at load, its font and its colour.
template <class Window>
struct LabelRow {
    Label Window::*label;
    const char* caption;
    platform::Font font;
    StoredColour colour;
};

/// Puts every control of a table on the form, in the table's order. `pictureOf` finds a bitmap by
/// its file name.
template <class Window, class PictureOf>
void layOut(Window& window, Form& form, std::span<const ControlRow<Window>> table,
            PictureOf pictureOf) {
    for (const ControlRow<Window>& row : table) {
        std::visit(
            [&](auto member) {
                auto& control = window.*member;
                control.place(form, row.name, {row.left, row.top, row.width, row.height},
                              row.start == Start::Shown, row.tooltip);
                if constexpr (requires { control.setPicture(Artwork()); })
                    if (row.bitmap[0] != '\0') control.setPicture(pictureOf(row.bitmap));
                form.add(control);
            },
            row.control);
    }
}

/// Gives the labels their texts.
template <class Window>
void setTexts(Window& window, std::span<const LabelRow<Window>> table) {
    for (const LabelRow<Window>& row : table)
        (window.*row.label).setText(row.caption, row.font, row.colour);
}

} // namespace toolkit
