#include <QApplication>

#include <doctest/doctest.h>

#include <cstdlib>

/// The dialogs run on Qt's platform without a screen: nothing here needs a display.
int main(int count, char** arguments) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // The desktop that this runs on must not show its own.
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    const QApplication application(count, arguments);
    return doctest::Context(count, arguments).run();
}
