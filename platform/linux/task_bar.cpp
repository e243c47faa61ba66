#include "platform/linux/task_bar.h"

#include "platform/linux/x_server.h"

namespace platform {

void leaveOutOfTaskBar(const QWidget& window) {
    if (!x::isThere()) return;
    // KWin has a word of its own for Alt-Tab. Qt adds its own states to these.
    x::setProperty(static_cast<xcb_window_t>(window.winId()), x::atom("_NET_WM_STATE"),
                   XCB_ATOM_ATOM,
                   {x::atom("_NET_WM_STATE_SKIP_TASKBAR"), x::atom("_NET_WM_STATE_SKIP_PAGER"),
                    x::atom("_KDE_NET_WM_STATE_SKIP_SWITCHER")});
}

} // namespace platform
