#pragma once

#include "platform/simulated/window.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// What the simulated platform's own files share about windows; tests use window.h.
namespace simulated {

/// The record of a window that exists; fails the test for any other.
Window& existing(WindowHandle handle);

/// Whether the user can reach the window, past modal windows, message boxes and dialogs.
bool enabled(WindowHandle handle);

/// Keeps the user from windows for as long as it lives; the latest of several goes first.
class Disabled {
  public:
    explicit Disabled(const std::vector<WindowHandle>& windows);
    Disabled(const Disabled&) = delete;
    Disabled& operator=(const Disabled&) = delete;
    ~Disabled();

  private:
    std::size_t before_;
};

/// All windows that are no hooks.
std::vector<WindowHandle> allWindows();

void bringToFront(WindowHandle handle);

/// Has a window paint itself if it asked for it and still exists.
void paintIfWanted(WindowHandle handle);

void setVisible(WindowHandle handle, bool visible);

/// Moves a window and tells it so.
void place(WindowHandle handle, platform::Point corner);

/// Where client pixel (0, 0) is on the screen.
platform::Point clientOrigin(const Window& window);

/// The entry that can be picked with this id or, if that is 0, with this caption; null for none.
const platform::MenuItem* findEntry(const std::vector<platform::MenuItem>& items,
                                    const std::string& caption, std::int32_t id);

/// Takes the oldest of a list of scripted actions and runs it, if there is one.
void runNextScript(std::vector<std::function<void()>>& scripts);

} // namespace simulated
