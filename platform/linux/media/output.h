#pragma once

#include "platform/linux/media/play_clock.h"
#include "platform/linux/media/pulse_handles.h"
#include "platform/linux/media/server.h"
#include "platform/linux/media/track.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>

namespace platform::media {

/// The way from a track's decoder to the ear: one stream of the sound server. Lives as long as the
/// process. Called from the interface thread, and never waits for it to be heard.
class Output {
  public:
    Output();

    Server& server() { return server_; }

    /// Sounds a span from its very first frame; whatever sounded before falls silent at once.
    void play(const std::shared_ptr<Track>& track, Span span);

    void pause();
    void resume();

    /// Falls silent. The place reached stays readable until the next `play` or `close`.
    void stop();

    /// Gives up the stream and the track.
    void close();

    /// New sound is there for a stream that had run out. Any thread.
    void deliver();

    struct Heard {
        std::int64_t frame = 0; ///< of the track
        bool finished = false;  ///< the whole span has sounded
        bool lost = false;      ///< the server has dropped the stream
    };
    Heard heard();

    /// The stream's number in the server, if it has one.
    std::optional<std::uint32_t> streamIndex();

    /// The volume that a new stream starts with; unset, the server decides.
    void setStartVolume(std::optional<std::uint32_t> word);

  private:
    enum class Mode { Still, Playing, Paused };
    enum class Corked { No, Yes };

    /// A question for the stream's times, as things stood when it was asked.
    struct TimingAsked {
        std::uint32_t request = 0;
        Corked corked = Corked::Yes;
    };

    bool streamReady() const ORVAN_REQUIRES(server_);
    void makeStream() ORVAN_REQUIRES(server_);
    void dropStream() ORVAN_REQUIRES(server_);
    void lose() ORVAN_REQUIRES(server_);
    void cork(Corked corked) ORVAN_REQUIRES(server_);
    void silence() ORVAN_REQUIRES(server_);
    void pump() ORVAN_REQUIRES(server_);
    bool hasEnough() const ORVAN_REQUIRES(server_);
    bool writeBlock() ORVAN_REQUIRES(server_);
    bool writeTail() ORVAN_REQUIRES(server_);
    void askTiming() ORVAN_REQUIRES(server_);
    void takeTiming(TimingAsked asked) ORVAN_REQUIRES(server_);
    void planEnd() ORVAN_REQUIRES(server_);
    void cancelEnd() ORVAN_REQUIRES(server_);
    void finish() ORVAN_REQUIRES(server_);
    void setCallbacks() ORVAN_REQUIRES(server_);

    static void onState(pa_stream* stream, void* self);
    static void onRoom(pa_stream* stream, std::size_t bytes, void* self);
    static void onMotion(pa_stream* stream, void* self);
    static void onTiming(pa_stream* stream, int success, void* self);

    Server server_;

    StreamHandle stream_ ORVAN_GUARDED_BY(server_);
    TimerHandle endTimer_ ORVAN_GUARDED_BY(server_);
    std::shared_ptr<Track> track_ ORVAN_GUARDED_BY(server_);
    std::uint32_t request_ ORVAN_GUARDED_BY(server_) = 0;
    Span span_ ORVAN_GUARDED_BY(server_);
    Mode mode_ ORVAN_GUARDED_BY(server_) = Mode::Still;
    Corked corked_ ORVAN_GUARDED_BY(server_) = Corked::Yes;
    bool decodedAll_ ORVAN_GUARDED_BY(server_) = false;
    bool finished_ ORVAN_GUARDED_BY(server_) = false;
    bool lost_ ORVAN_GUARDED_BY(server_) = false;

    /// Frames of the span handed to the server, and bytes of the oldest block.
    std::int64_t written_ ORVAN_GUARDED_BY(server_) = 0;
    std::size_t blockOffset_ ORVAN_GUARDED_BY(server_) = 0;

    /// Where in the stream the span starts, in bytes.
    std::optional<std::int64_t> streamStart_ ORVAN_GUARDED_BY(server_);
    std::deque<TimingAsked> timingAsked_ ORVAN_GUARDED_BY(server_);
    PlayClock clock_ ORVAN_GUARDED_BY(server_);
    std::optional<std::uint32_t> startVolume_ ORVAN_GUARDED_BY(server_);
};

} // namespace platform::media
