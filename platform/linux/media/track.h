#pragma once

#include "platform/linux/media/block_queue.h"
#include "platform/linux/media/decoder.h"
#include "platform/linux/media/locks.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace platform::media {

/// A stretch of a track, in frames; `to` lies outside.
struct Span {
    std::int64_t from = 0;
    std::int64_t to = 0;

    friend bool operator==(const Span&, const Span&) = default;
};

/// An open file and the thread that decodes it. The thread keeps the track alive, so whoever lets
/// go of one never waits for a disk that has stalled.
class Track {
  public:
    /// What is decoded before anybody has asked: nothing, or what the player plays, from 1 on.
    enum class Ahead { Nothing, Playing };

    /// Begins to open a file. `deliver` is called on the decoding thread when sound has arrived
    /// that the reader was out of. Null if there can be no such thread.
    static std::shared_ptr<Track> begin(const std::string& hostPath, std::function<void()> deliver,
                                        Ahead ahead = Ahead::Nothing);

    /// Waits until the file is open, no longer than `limit`: `TimedOut` then, and the opening goes
    /// on. Once there is no error the rest of the track may be used.
    MediaError waitForOpening(std::chrono::milliseconds limit);

    SoundFormat format() const { return format_; }
    std::int64_t frames() const { return frames_; }
    const std::string& hostPath() const { return hostPath_; }

    /// Starts decoding a span; what was decoded before is stale, unless it is of this very span and
    /// was decoded ahead. Returns the request's number.
    std::uint32_t request(Span span);

    /// Ends the decoding, at once or as soon as the disk lets go of the thread.
    void release();

    /// Reading side: the oldest block of a request, or null if it isn't decoded yet. Stale blocks
    /// are dropped on the way.
    Block* front(std::uint32_t request);
    void pop();

  private:
    struct Private {};

  public:
    Track(Private, std::string hostPath, std::function<void()> deliver, Ahead ahead);

  private:
    enum class Opening { Running, Done };
    enum class Going { On, Away };

    static void run(const std::shared_ptr<Track>& track);
    void openFile();
    bool released();
    void decodeRequests();
    bool waitForWork();
    Going takeRequest();
    void decodeBlock();

    const std::string hostPath_;
    const std::function<void()> deliver_;
    SoundFormat format_;
    std::int64_t frames_ = 0;

    Mutex mutex_;
    std::condition_variable changed_;
    Opening opening_ ORVAN_GUARDED_BY(mutex_) = Opening::Running;
    MediaError openError_ ORVAN_GUARDED_BY(mutex_) = MediaError::None;
    bool released_ ORVAN_GUARDED_BY(mutex_) = false;
    Span requested_ ORVAN_GUARDED_BY(mutex_);
    std::uint32_t lastRequest_ ORVAN_GUARDED_BY(mutex_) = 0;
    Ahead ahead_ ORVAN_GUARDED_BY(mutex_);

    std::unique_ptr<BlockQueue> queue_;
    std::atomic<bool> starving_ = false; ///< the reader found nothing: tell it when there is more

    // The decoding thread's own.
    Decoder decoder_;
    std::size_t blockFrames_ = 0;
    std::uint32_t current_ = 0; ///< the request that it works at
    std::int64_t left_ = 0;
    bool active_ = false;
};

} // namespace platform::media
