#pragma once

#include "platform/linux/lifetime.h"
#include "platform/linux/own_moves.h"
#include "platform/linux/tooltip.h"
#include "platform/region_rows.h"
#include "platform/window.h"

#include <QMouseEvent>
#include <QWidget>

#include <functional>
#include <string>

namespace platform {

/// One top-level window on the screen. Its events come from Qt and go to the toolkit.
class WindowWidget : public QWidget {
  public:
    WindowWidget(const WindowOptions& options, WindowEvents events);

    /// Ends the window; its events no longer run.
    void end();

    /// Puts the outer top left corner at `place` and tells so at once.
    void place(Point place, Size outer);

    /// Shows the window in front of the others, also if the user has minimised it.
    void reveal();

    void cut(const RegionRows& rows);
    /// Runs a handler that belongs to the window, unless the window has ended.
    void run(const std::function<void()>& handler) { lifetime_.run(handler); }

    void setTip(const std::string& text) { tooltip_.setText(text); }

    /// The system, or the end of the session, closes the window.
    void askToClose();

    [[nodiscard]] Frame frame() const { return frame_; }

    /// See `platform::pictureScale`.
    [[nodiscard]] double pictureScale() const;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void tellPress(const QMouseEvent& event, bool secondPress);
    void tellPointer(PointerAction action, const QSinglePointEvent& event,
                     bool secondPress = false);
    void tell(const PointerEvent& event);
    void tellMoved();
    void resizeTo(Size outer);

    WindowEvents events_;
    Frame frame_;
    Point place_;
    OwnMoves ownMoves_;
    Tooltip tooltip_;
    int wheelRemainder_ = 0;
    Lifetime lifetime_{*this};
};

} // namespace platform
