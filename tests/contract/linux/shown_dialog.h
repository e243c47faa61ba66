#pragma once

class QWidget;

namespace contract {

/// A dialog that is on the screen: a message, a file dialog, or a window of the player that has a
/// dialog's frame. Null if there is none.
QWidget* shownDialog();

} // namespace contract
