#pragma once

#include <QWidget>

namespace platform {

/// A desktop that passes on a click in its tray may wait for what comes of it, with a busy pointer
/// for a quarter of a minute, and gives away a word by which to know it. Qt answers only for the
/// start.

/// Before the first click: the word that the program was started with is no click's.
void expectClicks();

/// A click came from the tray: takes the desktop's word for it. Whether there is a new one.
bool beginAwaitedClick();

/// Has a window that is about to show carry the word of the latest click, if that isn't answered:
/// the desktop knows by it that the user has asked for the window.
void showAsAwaited(const QWidget& window);

/// Tells the desktop that what the click brings is there. Without a word nothing happens.
void endAwaitedClick();

} // namespace platform
