#pragma once

#include "platform/types.h"
#include "runtime/integers.h"

#include <string>

struct ModMain;

/// The one class that talks to the audio system. One device under the alias "mpeg" plays
/// everything, so at most one file is open. Errors of the media layer are dropped here; the only
/// trace of a failure is a `Status` that didn't change. Interface thread only.
class Mpeg {
  public:
    explicit Mpeg(ModMain& shared) : shared_(shared) {}

    /// "Idle", "Playing" or "Paused": the engine's own bookkeeping, never read back from the
    /// device. It stays "Playing" at the end of a track until somebody calls `StopM`.
    [[nodiscard]] const std::string& Status() const { return status_; }
    void Status(const std::string& status) { status_ = status; }
    /// The file that was opened last.
    [[nodiscard]] const std::string& OpenedPath() const { return openedPath_; }

    /// Opens a file, parented to a window. "Idle" on success.
    void FileName(platform::WindowHandle hWnd, const std::string& Path);
    /// Plays the open file from its start, or goes on after a pause. "Playing" on success, and
    /// after a pause in any case.
    void PlayM();
    /// Closes the device. "Idle" on success.
    void FermerMp3();
    /// "Paused" on success.
    void PauseM();
    /// Stops and, if that worked, closes.
    void StopM();
    /// Resumes after a pause; `Status` stays as it is.
    void RetourDeLaPause();

    /// Length of the open file in thousandths of a second; -1 if the device doesn't answer.
    runtime::Int32 Duration();
    /// Position in thousandths of a second, in the format that `Duration` set; -1 as above.
    runtime::Int32 CurrentPosition();
    /// Seeks to a position in thousandths and plays on, even from a pause.
    void MoveMPEG(runtime::Int32 AllezA);

    /// Finds the first wave device that answers and places the volume thumb by its volume. False,
    /// after a message, when there is no device at all.
    bool DevicesPresent();
    /// Sends a level of 0 to 32767 to the wave device, both channels alike.
    void AdjustVolume(double volume);

  private:
    bool send(const char* command);
    runtime::Int32 ask(const char* command);

    ModMain& shared_;
    std::string status_ = "Idle";
    std::string openedPath_;
};
