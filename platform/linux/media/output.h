#pragma once

#include "platform/linux/media/play_clock.h"
#include "platform/linux/media/server.h"
#include "platform/linux/media/track.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>

struct pa_stream;
struct pa_time_event;

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

    bool streamReady() const;
    void makeStream();
    void dropStream();
    void lose();
    void cork(Corked corked);
    void silence();
    void pump();
    bool hasEnough() const;
    bool writeBlock();
    bool writeTail();
    void askTiming();
    void takeTiming(TimingAsked asked);
    void planEnd();
    void cancelEnd();
    void finish();
    void setCallbacks();
    void clearCallbacks();

    static void onState(pa_stream* stream, void* self);
    static void onRoom(pa_stream* stream, std::size_t bytes, void* self);
    static void onMotion(pa_stream* stream, void* self);
    static void onTiming(pa_stream* stream, int success, void* self);

    Server server_;

    // All of these are guarded by the server's lock.
    pa_stream* stream_ = nullptr;
    pa_time_event* endTimer_ = nullptr;
    std::shared_ptr<Track> track_;
    std::uint32_t request_ = 0;
    Span span_;
    Mode mode_ = Mode::Still;
    Corked corked_ = Corked::Yes;
    bool decodedAll_ = false;
    bool finished_ = false;
    bool lost_ = false;
    std::int64_t written_ = 0;                ///< frames of the span handed to the server
    std::size_t blockOffset_ = 0;             ///< bytes of the oldest block handed over already
    std::optional<std::int64_t> streamStart_; ///< where in the stream the span starts, in bytes
    std::deque<TimingAsked> timingAsked_;
    PlayClock clock_;
    std::optional<std::uint32_t> startVolume_;
};

} // namespace platform::media
