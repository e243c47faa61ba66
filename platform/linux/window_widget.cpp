#include "platform/linux/window_widget.h"

#include "platform/device_pixels.h"
#include "platform/linux/awaited_click.h"
#include "platform/linux/input_barrier.h"
#include "platform/linux/kept_in_front.h"
#include "platform/linux/keys.h"
#include "platform/linux/picture_image.h"
#include "platform/linux/press_place.h"
#include "platform/linux/task_bar.h"
#include "platform/linux/x_server.h"

#include <QApplication>
#include <QBackingStore>
#include <QCloseEvent>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QTimerEvent>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

namespace platform {
namespace {

constexpr int placingTime = 200;   // ms, in which a window manager has placed what it shows
constexpr int settlingTime = 1000; // ms, in which a window manager should have answered

std::int64_t milliseconds() {
    static const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return clock.elapsed();
}

Qt::WindowFlags flagsOf(Frame frame) {
    if (frame == Frame::None) return Qt::Window | Qt::FramelessWindowHint;
    return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
}

PointerButton buttonOf(Qt::MouseButton button) {
    switch (button) {
    case Qt::NoButton:
        return PointerButton::None;
    case Qt::LeftButton:
        return PointerButton::Left;
    case Qt::RightButton:
        return PointerButton::Right;
    case Qt::MiddleButton:
        return PointerButton::Middle;
    default:
        return PointerButton::Other;
    }
}

/// The pixel that holds a place; a pixel spans from its own number to the next.
Point pixelAt(QPointF place) {
    return {static_cast<std::int32_t>(std::floor(place.x())),
            static_cast<std::int32_t>(std::floor(place.y()))};
}

/// Whether two places are the same but for what a fraction of the display's scale makes of them.
bool isRounded(Point a, Point b) { return std::abs(a.x - b.x) <= 1 && std::abs(a.y - b.y) <= 1; }

bool isOnAScreen(const QRect& window) {
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        return screen->geometry().intersects(window);
    });
}

QRegion maskOf(const RegionRows& rows) {
    std::vector<QRect> rectangles;
    rectangles.reserve(rows.rectangles.size());
    for (const Rect& r : rows.rectangles)
        rectangles.emplace_back(r.left, r.top, r.right - r.left, r.bottom - r.top);
    QRegion region;
    region.setRects(rectangles.data(), static_cast<int>(rectangles.size()));
    // Qt takes an empty mask for none: leave a pixel that nobody can reach.
    return region.isEmpty() ? QRegion(-1, -1, 1, 1) : region;
}

} // namespace

WindowWidget::WindowWidget(const WindowOptions& options, WindowEvents events)
    : QWidget(nullptr, flagsOf(options.frame)), events_(std::move(events)), frame_(options.frame),
      client_(std::max(options.size.width, 1), std::max(options.size.height, 1)),
      place_(options.position), scale_(devicePixelRatioF()) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(QString::fromStdString(options.title));
    setFixedSize(client_);
    move(place_.x, place_.y);
    ownMoves_.note(place_, milliseconds());
}

void WindowWidget::end() {
    tooltip_.setText({});
    hide();
    lifetime_.end();
}

void WindowWidget::place(Point place, Size outer) {
    resizeTo(outer);
    // Qt leaves out a move to where it takes the window to be. It takes it to be where the last
    // echo said, which may be an old place; a step aside has the real move carried out.
    const bool outOfDate = isVisible() && pos() != QPoint(place_.x, place_.y);
    if (outOfDate && pos() == QPoint(place.x, place.y)) {
        ownMoves_.note({place.x + 1, place.y}, milliseconds());
        move(place.x + 1, place.y);
    }
    place_ = place;
    if (isVisible()) endPlacing();
    settling_.stop();
    ownMoves_.note(place_, milliseconds());
    move(place_.x, place_.y);
    fitShape();
    tellMoved();
}

void WindowWidget::resizeTo(Size outer) {
    const QSize border = frameGeometry().size() - size();
    const QSize client(std::max(outer.width - border.width(), 1),
                       std::max(outer.height - border.height(), 1));
    client_ = client;
    if (client != size()) setFixedSize(client);
}

