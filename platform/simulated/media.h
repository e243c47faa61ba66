#pragma once

#include "platform/media.h"
#include "platform/media_commands.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace simulated {

/// The media layer: one device, driven by text commands, its position on the virtual clock.
/// Units are thousandths of a second.
class Media {
  public:
    /// Declares a playable file of this length; it stands in the file system too. Any other file
    /// is no sound.
    void addFile(const std::string& path, std::int64_t length);

    /// Every command sent, byte for byte, trailing blanks included.
    [[nodiscard]] const std::vector<std::string>& commands() const { return commands_; }
    /// The same, without trailing blanks.
    [[nodiscard]] std::vector<std::string> trimmedCommands() const;
    void forgetCommands() { commands_.clear(); }

    /// The next commands that start so (in any case) fail with this error and do nothing.
    void fail(const std::string& start, std::uint32_t error = 277, int times = 1);
    /// The next command that starts so is answered with this text instead of its own reply.
    void answer(const std::string& start, const std::string& reply);
    /// Every position asked for reads so, until called with nothing.
    void reportPosition(std::optional<std::int64_t> position) { reported_ = position; }

    /// How a command was sent, besides its text.
    struct Call {
        std::uint32_t replySize = 0;
        platform::WindowHandle callback = 0;
        bool hasReply = false;
    };
    std::vector<Call> calls; ///< of every command, in order
    /// Every error text asked for: the error's number and the room for the text, characters.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> errorTexts;

    [[nodiscard]] bool open() const { return open_; }
    [[nodiscard]] const std::string& openPath() const { return path_; }
    [[nodiscard]] bool playing() const;
    [[nodiscard]] bool paused() const { return state_ == State::Paused; }
    [[nodiscard]] std::int64_t position() const;

    /// What the seam calls.
    std::uint32_t send(const std::string& command, std::string& reply);

  private:
    enum class State { Stopped, Playing, Paused };
    struct Failure {
        std::string start;
        std::uint32_t error = 0;
        int times = 0;
    };
    struct Answer {
        std::string start;
        std::string reply;
    };

    platform::MediaError obey(const platform::MediaCommand& command, std::string& reply);
    platform::MediaError openFile(const platform::MediaCommand& command);
    platform::MediaError play(const platform::MediaCommand& command);
    platform::MediaError seek(const platform::MediaCommand& command);
    void close();
    [[nodiscard]] std::string status(platform::MediaStatusItem item) const;
    void settle(State state, std::int64_t position);

    std::map<std::string, std::int64_t> lengths_;
    std::vector<std::string> commands_;
    std::vector<Failure> failures_;
    std::vector<Answer> answers_;
    std::optional<std::int64_t> reported_;

    bool open_ = false;
    std::string path_;
    std::int64_t length_ = 0;
    State state_ = State::Stopped;
    std::int64_t base_ = 0;   ///< position at `since_`
    std::uint64_t since_ = 0; ///< when play last started or went on
    std::int64_t end_ = 0;    ///< where this play ends
};

/// The wave output devices.
struct Sound {
    struct Device {
        std::uint32_t volume = 0xFFFFFFFFU;
        std::uint32_t result = 0; ///< of every call for this device
    };

    std::vector<Device> devices = {Device()};
    std::optional<std::uint32_t> countForced; ///< the number told, whatever devices there are
    std::vector<std::string> calls;           ///< "get 0", "set 0 7E907E90", in order
};

} // namespace simulated
