#pragma once

#include "platform/linux/media/output.h"
#include "platform/linux/media/track.h"
#include "platform/media_commands.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace platform::media {

/// The one sound device behind the media commands: closed, or open on one file. Interface thread.
class Device {
  public:
    struct Answer {
        MediaError error = MediaError::None;
        std::string reply;
    };

    explicit Device(Output& output) : output_(output) {}

    /// Begins to open a file and to decode what will be played of it, as the next one to be asked
    /// for. Nobody waits for it.
    void expect(const std::string& hostPath);

    Answer send(std::string_view text);

  private:
    enum class State { Stopped, Playing, Paused };

    Answer handle(const MediaCommand& command);
    MediaError open(const MediaCommand& command);
    std::shared_ptr<Track> beginTrack(const std::string& hostPath, Track::Ahead ahead);
    MediaError openTrack(const std::string& hostPath, std::shared_ptr<Track>& opened);
    MediaError play(const MediaCommand& command);
    MediaError pause();
    MediaError resume();
    MediaError stop();
    MediaError seek(const MediaCommand& command);
    MediaError close();

    bool reachServer();
    void start(std::int64_t from, std::int64_t to);
    std::int64_t frameOf(std::int64_t thousandths) const;
    std::int64_t position();
    void revive(std::int64_t place);

    Output& output_;
    std::shared_ptr<Track> track_;

    /// One that is being opened ahead of its command, or that took too long for the last one: the
    /// next finds it done.
    std::shared_ptr<Track> begun_;
    State state_ = State::Stopped;
    std::int64_t length_ = 0; ///< thousandths
    std::int64_t place_ = 0;  ///< where it stands while stopped, thousandths
    std::int64_t from_ = 0;   ///< of the span that plays, thousandths
    std::int64_t to_ = 0;
};

} // namespace platform::media
