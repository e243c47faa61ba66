#pragma once

class FrmPlayer;

namespace toolkit {
class Form;
}

/// The popup menus and the open keys, which only a menu's end lifts. Interface thread.

/// Makes both menus of the main window.
void createMenus(FrmPlayer& player);

/// Shows the open keys' menu from either window and lifts the keys, late, when it is closed.
void popUpOpenMenu(FrmPlayer& player, toolkit::Form& from);

/// Shows the open keys of both windows at rest.
void releaseOpenKeys(FrmPlayer& player);
