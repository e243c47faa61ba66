#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace platform {

/// Keeps a dialog from getting lost for as long as the object lives: no window manager can make it
/// an icon, and `bringDialogsToFront` reaches it. What waits for the user must not be out of sight.
class KeptInFront : public QObject {
  public:
    /// Before the dialog is first shown.
    explicit KeptInFront(QWidget& dialog);
    ~KeptInFront() override;
    KeptInFront(const KeptInFront&) = delete;
    KeptInFront& operator=(const KeptInFront&) = delete;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPointer<QWidget> dialog_;
};

/// Puts every dialog that shows in front of the other windows, the latest topmost, once the event
/// that is under way has been handled. Nothing happens if there is none.
void bringDialogsToFront();

} // namespace platform
