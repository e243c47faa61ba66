#pragma once

#include "platform/linux/kept_in_front.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace platform {

class WindowWidget;

/// Keeps the user from some windows of the player for as long as another window shows. Qt's own
/// modality would keep the user from the tray's icon and from dialogs that come later, too.
class InputBarrier : public QObject {
  public:
    /// `lifted` runs once, when `front` hides, also on the way to being destroyed.
    InputBarrier(const std::vector<WindowWidget*>& barred, QWidget& front,
                 std::function<void()> lifted);
    /// For as long as the object lives, for a dialog of another program.
    explicit InputBarrier(const std::vector<WindowWidget*>& barred);
    Q_DISABLE_COPY_MOVE(InputBarrier)

    ~InputBarrier() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Whether any barrier keeps the user from a window.
    static bool bars(const WindowWidget& window);

  private:
    void barAll(const std::vector<WindowWidget*>& barred);
    void bar(QWidget& widget);
    void lift();

    QPointer<QWidget> front_;
    std::optional<KeptInFront> kept_;
    std::vector<QPointer<QWidget>> barred_; ///< windows and the push buttons in them
    std::function<void()> lifted_;
};

} // namespace platform
