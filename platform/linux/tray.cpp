#include "platform/linux/hook.h"
#include "platform/linux/new_tray_ignored.h"
#include "platform/linux/tray_clicks.h"
#include "platform/shell.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QSystemTrayIcon>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <utility>

namespace platform {

namespace {

/// Which members of a record count.
constexpr std::uint32_t NIF_MESSAGE = 1;
constexpr std::uint32_t NIF_ICON = 2;
constexpr std::uint32_t NIF_TIP = 4;

/// Watches the whole program for the release of the right button over the icon.
class RightRelease : public QObject {
  public:
    explicit RightRelease(std::function<void()> released) : released_(std::move(released)) {
        qApp->installEventFilter(this);
    }

    /// Reports the release of the button if it is down in a window of this program, as on an icon
    /// that is one; else the host has reported a whole click, and it is reported at once.
    void await() {
        awaited_ = (QGuiApplication::mouseButtons() & Qt::RightButton) != 0;
        if (!awaited_) released_();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
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

  private:
    std::function<void()> released_;
    bool awaited_ = false;
};

/// One icon in the tray. Its codes run from the event loop, as a handler may take the icon away.
class TrayIcon {
  public:
    explicit TrayIcon(WindowHandle hook)
        : hook_(hook), clicks_(QApplication::doubleClickInterval()),
          release_([this] { post(TrayRightUp); }) {
        clock_.start();
        QObject::connect(&icon_, &QSystemTrayIcon::activated, &icon_,
                         [this](QSystemTrayIcon::ActivationReason reason) { activated(reason); });
    }

    void apply(const NOTIFYICONDATA& record) {
        if ((record.uFlags & NIF_MESSAGE) != 0) reports_ = record.uCallbackMessage != 0;
        if ((record.uFlags & NIF_ICON) != 0) icon_.setIcon(QApplication::windowIcon());
        if ((record.uFlags & NIF_TIP) != 0) {
            const auto* end = std::find(std::begin(record.szTip), std::end(record.szTip), '\0');
            icon_.setToolTip(QString::fromUtf8(record.szTip, end - record.szTip));
        }
    }

    void show() { icon_.show(); }

  private:
    void activated(QSystemTrayIcon::ActivationReason reason) {
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

    void postClick(TrayActivation activation) {
        for (const std::int32_t code : clicks_.codesFor(activation, clock_.elapsed()))
            post(code);
    }

    void post(std::int32_t code) {
        if (!reports_) return;
        QMetaObject::invokeMethod(
            &poster_, [hook = hook_, code] { deliverTrayCode(hook, code); }, Qt::QueuedConnection);
    }

    WindowHandle hook_;
    bool reports_ = false;
    TrayClicks clicks_;
    QElapsedTimer clock_;
    RightRelease release_;
    QSystemTrayIcon icon_;
    NewTrayIgnored newTrayIgnored_;
    QObject poster_; ///< its end takes back what is posted and not yet delivered
};

using Owner = std::pair<WindowHandle, std::uint32_t>;
using TrayIcons = std::map<Owner, std::unique_ptr<TrayIcon>>;

TrayIcons& trayIcons() {
    // Never destroyed: at the end of the process the window system is gone before statics are.
    static TrayIcons& icons = *new TrayIcons;
    return icons;
}

bool add(const Owner& owner, const NOTIFYICONDATA& record) {
    // An icon made without a tray would show up later, whenever a tray does.
    if (trayIcons().contains(owner) || !QSystemTrayIcon::isSystemTrayAvailable()) return false;
    const auto& icon = trayIcons()[owner] = std::make_unique<TrayIcon>(owner.first);
    icon->apply(record);
    icon->show();
    return true;
}

bool modify(const Owner& owner, const NOTIFYICONDATA& record) {
    const auto entry = trayIcons().find(owner);
    if (entry == trayIcons().end()) return false;
    entry->second->apply(record);
    return true;
}

} // namespace

bool Shell_NotifyIconA(std::uint32_t message, NOTIFYICONDATA* record) {
    const Owner owner(record->hWnd, record->uID);
    switch (message) {
    case NIM_ADD:
        return add(owner, *record);
    case NIM_MODIFY:
        return modify(owner, *record);
    case NIM_DELETE:
        return trayIcons().erase(owner) != 0;
    default:
        return false;
    }
}

} // namespace platform
