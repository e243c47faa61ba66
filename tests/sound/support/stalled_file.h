#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace sound_test {

/// While one lives, each look at a file takes a time. One at a time, of this and the next.
class SlowFile {
  public:
    SlowFile(const std::string& path, std::chrono::milliseconds each);
    ~SlowFile();
    SlowFile(const SlowFile&) = delete;
    SlowFile& operator=(const SlowFile&) = delete;

    /// How often it has been looked at.
    int looks() const;
};

/// While one lives, the disk does not answer this process for a file from some byte on: whoever
/// reads there waits, as on a drive that hangs or a network that is down.
class StalledFile {
  public:
    StalledFile(const std::string& path, std::int64_t fromByte);
    ~StalledFile() { answer(); }
    StalledFile(const StalledFile&) = delete;
    StalledFile& operator=(const StalledFile&) = delete;

    /// Waits until somebody is held up. False if that does not come to be.
    bool holdsSomebody() const;

    /// The disk works again.
    void answer();
};

} // namespace sound_test
