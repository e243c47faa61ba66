#pragma once

#include "platform/events.h"
#include "platform/window.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

/// What the contract tests need of the world around the seam; each platform has its own source.
namespace contract {

/// Called before each test: an empty scratch folder, and a platform that has been started.
void startWorld();

/// The scratch folder in the player's path form, without a trailing separator.
std::string scratchFolder();

/// Files of the scratch folder, by bare names or relative paths in the player's path form. Each
/// returns the full path.
std::string makeFile(const std::string& name, const std::string& text);
std::string makeHiddenFile(const std::string& name);
std::string makeFolder(const std::string& name);
std::string makeHiddenFolder(const std::string& name);
/// A WAV file of a tone, its length a multiple of 10 ms.
std::string makeWave(const std::string& name, int milliseconds);

/// Runs events until the condition holds, 10 seconds at most. Whether it came to hold.
bool waitUntil(const std::function<bool()>& condition);

/// Runs events for a time.
void letPass(int milliseconds);

/// The world's clock: milliseconds since some instant.
std::uint64_t clock();

/// The next menu or message box stays open until `closeWhatIsOpen` dismisses it.
void keepNextMenuOpen();
void keepNextMessageOpen();
/// Does nothing while nothing is open: call it until the wait is over.
void closeWhatIsOpen();

/// Clicks a client pixel of a window that is shown with the left button, whether or not the window
/// takes it.
void click(platform::WindowHandle window, std::int32_t x, std::int32_t y);

/// What a window that is shown takes up on the screen, its frame included.
platform::Rect outerArea(platform::WindowHandle window);

/// Whether a window is on the screen.
bool isShown(platform::WindowHandle window);

/// Makes a window that is shown an icon, as the user does by means of the window manager.
void minimise(platform::WindowHandle window);

/// Whether the window manager has a window as an icon.
bool isMinimised(platform::WindowHandle window);

/// Whether a client pixel of a window that is shown belongs to it as it is cut now.
bool inShape(platform::WindowHandle window, std::int32_t x, std::int32_t y);

/// A timer for as long as the object lives.
class Timer {
  public:
    Timer(std::uint32_t milliseconds, std::function<void()> tick)
        : handle_(platform::startTimer(milliseconds, std::move(tick))) {}
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer() { stop(); }

    void stop() {
        if (handle_ != 0) platform::stopTimer(handle_);
        handle_ = 0;
    }

  private:
    platform::TimerHandle handle_;
};

/// A bare window of 120 x 80 pixels at (200, 150), for as long as the object lives.
class Window {
  public:
    Window();
    explicit Window(platform::WindowEvents events);
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    ~Window() { platform::destroyWindow(handle); }

    platform::WindowHandle handle;
};

} // namespace contract