void WindowWidget::reveal() {
    if (!isVisible()) beginToShow();
    leaveIcon();
    showAsAwaited(*this);
    show();
    raise();
    activateWindow();
    bringDialogsToFront();
}

void WindowWidget::leaveIcon() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    // Qt changes nothing as long as it hasn't been told of the icon.
    if (isVisible() && x::isThere()) x::leaveIcon(static_cast<xcb_window_t>(winId()));
}

/// What was done to the hidden window isn't repeated by the window system.
void WindowWidget::beginToShow() {
    if (besideMain_) leaveOutOfTaskBar(*this);
    winId();
    windowHandle()->installEventFilter(this);
    watchScreen();
    placing_.stop();
    isBeingPlaced_ = true;
    wantsItsPlace_ = isOnAScreen({QPoint(place_.x, place_.y), size()});
    exposuresLeft_ = 2;
    settling_.stop();
    ownMoves_.forget();
    ownMoves_.note(place_, milliseconds());
}

/// The window's screen may be set to another scale, or another screen be the window's.
void WindowWidget::watchScreen() {
    QObject::disconnect(scaleChange_);
    scaleChange_ = QObject::connect(screen(), &QScreen::logicalDotsPerInchChanged, this,
                                    [this] { followScale(); });
    QObject::disconnect(screenChange_);
    screenChange_ = QObject::connect(windowHandle(), &QWindow::screenChanged, this, [this] {
        watchScreen();
        followScale();
    });
    followScale();
}

/// Qt takes it that a window keeps its size and its place on the display when the scale changes;
/// the player's are in pixels of its own. What Qt takes to be the same already it leaves out.
void WindowWidget::followScale() {
    if (std::exchange(scale_, devicePixelRatioF()) == devicePixelRatioF()) return;
    moveAnew();
    setFixedSize(client_ + QSize(1, 1));
    setFixedSize(client_);
    if (x::isThere())
        x::resizeWindow(static_cast<xcb_window_t>(winId()), {deviceEdge(client_.width(), scale_),
                                                             deviceEdge(client_.height(), scale_)});
    // Nor does it make room for the larger picture where the window has its old size in pixels.
    if (QBackingStore* const room = backingStore()) room->resize(client_);
    fitShape();
    update();
}

/// Moves the window to its place, by a step aside if Qt takes it to be there already.
void WindowWidget::moveAnew() {
    if (pos() == QPoint(place_.x, place_.y)) {
        ownMoves_.note({place_.x + 1, place_.y}, milliseconds());
        move(place_.x + 1, place_.y);
    }
    ownMoves_.note(place_, milliseconds());
    move(place_.x, place_.y);
}

void WindowWidget::cut(std::optional<RegionShape> shape) {
    shape_ = std::move(shape);
    cutTo_ = {};
    clearMask();
    fitShape();
}

/// Qt cuts by the window's pixels. Where the display has more of its own, and places some of them
/// by where the window stands, the display's server is told itself.
void WindowWidget::fitShape() {
    if (!shape_) return;
    const double scale = devicePixelRatioF();
    if (scale == 1 || !x::isThere()) {
        if (mask().isEmpty()) setMask(maskOf(rowsOf(*shape_)));
        return;
    }
    if (!mask().isEmpty()) clearMask();
    if (internalWinId() == 0) return; // there will be another time
    RegionRows rows = rowsOf(*shape_, scale, place_);
    if (rows == cutTo_) return;
    cutTo_ = std::move(rows);
    x::cutWindow(static_cast<xcb_window_t>(internalWinId()), cutTo_.rectangles);
}

void WindowWidget::askToClose() {
    if (events_.closing) lifetime_.run(events_.closing);
}

const AccessibleWindow* WindowWidget::accessible() {
    const AccessibleWindow* told = nullptr;
    if (events_.accessible) lifetime_.run([&] { told = &events_.accessible(); });
    return told;
}

