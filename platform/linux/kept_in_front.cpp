#include "platform/linux/kept_in_front.h"

#include "platform/linux/x_server.h"

#include <QCoreApplication>

#include <cstdint>
#include <vector>

namespace platform {
namespace {

/// In the order of their showing.
std::vector<QPointer<QWidget>>& dialogs() {
    static std::vector<QPointer<QWidget>> all;
    return all;
}

void bringToFront(QWidget& dialog) {
    if (!dialog.isVisible()) return;
    dialog.setWindowState(dialog.windowState() & ~Qt::WindowMinimized);
    dialog.raise();
    dialog.activateWindow();
}

/// Its frame offers what the dialog can do, which is never to become an icon.
void leaveOutMinimising(QWidget& dialog) {
    constexpr std::uint32_t functionsAndDecorations = 1U | 2U;
    constexpr std::uint32_t moveAndClose = 4U | 32U;
    constexpr std::uint32_t resizeAndMaximise = 2U | 16U;
    constexpr std::uint32_t borderTitleAndMenu = 2U | 8U | 16U;
    constexpr std::uint32_t handlesAndMaximise = 4U | 64U;
    const bool fixed = dialog.minimumSize() == dialog.maximumSize();
    x::setProperty(static_cast<xcb_window_t>(dialog.winId()), x::atom("_MOTIF_WM_HINTS"),
                   x::atom("_MOTIF_WM_HINTS"),
                   {functionsAndDecorations, moveAndClose | (fixed ? 0U : resizeAndMaximise),
                    borderTitleAndMenu | (fixed ? 0U : handlesAndMaximise), 0, 0});
}

} // namespace

KeptInFront::KeptInFront(QWidget& dialog) : dialog_(&dialog) {
    dialogs().emplace_back(&dialog);
    dialog.installEventFilter(this);
    if (!x::isThere()) return;
    leaveOutMinimising(dialog);
    // Qt adds the program's name to a title.
    if (!dialog.windowTitle().isEmpty())
        x::setTitle(static_cast<xcb_window_t>(dialog.winId()), dialog.windowTitle().toStdString());
}

KeptInFront::~KeptInFront() {
    std::erase_if(dialogs(), [this](const auto& one) { return one == nullptr || one == dialog_; });
}

bool KeptInFront::eventFilter(QObject* /*watched*/, QEvent* event) {
    // With the whole desktop cleared away the dialog may be gone as well, until the others return.
    const QWidget* const dialog = dialog_;
    if (event->type() == QEvent::WindowStateChange && dialog != nullptr && dialog->isMinimized() &&
        !x::isShowingDesktop())
        bringDialogsToFront();
    return false;
}

void bringDialogsToFront() {
    // Not from inside the change of windows that is under way.
    for (QWidget* const dialog : dialogs())
        if (dialog != nullptr)
            QMetaObject::invokeMethod(
                dialog, [dialog] { bringToFront(*dialog); }, Qt::QueuedConnection);
}

} // namespace platform
