#pragma once

namespace toolkit {

/// Lets every waiting event run, then returns.
void yieldToEvents();

/// The same at the end of a drag's move. Each yield may run the next move, which yields in turn; so
/// that a pointer that never rests can't nest them without end, the events that wait past a certain
/// depth are left to the yields further out.
void yieldInDrag();

/// Ends the process at once, with status 0: no further event, no saving.
[[noreturn]] void endProgram();

/// Ends the event loop once the handlers now running have returned.
void leaveEventLoop();

} // namespace toolkit