bool WindowWidget::event(QEvent* event) {
    if (event->type() == QEvent::WinIdChange) {
        cutTo_ = {};
        fitShape();
    }
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    // From there on the screen tells of its new scale before its windows have it.
    if (event->type() == QEvent::DevicePixelRatioChange && windowHandle() != nullptr) followScale();
#endif
    // Tab is a key like any other here: there is nothing inside to move the focus to.
    if (event->type() == QEvent::KeyPress) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return QWidget::event(event);
}

bool WindowWidget::eventFilter(QObject* /*watched*/, QEvent* event) {
    // Qt tells of one when the window is mapped, and of one when it can be seen, by when the window
    // manager has placed it or is about to.
    if (event->type() != QEvent::Expose || !windowHandle()->isExposed()) return false;
    if (exposuresLeft_ > 0 && --exposuresLeft_ == 0) placing_.start(placingTime, this);
    return false;
}

/// Qt's word of where the window has been placed may still be under way.
void WindowWidget::checkPlacing() {
    const Point now = truePlace();
    if (isVisible() && !isRounded(now, place_) && !standsAgain(now)) take(now);
    endPlacing();
}

/// From here on a move that isn't the program's own is the user's.
void WindowWidget::endPlacing() {
    placing_.stop();
    isBeingPlaced_ = false;
}

void WindowWidget::paintEvent(QPaintEvent* /*event*/) {
    const Picture* asked = nullptr;
    if (events_.paint) lifetime_.run([&] { asked = &events_.paint(); });
    if (asked == nullptr || asked->empty()) return;
    fitShape(); // the display may be another one, or have changed
    QPainter painter(this);
    const double scale = devicePixelRatioF();
    const QImage image = imageOf(*asked, QImage::Format_RGB32);
    if (asked->width != width() && scale == pictureScale()) {
        // Painted for the display: no pixel is touched on the way there.
        painter.scale(1 / scale, 1 / scale);
        painter.drawImage(0, 0, image);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale != std::floor(scale));
    painter.drawImage(QRect(0, 0, width(), height()), image);
}

bool WindowWidget::takesInput() const {
    const QList<QDialog*> dialogs = findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly);
    const bool hasDialog = std::any_of(dialogs.begin(), dialogs.end(), [](const QDialog* dialog) {
        return dialog->isVisible() && dialog->isModal();
    });
    return isVisible() && !hasDialog && !InputBarrier::bars(*this);
}

double WindowWidget::pictureScale() const {
    constexpr double largest = 4;
    return std::clamp(devicePixelRatioF(), 1.0, largest);
}

void WindowWidget::moveEvent(QMoveEvent* /*event*/) {
    const Point now{pos().x(), pos().y()};
    if (!isVisible() || now == place_ || ownMoves_.isEcho(now, milliseconds())) return;
    if (!standsAgain(now)) take(now);
}

/// Some window managers put where a window should stand a frame that they then do without, and tell
/// of places on the way there. Whether this one was asked for the right place.
bool WindowWidget::standsAgain(Point placed) {
    if (!isBeingPlaced_ || !wantsItsPlace_) return false;
    ownMoves_.note(placed, milliseconds()); // it may be told more than once
    moveAnew();
    seenAt_.reset();
    settling_.start(settlingTime, this);
    return true;
}

/// One that refuses the place leaves the window where it stood, and needn't say so. What is seen
/// twice isn't on its way elsewhere.
void WindowWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == placing_.timerId()) return checkPlacing();
    if (event->timerId() != settling_.timerId()) return QWidget::timerEvent(event);
    settling_.stop();
    endPlacing();
    const Point now = truePlace();
    if (!isVisible() || isRounded(now, place_)) return;
    if (std::exchange(seenAt_, now) != now) return settling_.start(settlingTime, this);
    ownMoves_.forget(); // what was asked for, should it come after all, is news
    take(now);
}

/// Where the display has the window, whatever Qt was told; Qt's word for one with a frame.
Point WindowWidget::truePlace() const {
    if (frame_ != Frame::None || !x::isThere()) return {pos().x(), pos().y()};
    const Point place = x::placeOf(static_cast<xcb_window_t>(internalWinId()));
    // A screen's corner is the same in the display's pixels and in the player's.
    const QPoint corner = screen()->geometry().topLeft();
    const double scale = devicePixelRatioF();
    return pixelAt(corner + (QPointF(place.x, place.y) - corner) / scale);
}

