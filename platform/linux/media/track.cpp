#include "platform/linux/media/track.h"

#include "platform/linux/media/play_clock.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace platform::media {
namespace {

// Any disk that works has given up a whole MP3 by then, or may be asked for less of it.
constexpr std::chrono::milliseconds measurePatience{150};

constexpr int blocksPerSecond = 4;
constexpr int fewestBlockFrames = 256;

// The decoder works in strokes of at least this many blocks, so that it wakes seldom.
constexpr std::size_t blocksPerStroke = 8;

} // namespace

Track::Track(Private, std::string hostPath, std::function<void()> deliver, Ahead ahead)
    : hostPath_(std::move(hostPath)), deliver_(std::move(deliver)), ahead_(ahead) {}

std::shared_ptr<Track> Track::begin(const std::string& hostPath, std::function<void()> deliver,
                                    Ahead ahead) {
    auto track = std::make_shared<Track>(Private{}, hostPath, std::move(deliver), ahead);
    try {
        std::thread(run, track).detach();
    } catch (const std::system_error&) {
        return nullptr;
    }
    return track;
}

MediaError Track::waitForOpening(std::chrono::milliseconds limit) {
    MutexLock lock(mutex_);
    const bool inTime = lock.waitFor(
        changed_, limit, [this]() ORVAN_REQUIRES(mutex_) { return opening_ == Opening::Done; });
    return inTime ? openError_ : MediaError::TimedOut;
}

std::uint32_t Track::request(Span span) {
    const MutexLock lock(mutex_);
    const bool begun = std::exchange(ahead_, Ahead::Nothing) == Ahead::Playing;
    if (begun && requested_ == span) return lastRequest_;
    requested_ = span;
    ++lastRequest_;
    changed_.notify_all();
    return lastRequest_;
}

void Track::release() {
    const MutexLock lock(mutex_);
    released_ = true;
    changed_.notify_all();
}

Block* Track::front(std::uint32_t request) {
    Block* block = queue_->front();
    while (block != nullptr && block->request != request) {
        pop();
        block = queue_->front();
    }
    if (block != nullptr) return block;
    starving_.store(true);
    // The writer may have pushed between the look and the mark.
    block = queue_->front();
    return block != nullptr && block->request == request ? block : nullptr;
}

void Track::pop() {
    queue_->pop();
    if (queue_->waiting() + blocksPerStroke != BlockQueue::capacity) return;
    // Whoever is woken finds the mutex free, and needn't be put to sleep again.
    { const MutexLock lock(mutex_); }
    changed_.notify_all();
}

void Track::run(const std::shared_ptr<Track>& track) {
    track->openFile();
    track->decodeRequests();
}

void Track::openFile() {
    MediaError error = MediaError::None;
    try {
        const auto until = std::chrono::steady_clock::now() + measurePatience;
        error = decoder_.open(hostPath_, {until, [this] { return released(); }});
        if (error == MediaError::None) {
            format_ = decoder_.format();
            frames_ = decoder_.frames();
            const int frames = std::max(fewestBlockFrames, format_.rate / blocksPerSecond);
            blockFrames_ = static_cast<std::size_t>(frames);
            queue_ = std::make_unique<BlockQueue>(blockFrames_ * format_.bytesPerFrame());
        }
    } catch (const std::bad_alloc&) {
        error = MediaError::OutOfMemory;
    }
    const MutexLock lock(mutex_);
    opening_ = Opening::Done;
    openError_ = error;
    if (error != MediaError::None) released_ = true;
    if (ahead_ == Ahead::Playing) {
        requested_ = {framesOfThousandths(1, format_.rate), frames_};
        ++lastRequest_;
    }
    changed_.notify_all();
}

bool Track::released() {
    const MutexLock lock(mutex_);
    return released_;
}

void Track::decodeRequests() {
    while (waitForWork()) {
        while (takeRequest() == Going::On && active_ && queue_->back() != nullptr) {
            decodeBlock();
            if (starving_.exchange(false)) deliver_();
        }
    }
}

bool Track::waitForWork() {
    MutexLock lock(mutex_);
    lock.wait(changed_, [this]() ORVAN_REQUIRES(mutex_) {
        const bool room = queue_ && queue_->waiting() + blocksPerStroke <= BlockQueue::capacity;
        return released_ || lastRequest_ != current_ || (active_ && room);
    });
    return !released_;
}

Track::Going Track::takeRequest() {
    Span span;
    {
        const MutexLock lock(mutex_);
        if (released_) return Going::Away;
        if (lastRequest_ == current_) return Going::On;
        current_ = lastRequest_;
        span = requested_;
    }
    // A place that can't be found again sounds like the end of the track.
    left_ = decoder_.seek(span.from) ? std::max<std::int64_t>(0, span.to - span.from) : 0;
    active_ = true;
    return Going::On;
}

void Track::decodeBlock() {
    Block& block = *queue_->back();
    const auto wanted =
        static_cast<std::size_t>(std::min(left_, static_cast<std::int64_t>(blockFrames_)));
    const std::size_t got = wanted == 0 ? 0 : decoder_.read(block.data.get(), wanted);
    left_ -= static_cast<std::int64_t>(got);
    block.request = current_;
    block.bytes = got * format_.bytesPerFrame();
    block.last = got < wanted || left_ == 0;
    active_ = !block.last;
    queue_->push();
}

} // namespace platform::media
