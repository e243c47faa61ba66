#pragma once

#include "runtime/errors.h"

#include <new>

namespace toolkit {

/// The fatal end: shows the error's number and description and ends the process with status 1.
/// Nothing guarded runs any more, though the message lets events through.
[[noreturn]] void endFatally(const runtime::NumberedError& error);

/// True from the fatal message on.
bool endingFatally();

/// Has `watch` run after everything that the platform calls, inside dialogs and yields too; null
/// for nothing. It must be quick, and let no event run.
void watchEvents(void (*watch)());

/// Runs it, if there is any.
void eventHappened();

/// Runs code that the platform calls. An error that no trap inside took is the fatal end.
template <class Code>
void guarded(Code&& code) {
    if (endingFatally()) return;
    try {
        code();
        eventHappened();
    } catch (const runtime::NumberedError& error) {
        endFatally(error);
    } catch (const std::bad_alloc&) {
        endFatally({runtime::OutOfMemory});
    }
}

} // namespace toolkit
