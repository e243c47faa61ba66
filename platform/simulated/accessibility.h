#pragma once

#include "platform/accessibility.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// A screen reader. Its first question, or `listen`, has the windows tell it of changes.
namespace simulated {

using platform::AccessibleChange;
using platform::AccessiblePlace;
using platform::AccessibleThing;
using platform::WindowHandle;

/// A change that the reader was told.
struct ToldChange {
    WindowHandle window = 0;
    AccessiblePlace place;
    AccessibleChange change = AccessibleChange::Value;
};

struct Reader {
    bool listens = false;
    std::vector<ToldChange> told;
    std::optional<platform::Point> standIn; ///< for the pointer
};

/// What the window is called; empty for one of which there is nothing to tell.
std::string accessibleName(WindowHandle window);

/// The things that show in a window, in order, and behind them its push buttons; none in a hidden
/// window.
std::vector<AccessibleThing> accessibleThings(WindowHandle window);

/// The one thing that shows under this name; fails the test if there is none or several.
AccessibleThing accessibleThing(WindowHandle window, const std::string& name);

/// A row of the list of this name.
AccessibleThing accessibleRow(WindowHandle window, const std::string& list, std::int32_t row);

// What a reader has done. It is done when these return, as far as no menu or dialog holds it up.

void act(WindowHandle window, const std::string& name);
void actOnRow(WindowHandle window, const std::string& list, std::int32_t row);
void selectRow(WindowHandle window, const std::string& list, std::int32_t row);
void setNumber(WindowHandle window, const std::string& slider, double number);

/// The changes told since the last look: "Pause: State", "Tracks 2: SelectedRow", ...
std::vector<std::string> changesTold();

} // namespace simulated
