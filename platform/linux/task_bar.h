#pragma once

#include <QWidget>

namespace platform {

/// Leaves a window out of task bars, pagers and Alt-Tab. Before each showing: a window manager
/// forgets it with a window that hides.
void leaveOutOfTaskBar(const QWidget& window);

} // namespace platform
