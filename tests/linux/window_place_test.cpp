#include "platform/linux/window_widget.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>

#include <doctest/doctest.h>

#include <functional>
#include <optional>

using platform::Point;
using platform::WindowWidget;

namespace {

constexpr Point wanted{200, -20};
constexpr Point above{200, 0};

/// A window that a window manager shows, and the places that it has told.
class Shown {
  public:
    Shown() : window_(new WindowWidget(options(), events())) {
        window_->reveal();
        run([] { return false; }, 200);
    }
    ~Shown() { window_->end(); }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

    void windowManagerPutsItAt(Point place) {
        window_->windowHandle()->setPosition(place.x, place.y);
        QCoreApplication::processEvents(); // the word of it
        QCoreApplication::processEvents(); // and that of what the window made of it
    }
    /// However often it is asked for another place, until it must have placed the window.
    void windowManagerKeepsItAt(Point place) {
        for (int time = 0; time < 3; ++time) {
            windowManagerPutsItAt(place);
            run([] { return false; }, 150);
        }
    }
    void playerPutsItAt(Point place) { window_->place(place, {276, 82}); }
    void isPressedAt(Point place) {
        const QPointF inside(10, 10);
        QMouseEvent press(QEvent::MouseButtonPress, inside, inside + QPointF(place.x, place.y),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window_, &press);
    }
    [[nodiscard]] Point standsAt() const { return {window_->pos().x(), window_->pos().y()}; }
    [[nodiscard]] std::optional<Point> told() const { return told_; }

    /// Runs events until the window has told this place; false if it doesn't in a minute.
    [[nodiscard]] bool tells(Point place) {
        return run([&] { return told_ == place; }, 60'000);
    }
    /// Runs events for longer than the window waits for the window manager's word.
    void settle() {
        run([] { return false; }, 2500);
    }

  private:
    static platform::WindowOptions options() {
        platform::WindowOptions options;
        options.title = "a window";
        options.position = wanted;
        options.size = {276, 82};
        return options;
    }
    platform::WindowEvents events() {
        platform::WindowEvents events;
        events.moved = [this](Point place) { told_ = place; };
        return events;
    }
    static bool run(const std::function<bool()>& until, int longest) {
        QEventLoop loop;
        QTimer end;
        end.setSingleShot(true);
        QObject::connect(&end, &QTimer::timeout, &loop, &QEventLoop::quit);
        end.start(longest);
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &loop, [&] {
            if (until()) loop.quit();
        });
        look.start(5);
        loop.exec();
        return until();
    }

    std::optional<Point> told_;
    WindowWidget* window_; // deletes itself
};

} // namespace

TEST_CASE("a window that is placed elsewhere at its showing asks for its own place again") {
    Shown window;
    window.windowManagerPutsItAt(above);
    CHECK(window.standsAt() == wanted);
    window.settle();
    CHECK_FALSE(window.told().has_value());
}

TEST_CASE("a window whose own place the window manager refuses is where it has been put") {
    Shown window;
    window.windowManagerKeepsItAt(above);
    CHECK(window.tells(above));
}

TEST_CASE("a place that the window manager grants late is the window's after all") {
    Shown window;
    window.windowManagerKeepsItAt(above);
    REQUIRE(window.tells(above));
    window.windowManagerPutsItAt(wanted);
    CHECK(window.tells(wanted));
}

TEST_CASE("a window that the player has moved since isn't where it was first put") {
    Shown window;
    window.windowManagerPutsItAt(above);
    window.windowManagerPutsItAt(above);
    window.playerPutsItAt({300, 300});
    window.windowManagerPutsItAt(above); // an echo that comes late
    window.settle();
    CHECK(window.told() == Point{300, 300});
}

TEST_CASE("a window that is pressed at its place isn't elsewhere a moment later") {
    Shown window;
    window.windowManagerPutsItAt(above);
    window.windowManagerPutsItAt(above);
    window.isPressedAt(wanted);
    window.settle();
    CHECK_FALSE(window.told().has_value());
}
