#include "platform/linux/media/device.h"

#include "platform/linux/short_names.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <utility>

namespace platform::media {
namespace {

// Far beyond what a disk that works takes; one that is slow, or has stalled, must not hold the
// windows longer.
constexpr std::chrono::milliseconds openPatience{500};

} // namespace

Device::Answer Device::send(std::string_view text) {
    try {
        const ParsedMediaCommand parsed = parseMediaCommand(text);
        if (parsed.error != MediaError::None) return {parsed.error, {}};
        return handle(parsed.command);
    } catch (const std::bad_alloc&) {
        return {MediaError::OutOfMemory, {}};
    }
}

Device::Answer Device::handle(const MediaCommand& command) {
    if (command.verb == MediaVerb::Open) return {open(command), {}};
    if (!track_) return {MediaError::NotOpen, {}};
    switch (command.verb) {
    case MediaVerb::Status:
        return {MediaError::None,
                std::to_string(command.item == MediaStatusItem::Length ? length_ : position())};
    case MediaVerb::Play:
        return {play(command), {}};
    case MediaVerb::Pause:
        return {pause(), {}};
    case MediaVerb::Resume:
        return {resume(), {}};
    case MediaVerb::Stop:
        return {stop(), {}};
    case MediaVerb::Seek:
        return {seek(command), {}};
    case MediaVerb::Close:
        return {close(), {}};
    case MediaVerb::Open:
    case MediaVerb::SetTimeFormat: // thousandths are all it speaks
        break;
    }
    return {};
}

bool Device::reachServer() { return output_.server().reach(); }

MediaError Device::open(const MediaCommand& command) {
    if (track_) return MediaError::AliasInUse;
    const std::string hostPath = hostPathOfShortName(command.file);
    if (hostPath.empty()) return MediaError::FileNotFound;
    std::shared_ptr<Track> opened;
    MediaError error = openTrack(hostPath, opened);
    if (error != MediaError::None) return error;
    const std::int64_t length = lengthInThousandths(opened->frames(), opened->format().rate);
    // Sound too short for a thousandth could never be played from 1 to its length.
    if (length == 0) error = MediaError::NotAudio;
    if (error == MediaError::None && !reachServer()) error = MediaError::NoSoundServer;
    if (error != MediaError::None) {
        opened->release();
        return error;
    }
    track_ = std::move(opened);
    state_ = State::Stopped;
    length_ = length;
    place_ = 0;
    return MediaError::None;
}

std::shared_ptr<Track> Device::beginTrack(const std::string& hostPath, Track::Ahead ahead) {
    return Track::begin(
        hostPath, [&output = output_] { output.deliver(); }, ahead);
}

void Device::expect(const std::string& hostPath) {
    if (begun_) begun_->release();
    try {
        begun_ = beginTrack(hostPath, Track::Ahead::Playing);
    } catch (const std::bad_alloc&) {
        // The command that opens it will tell.
    }
}

/// A file whose opening has been begun is waited for, unless another was asked for since.
MediaError Device::openTrack(const std::string& hostPath, std::shared_ptr<Track>& opened) {
    std::shared_ptr<Track> track = std::exchange(begun_, nullptr);
    if (track && track->hostPath() != hostPath) {
        track->release();
        track.reset();
    }
    if (!track) track = beginTrack(hostPath, Track::Ahead::Nothing);
    if (!track) return MediaError::OutOfMemory;
    const MediaError error = track->waitForOpening(openPatience);
    if (error == MediaError::None)
        opened = std::move(track);
    else if (error == MediaError::TimedOut)
        begun_ = std::move(track);
    return error;
}

std::int64_t Device::frameOf(std::int64_t thousandths) const {
    if (thousandths == length_) return track_->frames();
    return std::min(track_->frames(), framesOfThousandths(thousandths, track_->format().rate));
}

void Device::start(std::int64_t from, std::int64_t to) {
    from_ = from;
    to_ = to;
    state_ = State::Playing;
    output_.play(track_, {frameOf(from), frameOf(to)});
}

MediaError Device::play(const MediaCommand& command) {
    const std::int64_t from = command.from.value_or(position());
    const std::int64_t to = command.to.value_or(length_);
    if (from < 0 || from > length_ || to < from || to > length_) return MediaError::OutOfRange;
    if (!reachServer()) return MediaError::NoSoundServer;
    const bool sameSpan = !command.from && to == to_;
    if (sameSpan && state_ == State::Paused) return resume();
    if (sameSpan && state_ == State::Playing) return MediaError::None;
    start(from, to);
    return MediaError::None;
}

MediaError Device::pause() {
    if (state_ != State::Playing) return MediaError::None;
    output_.pause();
    state_ = State::Paused;
    return MediaError::None;
}

MediaError Device::resume() {
    if (state_ != State::Paused) return MediaError::None;
    if (!reachServer()) return MediaError::NoSoundServer;
    state_ = State::Playing;
    if (output_.heard().lost)
        start(position(), to_);
    else
        output_.resume();
    return MediaError::None;
}

MediaError Device::stop() {
    place_ = position();
    if (state_ == State::Stopped) return MediaError::None;
    output_.stop();
    state_ = State::Stopped;
    return MediaError::None;
}

MediaError Device::seek(const MediaCommand& command) {
    if (*command.to < 0 || *command.to > length_) return MediaError::OutOfRange;
    output_.stop();
    state_ = State::Stopped;
    place_ = *command.to;
    return MediaError::None;
}

MediaError Device::close() {
    output_.close();
    track_->release();
    track_.reset();
    state_ = State::Stopped;
    return MediaError::None;
}

std::int64_t Device::position() {
    if (state_ == State::Stopped) return place_;
    const Output::Heard heard = output_.heard();
    if (heard.finished) {
        state_ = State::Stopped;
        place_ = to_;
        return place_;
    }
    const std::int64_t reached = thousandthsOfFrames(heard.frame, track_->format().rate);
    // Only the end itself has the end's number.
    const std::int64_t told = std::clamp(reached, from_, std::max(from_, to_ - 1));
    if (heard.lost && state_ == State::Playing) revive(told);
    return told;
}

/// The server dropped the stream: go on where the listener was as soon as it is back.
void Device::revive(std::int64_t place) {
    if (output_.server().reach(std::chrono::milliseconds(0))) start(place, to_);
}

} // namespace platform::media
