#include "platform/linux/session_end.h"

#include "platform/events.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"

#include <QApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace platform {
namespace {

std::array<int, 2> signalPipe = {-1, -1};

extern "C" void noteSignal(int /*signal*/) {
    const int error = errno;
    const char token = 0;
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &token, 1);
    errno = error;
}

void closeForGood() {
    if (WindowWidget* const window = firstWindow()) window->askToClose();
    leaveEventLoop(0);
}

void watchSignals() {
    if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* const notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, [] {
        std::array<char, 16> tokens{};
        while (read(signalPipe[0], tokens.data(), tokens.size()) > 0) {
        }
        closeForGood();
    });
    struct sigaction action {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaction(signal, &action, nullptr);
}

} // namespace

void watchSessionEnd() {
    watchSignals();
    QObject::connect(
        qApp, &QGuiApplication::commitDataRequest, qApp,
        [](QSessionManager& /*manager*/) { closeForGood(); }, Qt::DirectConnection);
}

} // namespace platform
