#include "platform/desktop.h"
#include "platform/linux/media/early.h"
#include "platform/linux/session_end.h"

#include <QApplication>
#include <QScreen>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace platform {
namespace {

/// Qt would abort without one.
bool displayAnswers() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

/// Windows that were to end with the next event don't outlast the program's last one: Qt 6.8 would
/// delete them on the way out, when what their deletion needs is gone.
void forgetEndsAtExit() {
    std::atexit([] { QCoreApplication::removePostedEvents(nullptr, QEvent::DeferredDelete); });
}

void chooseQtParts() {
    // Only under X11 can a window be placed; a Wayland desktop has an X server for that.
    qputenv("QT_QPA_PLATFORM", "xcb");
    // Pictures are drawn by the processor; the OpenGL libraries would only cost memory.
    qputenv("QT_XCB_GL_INTEGRATION", "none");
    // The desktop's own theme plugin would bring a whole second toolkit along.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME"))
        qputenv("QT_QPA_PLATFORMTHEME", "generic");
}

} // namespace

bool start(int argumentCount, char** arguments) {
    if (!displayAnswers()) {
        const char* const display = std::getenv("DISPLAY");
        std::fprintf(stderr,
                     "orvan: there is no X display to show windows on (DISPLAY is \"%s\").\n",
                     display == nullptr ? "" : display);
        return false;
    }
    chooseQtParts();
    // The arguments are the player's, not Qt's. Qt keeps references to what it is given.
    static char name[] = "orvan";
    static char* kept[] = {argumentCount > 0 ? arguments[0] : name, nullptr};
    static int count = 1;
    // Never deleted: windows, timers and the tray icon may outlive any order of destruction.
    static QApplication* const application = new QApplication(count, kept);
    forgetEndsAtExit();
    // No earlier: it reads the environment, and Qt writes there while it starts.
    media::connectEarly();
    application->setApplicationName(QStringLiteral("orvan"));
    // What a window without a title is called.
    application->setApplicationDisplayName(QStringLiteral("Orvan Music Player"));
    application->setDesktopFileName(QStringLiteral("orvan"));
    application->setQuitOnLastWindowClosed(false);
    watchSessionEnd();
    return true;
}

// The desktop's scale factor scales windows as a whole, so a pixel is a 96th of an inch to them.
float twipsPerPixelX() { return 15.0F; }
float twipsPerPixelY() { return 15.0F; }

Size screenSize() {
    const QSize size = QGuiApplication::primaryScreen()->geometry().size();
    return {size.width(), size.height()};
}

std::int32_t secondsSinceMidnight() {
    // A change of the system's time zone counts from the next call on.
    ::tzset();
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (::localtime_r(&now, &local) == nullptr) return 0;
    const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    constexpr int lastOfTheDay = 24 * 60 * 60 - 1;
    return seconds < lastOfTheDay ? seconds : lastOfTheDay;
}

} // namespace platform
