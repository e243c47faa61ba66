#include "toolkit/guard.h"

#include "platform/events.h"

#include <string>

namespace toolkit {

namespace {

bool fatalEnd = false;
void (*watcher)() = nullptr;

/// Tests replace the end of the process by an exception, after which another player may start.
struct FatalEnd {
    FatalEnd() { fatalEnd = true; }
    ~FatalEnd() { fatalEnd = false; }
    FatalEnd(const FatalEnd&) = delete;
    FatalEnd& operator=(const FatalEnd&) = delete;
};

} // namespace

bool endingFatally() { return fatalEnd; }

void watchEvents(void (*watch)()) { watcher = watch; }

void eventHappened() {
    if (watcher != nullptr) watcher();
}

void endFatally(const runtime::NumberedError& error) {
    const FatalEnd end;
    std::string text =
        "Run-time error " + std::to_string(error.number) + ": " + error.description();
    if (!error.detail.empty()) text += "\n" + error.detail;
    platform::fatalMessage(text.c_str());
    platform::endProcess(1);
}

} // namespace toolkit