void WindowWidget::take(Point place) {
    place_ = place;
    fitShape();
    tellMoved();
}

/// A window manager that refuses a move needn't say so; the pointer's two places do.
void WindowWidget::takeTruePlace(const QMouseEvent& event) {
    const QPoint corner = (event.globalPosition() - event.position()).toPoint();
    const Point now{corner.x(), corner.y()};
    if (!isRounded(now, place_) && !ownMoves_.isEcho(now, milliseconds())) take(now);
}

void WindowWidget::closeEvent(QCloseEvent* event) {
    event->ignore();
    askToClose();
}

void WindowWidget::enterEvent(QEnterEvent* event) {
    // Qt doesn't report the move that brought the pointer here, and this event knows of no buttons.
    PointerEvent told;
    told.action = PointerAction::Move;
    told.position = pixelAt(event->position());
    told.buttonsHeld = QApplication::mouseButtons() != Qt::NoButton;
    tell(told);
}

void WindowWidget::leaveEvent(QEvent* /*event*/) {
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    PointerEvent told;
    told.action = PointerAction::Leave;
    told.position = {pointer.x(), pointer.y()};
    told.buttonsHeld = QApplication::mouseButtons() != Qt::NoButton;
    tell(told);
}

void WindowWidget::mousePressEvent(QMouseEvent* event) { tellPress(*event, false); }

void WindowWidget::mouseDoubleClickEvent(QMouseEvent* event) { tellPress(*event, true); }

void WindowWidget::mouseReleaseEvent(QMouseEvent* event) {
    takeTruePlace(*event);
    tellPointer(PointerAction::Release, *event);
}

void WindowWidget::mouseMoveEvent(QMouseEvent* event) {
    tooltip_.pointerMoved();
    tellPointer(PointerAction::Move, *event);
}

void WindowWidget::wheelEvent(QWheelEvent* event) {
    constexpr int notch = 120;
    wheelRemainder_ += event->angleDelta().y() * QApplication::wheelScrollLines();
    PointerEvent told;
    told.action = PointerAction::Wheel;
    told.position = pixelAt(event->position());
    told.buttonsHeld = event->buttons() != Qt::NoButton;
    told.wheelRows = -(wheelRemainder_ / notch);
    wheelRemainder_ %= notch;
    if (told.wheelRows != 0) tell(told);
}

void WindowWidget::keyPressEvent(QKeyEvent* event) {
    if (events_.key) lifetime_.run([&] { events_.key(keyEventOf(*event)); });
}

void WindowWidget::tellPress(const QMouseEvent& event, bool secondPress) {
    // Qt counts a press on another window, which was under this one, as a first press too.
    static const WindowWidget* pressedLast = nullptr;
    const bool sameWindow = std::exchange(pressedLast, this) == this;
    endPlacing();
    settling_.stop();
    takeTruePlace(event);
    tellPointer(PointerAction::Press, event, secondPress && sameWindow);
}

void WindowWidget::tellPointer(PointerAction action, const QSinglePointEvent& event,
                               bool secondPress) {
    PointerEvent told;
    told.action = action;
    told.button = buttonOf(event.button());
    told.position = pixelAt(event.position());
    told.secondPress = secondPress;
    told.buttonsHeld = event.buttons() != Qt::NoButton;
    const QPoint onScreen = event.globalPosition().toPoint();
    const PressPlace handled(action == PointerAction::Press
                                 ? std::optional<Point>({onScreen.x(), onScreen.y()})
                                 : std::nullopt);
    tell(told);
}

void WindowWidget::tell(const PointerEvent& event) {
    if (events_.pointer) lifetime_.run([&] { events_.pointer(event); });
}

void WindowWidget::tellMoved() {
    if (events_.moved) lifetime_.run([&] { events_.moved(place_); });
}

} // namespace platform
