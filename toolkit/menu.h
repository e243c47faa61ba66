#pragma once

#include <functional>
#include <string>
#include <vector>

namespace toolkit {

class Form;

/// A menu, or an entry of one. An entry with entries of its own is the head of a sub-menu.
struct Menu {
    std::string name;
    std::string caption;
    std::function<void()> Click;
    std::vector<Menu> entries;
};

/// Makes a menu the tray icon's, for a desktop that shows it itself: a pick runs the entry's click
/// handler. The menu must outlive the icon. Before the icon is added.
void SetTrayMenu(const Menu& menu);

/// Shows a menu's entries at the pointer. Returns when it is closed and, if an entry was picked,
/// its click handler has run to its end.
void PopupMenu(Form& window, const Menu& menu);

} // namespace toolkit
