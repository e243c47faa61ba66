#pragma once

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "platform/types.h"
#include "runtime/integers.h"
#include "runtime/random.h"
#include "toolkit/text_file.h"

#include <cstdint>
#include <memory>

class AboutBox;
class Mpeg;
class Remote;

/// The process-wide values and both windows: the one root object, from which all else hangs.
struct ModMain {
    ModMain();
    ~ModMain();
    ModMain(const ModMain&) = delete;
    ModMain& operator=(const ModMain&) = delete;

    std::unique_ptr<Mpeg> engine;     ///< made in `Main` before any window is touched
    platform::Rect workArea;          ///< desktop work area, pixels, read once at start
    runtime::Int16 waveDeviceId;      ///< wave output device in use
    std::uint32_t waveVolumeWord = 0; ///< last volume word read or written
    double wavePercent = 0;           ///< scratch for volume arithmetic
    platform::Point dragCursorStart;  ///< pointer at a press, screen pixels
    platform::Point dragCursorNow;    ///< pointer at the latest move, screen pixels
    runtime::Random random;           ///< the shuffle's draws
    toolkit::TextFiles files;         ///< text files under their numbers

    FrmPlayer frmPlayer{*this};
    FrmPlaylist frmPlaylist{*this};
    std::unique_ptr<Remote> remote; ///< what the desktop is told and may ask

    /// The about box, made at its first use.
    AboutBox& aboutBox();

    /// Starts the program; afterwards only events run it. A second copy leaves both windows
    /// untouched and has nothing to run.
    void Main();

  private:
    std::unique_ptr<AboutBox> aboutBox_;
};
