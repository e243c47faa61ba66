#include "platform/linux/media/output.h"

#include "platform/linux/media/stream_words.h"
#include "platform/linux/media/volume_words.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <pulse/pulseaudio.h>

namespace platform::media {
namespace {

// A deep buffer in the server, filled in big strokes: few wake-ups. The server's output mixes the
// rest of these, two seconds, ahead of its time: as much as an idle output has mixed of silence, so
// that it can take all of that back and sound at once. A pause or a new place, too.
constexpr int bufferMilliseconds = 4000;
constexpr int strokeMilliseconds = 1000;

// Let loose with less than it mixes ahead, the stream would run dry at once, and what follows a
// dry run may lose sound.
constexpr int startMilliseconds = 2000;

// The clocks of sound and system part by a fifth of a millisecond in so many microseconds. In
// steady play the server is asked when it wants more sound, since its thread is up then anyway.
constexpr std::int64_t timingStaysGood = 2'500'000;
constexpr std::int64_t endSlack = 3'000; // microseconds

constexpr std::array<std::byte, std::size_t{32} * 1024> stillness{};

std::int64_t now() {
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

std::uint32_t bytesOf(int milliseconds, const pa_sample_spec& sampling) {
    const auto frames =
        static_cast<std::uint64_t>(sampling.rate) * static_cast<std::uint64_t>(milliseconds) / 1000;
    return static_cast<std::uint32_t>(std::max<std::uint64_t>(1, frames) *
                                      pa_frame_size(&sampling));
}

pa_sample_spec samplingOf(const SoundFormat& format) {
    pa_sample_spec sampling{};
    sampling.format = format.kind == SampleKind::Signed16 ? PA_SAMPLE_S16NE : PA_SAMPLE_FLOAT32NE;
    sampling.rate = static_cast<std::uint32_t>(format.rate);
    sampling.channels = 2;
    return sampling;
}

/// Sent, and nobody waits for the answer.
void letGo(pa_operation* operation) { const QuestionHandle sent(operation); }

} // namespace

Output::Output()
    : server_([this] {
          server_.assertLocked();
          lose();
      }) {}

bool Output::streamReady() const {
    return stream_ && pa_stream_get_state(stream_.get()) == PA_STREAM_READY;
}

void Output::play(const std::shared_ptr<Track>& track, Span span) {
    const Server::Lock lock(server_);
    if (track_ != track) {
        dropStream();
        track_ = track;
    }
    silence();
    request_ = track_->request(span);
    span_ = span;
    mode_ = Mode::Playing;
    decodedAll_ = finished_ = lost_ = false;
    written_ = 0;
    blockOffset_ = 0;
    clock_.restart(track_->format().rate);
    if (!stream_) {
        streamStart_ = 0;
        makeStream();
    } else if (streamReady()) {
        // Asked while nothing moves: where the stream stands is where the span starts.
        streamStart_.reset();
        askTiming();
    }
    pump();
}

void Output::pause() {
    const Server::Lock lock(server_);
    if (mode_ != Mode::Playing) return;
    mode_ = Mode::Paused;
    clock_.heard(now(), written_);
    clock_.halt(now());
    cancelEnd();
    cork(Corked::Yes);
    askTiming();
}

void Output::resume() {
    const Server::Lock lock(server_);
    if (mode_ != Mode::Paused) return;
    mode_ = Mode::Playing;
    pump();
}

void Output::stop() {
    const Server::Lock lock(server_);
    if (mode_ == Mode::Still) return;
    clock_.halt(now());
    mode_ = Mode::Still;
    silence();
}

void Output::close() {
    const Server::Lock lock(server_);
    dropStream();
    mode_ = Mode::Still;
    track_.reset();
}

void Output::deliver() {
    const Server::Lock lock(server_);
    pump();
}

Output::Heard Output::heard() {
    const Server::Lock lock(server_);
    Heard heard;
    heard.finished = finished_;
    heard.lost = lost_;
    if (mode_ == Mode::Playing && !finished_) {
        const bool moving = clock_.motion() == PlayClock::Motion::Running;
        if (!moving || now() - clock_.correctedAt() > timingStaysGood) askTiming();
    }
    // While it is held, a place that has been told once stays, whatever is learned of it later.
    heard.frame =
        span_.from + (mode_ == Mode::Paused ? clock_.told() : clock_.heard(now(), written_));
    return heard;
}

std::optional<std::uint32_t> Output::streamIndex() {
    const Server::Lock lock(server_);
    if (!streamReady()) return std::nullopt;
    return pa_stream_get_index(stream_.get());
}

void Output::setStartVolume(std::optional<std::uint32_t> word) {
    const Server::Lock lock(server_);
    startVolume_ = word;
}

void Output::makeStream() {
    if (!server_.ready()) {
        lose();
        return;
    }
    const pa_sample_spec sampling = samplingOf(track_->format());
    const PropertiesHandle words = streamProperties(track_->hostPath());
    stream_.reset(words ? pa_stream_new_with_proplist(server_.context(), nullptr, &sampling,
                                                      nullptr, words.get())
                        : nullptr);
    if (!stream_) {
        lose();
        return;
    }
    setCallbacks();
    pa_buffer_attr buffer{};
    buffer.maxlength = static_cast<std::uint32_t>(-1);
    buffer.tlength = bytesOf(bufferMilliseconds, sampling);
    buffer.minreq = bytesOf(strokeMilliseconds, sampling);
    buffer.prebuf = bytesOf(startMilliseconds, sampling);
    pa_cvolume volume{};
    if (startVolume_) {
        const ServerVolume wanted = serverVolumeOf(*startVolume_);
        volume.channels = 2;
        volume.values[0] = wanted.left;
        volume.values[1] = wanted.right;
    }
    corked_ = Corked::Yes;
    if (pa_stream_connect_playback(stream_.get(), nullptr, &buffer, PA_STREAM_START_CORKED,
                                   startVolume_ ? &volume : nullptr, nullptr) < 0)
        lose();
}

void Output::setCallbacks() {
    pa_stream* stream = stream_.get();
    pa_stream_set_state_callback(stream, &Output::onState, this);
    pa_stream_set_write_callback(stream, &Output::onRoom, this);
    pa_stream_set_started_callback(stream, &Output::onMotion, this);
    pa_stream_set_moved_callback(stream, &Output::onMotion, this);
    pa_stream_set_suspended_callback(stream, &Output::onMotion, this);
}

void Output::onState(pa_stream* stream, void* self) {
    auto& output = *static_cast<Output*>(self);
    output.server_.assertLocked();
    const pa_stream_state_t state = pa_stream_get_state(stream);
    if (state == PA_STREAM_READY) output.pump();
    if (state == PA_STREAM_FAILED || state == PA_STREAM_TERMINATED) output.lose();
}

void Output::onRoom(pa_stream*, std::size_t, void* self) {
    auto& output = *static_cast<Output*>(self);
    output.server_.assertLocked();
    output.pump();
    if (output.mode_ == Mode::Playing) output.askTiming();
}

/// The sound set in, was held up, or goes another way now.
void Output::onMotion(pa_stream* stream, void* self) {
    auto& output = *static_cast<Output*>(self);
    output.server_.assertLocked();
    if (pa_stream_is_suspended(stream) > 0) output.clock_.halt(now());
    output.askTiming();
}

void Output::dropStream() {
    cancelEnd();
    timingAsked_.clear();
    if (stream_ && server_.ready()) pa_stream_disconnect(stream_.get());
    stream_.reset();
}

void Output::lose() {
    clock_.halt(now());
    dropStream();
    lost_ = mode_ != Mode::Still;
}

void Output::cork(Corked corked) {
    if (!streamReady() || corked_ == corked) return;
    corked_ = corked;
    letGo(pa_stream_cork(stream_.get(), corked == Corked::Yes ? 1 : 0, nullptr, nullptr));
}

/// Corking first makes the server take back what it has mixed but not played.
void Output::silence() {
    cancelEnd();
    if (!streamReady()) return;
    cork(Corked::Yes);
    letGo(pa_stream_flush(stream_.get(), nullptr, nullptr));
}

void Output::pump() {
    if (!streamReady() || mode_ == Mode::Still) return;
    while (writeBlock() || writeTail()) {
    }
    if (mode_ == Mode::Playing && corked_ == Corked::Yes && hasEnough()) {
        cork(Corked::No);
        askTiming();
    }
    planEnd();
}

bool Output::hasEnough() const {
    if (decodedAll_) return true;
    const SoundFormat format = track_->format();
    return written_ >= framesOfThousandths(startMilliseconds, format.rate) ||
           pa_stream_writable_size(stream_.get()) < format.bytesPerFrame();
}

bool Output::writeBlock() {
    if (decodedAll_) return false;
    Block* block = track_->front(request_);
    if (block == nullptr) return false;
    const std::size_t frame = track_->format().bytesPerFrame();
    const std::size_t room = pa_stream_writable_size(stream_.get()) / frame * frame;
    const std::size_t count = std::min(room, block->bytes - blockOffset_);
    if (count > 0) {
        if (pa_stream_write(stream_.get(), block->data.get() + blockOffset_, count, nullptr, 0,
                            PA_SEEK_RELATIVE) < 0)
            return false;
        written_ += static_cast<std::int64_t>(count / frame);
        blockOffset_ += count;
    }
    if (blockOffset_ < block->bytes) return false;
    decodedAll_ = block->last;
    blockOffset_ = 0;
    track_->pop();
    return !decodedAll_;
}

/// Stillness behind the last frame keeps the stream moving until that frame has been heard.
bool Output::writeTail() {
    if (!decodedAll_ || finished_) return false;
    const std::size_t frame = track_->format().bytesPerFrame();
    const std::size_t room = pa_stream_writable_size(stream_.get());
    const std::size_t count = std::min(room, stillness.size()) / frame * frame;
    if (count == 0) return false;
    return pa_stream_write(stream_.get(), stillness.data(), count, nullptr, 0, PA_SEEK_RELATIVE) ==
           0;
}

void Output::askTiming() {
    // One answer is enough, unless something has changed since the question.
    if (!streamReady()) return;
    if (!timingAsked_.empty() && timingAsked_.back().request == request_ &&
        timingAsked_.back().corked == corked_)
        return;
    const QuestionHandle question(
        pa_stream_update_timing_info(stream_.get(), &Output::onTiming, this));
    if (!question) return;
    timingAsked_.push_back({request_, corked_});
}

void Output::onTiming(pa_stream* stream, int success, void* self) {
    auto& output = *static_cast<Output*>(self);
    output.server_.assertLocked();
    // A stream that was given up may still answer.
    if (stream != output.stream_.get() || output.timingAsked_.empty()) return;
    const TimingAsked asked = output.timingAsked_.front();
    output.timingAsked_.pop_front();
    if (success != 0 && asked.request == output.request_) output.takeTiming(asked);
}

void Output::takeTiming(TimingAsked asked) {
    const pa_timing_info* info = pa_stream_get_timing_info(stream_.get());
    if (info == nullptr) return;
    if (!streamStart_) streamStart_ = info->read_index;
    if (asked.corked != corked_ || mode_ == Mode::Still) return;

    const auto& format = track_->format();
    const auto frame = static_cast<std::int64_t>(format.bytesPerFrame());
    std::int64_t heard = (info->read_index - *streamStart_) / frame;
    if (corked_ == Corked::No) {
        // What the output has yet to play; behind a dry run that is stillness first of all.
        std::int64_t ahead = static_cast<std::int64_t>(info->sink_usec) * format.rate / 1'000'000;
        if (info->playing == 0) ahead -= static_cast<std::int64_t>(info->since_underrun) / frame;
        heard -= std::max<std::int64_t>(0, ahead);
    }
    const bool running = corked_ == Corked::No && info->playing != 0;
    timeval clock{};
    pa_gettimeofday(&clock);
    const auto age = static_cast<std::int64_t>(
        std::min<pa_usec_t>(pa_timeval_diff(&clock, &info->timestamp), 1'000'000));
    clock_.correct(heard, now() - age,
                   running ? PlayClock::Motion::Running : PlayClock::Motion::Standing);
    if (decodedAll_ && corked_ == Corked::No && clock_.carried(now()) >= written_)
        finish();
    else
        planEnd();
}

/// Looks again when the last frame should have been heard.
void Output::planEnd() {
    if (!decodedAll_ || finished_ || mode_ != Mode::Playing) return;
    if (clock_.motion() != PlayClock::Motion::Running || !server_.ready()) return;
    const std::int64_t left = std::max<std::int64_t>(0, written_ - clock_.carried(now()));
    const auto wait = static_cast<pa_usec_t>(left * 1'000'000 / track_->format().rate + endSlack);
    if (endTimer_) {
        pa_context_rttime_restart(server_.context(), endTimer_.get(), pa_rtclock_now() + wait);
        return;
    }
    pa_time_event* timer = pa_context_rttime_new(
        server_.context(), pa_rtclock_now() + wait,
        [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
            auto& output = *static_cast<Output*>(self);
            output.server_.assertLocked();
            output.askTiming();
        },
        this);
    endTimer_ = TimerHandle(timer, {pa_threaded_mainloop_get_api(server_.loop())});
}

void Output::cancelEnd() { endTimer_.reset(); }

void Output::finish() {
    finished_ = true;
    mode_ = Mode::Still;
    silence();
}

} // namespace platform::media
