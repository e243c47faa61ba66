#pragma once

#include "platform/linux/new_tray_ignored.h"
#include "platform/linux/tray_clicks.h"
#include "platform/shell.h"

#include <QDBusServiceWatcher>
#include <QElapsedTimer>
#include <QMenu>
#include <QString>
#include <QSystemTrayIcon>

#include <cstdint>
#include <functional>

namespace platform {

/// Watches the whole program for the release of the right button over the icon.
class RightRelease : public QObject {
  public:
    explicit RightRelease(std::function<void()> released);

    /// Reports the release of the button if it is down in a window of this program, as on an icon
    /// that is one; else the host has reported a whole click, and it is reported at once.
    void await();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void()> released_;
    bool awaited_ = false;
};

/// One icon in the tray. Its codes run from the event loop, as a handler may take the icon away.
class TrayIcon {
  public:
    /// The icon's mouse codes go to `hook`.
    explicit TrayIcon(WindowHandle hook);
    ~TrayIcon();
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    /// Takes over what a record tells of the icon.
    void apply(const NOTIFYICONDATA& record);

    void show();

  private:
    void watchBus();
    [[nodiscard]] bool isLostWith(const QString& name, const QString& owner) const;
    void activated(QSystemTrayIcon::ActivationReason reason);
    void postClick(TrayActivation activation);
    void post(std::int32_t code);

    WindowHandle hook_;
    bool reports_ = false;
    TrayClicks clicks_;
    QElapsedTimer clock_;
    RightRelease release_;
    QMenu menu_; ///< for a host that shows it itself; before the icon, which doesn't own it
    QSystemTrayIcon icon_;
    QDBusServiceWatcher hosts_;
    QString host_;                  ///< the program on the message bus that shows the icon
    bool onlyDoubleClicks_ = false; ///< the host reports nothing else
    NewTrayIgnored newTrayIgnored_;
    QObject poster_; ///< its end takes back what is posted and not yet delivered
};

} // namespace platform
