#pragma once

#include "platform/accessibility.h"
#include "toolkit/control.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/units.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A window's things as screen readers tell of them: data beside the window table, made when a
/// reader first asks.
namespace toolkit {

/// A slider's range and place, in its own unit.
struct SliderNumbers {
    double lowest = 0;
    double highest = 0;
    double step = 0;
    double number = 0;
    std::string words; ///< the place in words
};

/// A drag of a thumb by its middle.
struct ThumbDrag {
    std::int32_t right = 0; ///< pixels
    std::int32_t moves = 1; ///< how often the pointer is told to be there
};

/// One thing: what it is called, and the controls that it is made of.
struct Accessible {
    platform::AccessibleRole role = platform::AccessibleRole::Text;
    std::string name;
    std::vector<const Control*> parts; ///< it shows while one of them does; topmost first
    bool acts = false;                 ///< a click on it does something

    // What is not set doesn't apply.
    std::function<std::string()> caption;     ///< a name that changes
    std::function<std::string()> value;       ///< what it reads
    std::function<bool()> pressed;            ///< a key is down
    std::function<bool()> checked;            ///< a switch is on
    std::function<bool()> usable;             ///< it can be used now
    std::optional<Bounds> place;              ///< where it lies, if it is more than its parts
    std::function<SliderNumbers()> numbers;   ///< of a slider
    std::function<ThumbDrag(double)> dragFor; ///< what puts its thumb there, from where it is
    ListBox* list = nullptr;                  ///< of a list
    std::function<std::string(std::int32_t)> rowNote; ///< what else there is to say of a row
};

/// All things of a window, in the order of reading.
struct AccessibleTable {
    std::string window; ///< what the window is called
    std::vector<Accessible> things;
    std::vector<const Control*> decorations; ///< controls of which there is nothing to tell
};

/// A key that springs back: the image at rest and the one that shows it pressed.
Accessible keyOf(std::string name, const Control& up, const Control& down);
/// A key that stays down.
Accessible latchOf(std::string name, const Control& up, const Control& down);
/// A key or a label without a pressed look.
Accessible buttonOf(std::string name, const Control& control);
/// A switch that tells whether it is on.
Accessible switchOf(std::string name, const Control& control, std::function<bool()> on);
/// A text to read.
Accessible textOf(std::string name, const Label& label);
/// A list, with what there is to say of a row besides its text.
Accessible listOf(std::string name, ListBox& list, std::function<std::string(std::int32_t)> note);

} // namespace toolkit
