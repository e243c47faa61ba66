#pragma once

#include "platform/linux/lifetime.h"
#include "platform/linux/own_moves.h"
#include "platform/linux/tooltip.h"
#include "platform/region_shape.h"
#include "platform/window.h"

#include <QBasicTimer>
#include <QMouseEvent>
#include <QWidget>

#include <functional>
#include <optional>
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

    /// Takes the window out of the icon that the user has made of it.
    void leaveIcon();

    /// The window is a second one beside the main window, which stands for it in task bars.
    void setBesideMain() { besideMain_ = true; }

    /// Cuts the window to a shape, or ends that.
    void cut(std::optional<RegionShape> shape);
    /// Runs a handler that belongs to the window, unless the window has ended.
    void run(const std::function<void()>& handler) { lifetime_.run(handler); }

    void setTip(const std::string& text) { tooltip_.setText(text); }

    /// The system, or the end of the session, closes the window.
    void askToClose();

    [[nodiscard]] Frame frame() const { return frame_; }

    [[nodiscard]] bool tellsReaders() const { return events_.accessible != nullptr; }
    /// What a reader is told, good until the next event; null once the window has ended.
    const AccessibleWindow* accessible();

    /// See `platform::takesInput`.
    [[nodiscard]] bool takesInput() const;
    /// See `platform::pictureScale`.
    [[nodiscard]] double pictureScale() const;

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
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
    [[nodiscard]] Point truePlace() const;
    void take(Point place);
    void takeTruePlace(const QMouseEvent& event);
    bool standsAgain(Point placed);
    void checkPlacing();
    void endPlacing();
    void moveAnew();
    void beginToShow();
    void resizeTo(Size outer);
    void fitShape();
    void watchScreen();
    void followScale();

    WindowEvents events_;
    Frame frame_;
    QSize client_;
    Point place_;
    double scale_; ///< of the display, as the window's size and place were last told
    QMetaObject::Connection scaleChange_;
    QMetaObject::Connection screenChange_;
    std::optional<RegionShape> shape_;
    RegionRows cutTo_; ///< the shape on the display as it was last cut by this class
    OwnMoves ownMoves_;
    bool isBeingPlaced_ = false; ///< by the window manager, from the showing on
    bool wantsItsPlace_ = false; ///< the one of its showing, which is on a screen
    int exposuresLeft_ = 0;      ///< until the window is seen
    QBasicTimer placing_;        ///< runs from then until the window must have been placed
    QBasicTimer settling_; ///< runs until the window manager must have said where the window stands
    std::optional<Point> seenAt_; ///< where the display had the window instead of at its place
    bool besideMain_ = false;
    Tooltip tooltip_;
    int wheelRemainder_ = 0;
    Lifetime lifetime_{*this};
};

} // namespace platform
