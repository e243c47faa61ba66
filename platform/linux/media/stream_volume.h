#pragma once

#include "platform/linux/media/output.h"

#include <cstdint>
#include <optional>
#include <string>

struct pa_channel_map;
struct pa_cvolume;

namespace platform::media {

/// The player's own volume in the sound server: that of its stream, and without a stream what the
/// server keeps for the next one. Interface thread; waits for the server no longer than a moment.
class StreamVolume {
  public:
    explicit StreamVolume(Output& output) : output_(output) {}

    /// The volume word; none if the server doesn't answer.
    std::optional<std::uint32_t> get();

    bool set(std::uint32_t word);

  private:
    /// What the server keeps for the player's next stream.
    struct Kept {
        const char* name = nullptr; ///< that the server keeps it under
        bool supported = false;
        bool found = false;
        std::uint32_t word = 0xFFFFFFFF;
        std::string device;
        bool hasDevice = false;
        int mute = 0;
    };

    std::optional<std::uint32_t> getOfStream(std::uint32_t stream);
    bool setOfStream(std::uint32_t stream, std::uint32_t word);
    const char* keptName();
    std::optional<Kept> readKept();
    bool writeKept(const Kept& kept);

    Output& output_;
    const char* keptName_ = nullptr;   ///< once the server has told which it is
    std::optional<std::uint32_t> own_; ///< where the server keeps nothing
};

} // namespace platform::media
