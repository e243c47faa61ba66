#include "platform/linux/tray_icon.h"

#include "platform/linux/awaited_click.h"
#include "platform/linux/bus_names.h"
#include "platform/linux/hook.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/window.h"

#include <QApplication>
#include <QDBusConnection>
#include <QMouseEvent>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace platform {
namespace {

/// Which members of a record count.
constexpr std::uint32_t NIF_MESSAGE = 1;
constexpr std::uint32_t NIF_ICON = 2;
constexpr std::uint32_t NIF_TIP = 4;

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");

struct TrayMenu {
    std::vector<MenuItem> items;
    std::function<void(std::int32_t)> picked;
};

TrayMenu& trayMenu() {
    static TrayMenu menu;
    return menu;
}

/// An icon that isn't shown by a host on the message bus is a window of this program.
bool isOwnWindow() {
    const auto windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->inherits("QSystemTrayIconSys");
    });
}

/// What the click brings has begun by when the next events run.
void answerClick(QObject& poster) {
    if (beginAwaitedClick())
        QMetaObject::invokeMethod(&poster, endAwaitedClick, Qt::QueuedConnection);
}

void fill(QMenu& menu, const std::vector<MenuItem>& items, QObject& poster) {
    for (const MenuItem& item : items) {
        const QString caption = QString::fromStdString(item.caption);
        if (!item.children.empty()) {
            fill(*menu.addMenu(caption), item.children, poster);
            continue;
        }
        // A handler may run for long, and the host waits for its answer.
        QObject::connect(
            menu.addAction(caption), &QAction::triggered, &poster,
            [id = item.id, &poster] {
                answerClick(poster);
                const auto picked = trayMenu().picked;
                if (picked) picked(id);
            },
            Qt::QueuedConnection);
    }
}

} // namespace

void setTrayMenu(const std::vector<MenuItem>& items, std::function<void(std::int32_t)> picked) {
    trayMenu() = {items, std::move(picked)};
}

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
    expectClicks();
    fill(menu_, trayMenu().items, poster_);
    QObject::connect(&icon_, &QSystemTrayIcon::activated, &icon_,
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         activated(reason);
                         answerClick(poster_);
                     });
}

TrayIcon::~TrayIcon() { endAwaitedClick(); }

void TrayIcon::show() {
    // Trays call the icon by it. The windows keep their class, which is this name as the first of
    // them finds it.
    if (WindowWidget* const window = firstWindow()) window->winId();
    QCoreApplication::setApplicationName(QGuiApplication::applicationDisplayName());
    if (!menu_.isEmpty()) icon_.setContextMenu(&menu_);
    icon_.show();
    if (isOwnWindow())
        icon_.setContextMenu(nullptr);
    else
        watchBus();
}

void TrayIcon::watchBus() {
    host_ = ownerOf(watcherName);
    // GNOME's host opens the menu at a click and reports a double click as one activation.
    onlyDoubleClicks_ = !host_.isEmpty() && host_ == gnomesShell();
    hosts_.setConnection(QDBusConnection::sessionBus());
    hosts_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    hosts_.addWatchedService(watcherName);
    if (!host_.isEmpty()) hosts_.addWatchedService(host_);
    QObject::connect(&hosts_, &QDBusServiceWatcher::serviceOwnerChanged, &icon_,
                     [this](const QString& name, const QString& /*before*/, const QString& now) {
                         if (isLostWith(name, now)) icon_.hide();
                     });
}

/// Qt would put the icon into the next tray; one that is lost stays lost. GNOME's shell takes its
/// tray away while the screen is locked; the same one that is back has the icon as before.
bool TrayIcon::isLostWith(const QString& name, const QString& owner) const {
    if (name != watcherName || host_.isEmpty()) return owner.isEmpty();
    return !owner.isEmpty() && owner != host_;
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
        return postClick(onlyDoubleClicks_ ? TrayActivation::DoubleClick : TrayActivation::Click);
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
