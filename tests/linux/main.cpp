#include <QApplication>

#include <doctest/doctest.h>

#include <cstdlib>

/// The dialogs run on Qt's platform without a screen: nothing here needs a display.
int main(int count, char** arguments) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(count, arguments);
    return doctest::Context(count, arguments).run();
}
