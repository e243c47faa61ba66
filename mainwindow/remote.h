#pragma once

#include "runtime/integers.h"
#include "toolkit/remote.h"

#include <cstdint>
#include <string>

class FrmPlayer;

/// What the desktop is told of the player and may ask of it: every request is what a key of the
/// face or the tray menu does. Interface thread.
class Remote {
  public:
    explicit Remote(FrmPlayer& player) : player_(player) {}
    Remote(const Remote&) = delete;
    Remote& operator=(const Remote&) = delete;
    ~Remote();

    /// Lets the desktop ask; both windows are loaded by then.
    void offer();

    /// A track has been put into the device.
    void trackOpened(const std::string& path);
    /// Its length has been read, and stands in `trackLengthSeconds`.
    void lengthRead() { lengthKnown_ = true; }
    /// The device has been sent to another place, ms.
    void sought(runtime::Int32 place);

  private:
    [[nodiscard]] toolkit::Remote::State state() const;
    void serve(toolkit::Remote::Request request);
    [[nodiscard]] std::int32_t position() const;

    FrmPlayer& player_;
    bool offered_ = false;
    std::uint32_t track_ = 0; ///< counts the tracks opened
    std::string title_;
    bool lengthKnown_ = false;
};
