#pragma once

#include "platform/simulated/window.h"

#include <functional>
#include <utility>
#include <vector>

/// What the simulated platform's own files share about windows; tests use window.h.
namespace simulated {

/// The record of a window that exists; fails the test for any other.
Window& existing(WindowHandle handle);

/// Whether the user can reach the window, past modal windows, message boxes and dialogs.
bool enabled(WindowHandle handle);

void bringToFront(WindowHandle handle);

/// Where client pixel (0, 0) is on the screen.
platform::Point clientOrigin(const Window& window);

/// Runs a step on leaving a scope, thrown errors included.
class Restore {
  public:
    explicit Restore(std::function<void()> step) : step_(std::move(step)) {}
    Restore(const Restore&) = delete;
    Restore& operator=(const Restore&) = delete;
    ~Restore() { step_(); }

  private:
    std::function<void()> step_;
};

/// Takes the oldest of a list of scripted actions and runs it, if there is one.
void runNextScript(std::vector<std::function<void()>>& scripts);

} // namespace simulated
