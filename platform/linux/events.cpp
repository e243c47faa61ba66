#include "platform/events.h"

#include "platform/window.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace platform {
namespace {

/// Set by `leaveEventLoop` until `runEvents` returns it; it may come before the loop runs.
std::optional<int>& exitStatus() {
    static std::optional<int> status;
    return status;
}

} // namespace

void yieldToEvents() {
    // Events may bring about others without end; what comes after this time counts as new.
    constexpr qint64 longest = 100; // milliseconds
    QElapsedTimer time;
    time.start();
    QCoreApplication::sendPostedEvents();
    while (!exitStatus() &&
           QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents) &&
           time.elapsed() < longest) {
    }
    QCoreApplication::sendPostedEvents();
}

int runEvents() {
    if (!exitStatus()) QApplication::exec();
    const int status = exitStatus().value_or(0);
    exitStatus().reset();
    return status;
}

void leaveEventLoop(int status) {
    exitStatus() = status;
    QCoreApplication::exit(status);
}

void endProcess(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

void fatalMessage(const char* text) {
    std::fprintf(stderr, "%s\n", text);
    std::fflush(stderr);
    if (QCoreApplication::instance() == nullptr) return;
    messageBox(text, "Orvan Music Player", MessageIcon::Critical);
}

} // namespace platform
