#include "platform/linux/tray_icon.h"

#include "platform/linux/hook.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>
#include <iterator>
#include <utility>

namespace platform {
namespace {

/// Which members of a record count.
constexpr std::uint32_t NIF_MESSAGE = 1;
constexpr std::uint32_t NIF_ICON = 2;
constexpr std::uint32_t NIF_TIP = 4;

} // namespace

RightRelease::RightRelease(std::function<void()> released) : released_(std::move(released)) {
    qApp->installEventFilter(this);
}

void RightRelease::await() {
    awaited_ = (QGuiApplication::mouseButtons() & Qt::RightButton) != 0;
    if (!awaited_) released_();
}

bool RightRelease::eventFilter(QObject* watched, QEvent* event) {
    const bool second = event->type() == QEvent::MouseButtonDblClick;
    if (!second && event->type() != QEvent::MouseButtonRelease) return false;
    if (static_cast<QMouseEvent*>(event)->button() != Qt::RightButton) return false;
    // Qt doesn't tell of a press that follows another one in a hurry.
    if (second)
        awaited_ = awaited_ || watched->inherits("QSystemTrayIconSys");
    else if (std::exchange(awaited_, false))
        released_();
    return false;
}

TrayIcon::TrayIcon(WindowHandle hook)
    : hook_(hook), clicks_(QApplication::doubleClickInterval()),
      release_([this] { post(TrayRightUp); }) {
    clock_.start();
    QObject::connect(&icon_, &QSystemTrayIcon::activated, &icon_,
                     [this](QSystemTrayIcon::ActivationReason reason) { activated(reason); });
}

void TrayIcon::apply(const NOTIFYICONDATA& record) {
    if ((record.uFlags & NIF_MESSAGE) != 0) reports_ = record.uCallbackMessage != 0;
    if ((record.uFlags & NIF_ICON) != 0) icon_.setIcon(QApplication::windowIcon());
    if ((record.uFlags & NIF_TIP) != 0) {
        const auto* end = std::find(std::begin(record.szTip), std::end(record.szTip), '\0');
        icon_.setToolTip(QString::fromUtf8(record.szTip, end - record.szTip));
    }
}

void TrayIcon::activated(QSystemTrayIcon::ActivationReason reason) {
    switch (reason) {
    case QSystemTrayIcon::Trigger:
        return postClick(TrayActivation::Click);
    case QSystemTrayIcon::DoubleClick:
        return postClick(TrayActivation::DoubleClick);
    case QSystemTrayIcon::MiddleClick:
        return postClick(TrayActivation::MiddleClick);
    case QSystemTrayIcon::Context:
        post(TrayRightDown);
        return release_.await();
    case QSystemTrayIcon::Unknown:
        return;
    }
}

void TrayIcon::postClick(TrayActivation activation) {
    for (const std::int32_t code : clicks_.codesFor(activation, clock_.elapsed()))
        post(code);
}

void TrayIcon::post(std::int32_t code) {
    if (!reports_) return;
    QMetaObject::invokeMethod(
        &poster_, [hook = hook_, code] { deliverTrayCode(hook, code); }, Qt::QueuedConnection);
}

} // namespace platform
