#include "platform/simulated/media.h"

#include "platform/simulated/world.h"
#include "runtime/text.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace simulated {
namespace {

using platform::MediaCommand;
using platform::MediaError;
using platform::MediaVerb;

bool startsWith(std::string_view command, std::string_view start) {
    return runtime::equalIgnoringCase(command.substr(0, start.size()), start);
}

void copyCut(std::string_view text, char* buffer, std::uint32_t size) {
    if (buffer == nullptr || size == 0) return;
    const std::size_t length = std::min<std::size_t>(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

} // namespace

void Media::addFile(const std::string& path, std::int64_t length) {
    lengths_[path] = length;
    world.files.addFile(path);
}

std::vector<std::string> Media::trimmedCommands() const {
    std::vector<std::string> result;
    for (const std::string& command : commands_)
        result.push_back(runtime::withoutTrailingBlanks(command));
    return result;
}

void Media::fail(const std::string& start, std::uint32_t error, int times) {
    failures_.push_back({start, error, times});
}

void Media::answer(const std::string& start, const std::string& reply) {
    answers_.push_back({start, reply});
}

std::int64_t Media::position() const {
    if (state_ != State::Playing) return base_;
    return std::min(end_, base_ + static_cast<std::int64_t>(world.events.now - since_));
}

bool Media::playing() const { return state_ == State::Playing && position() < end_; }

void Media::settle(State state, std::int64_t position) {
    state_ = state;
    base_ = position;
    since_ = world.events.now;
}

std::uint32_t Media::send(const std::string& command, std::string& reply) {
    commands_.push_back(command);
    note("send " + runtime::withoutTrailingBlanks(command));
    for (auto failure = failures_.begin(); failure != failures_.end(); ++failure) {
        if (!startsWith(command, failure->start)) continue;
        const std::uint32_t error = failure->error;
        if (--failure->times == 0) failures_.erase(failure);
        return error;
    }
    const platform::ParsedMediaCommand parsed = platform::parseMediaCommand(command);
    MediaError error = parsed.error;
    if (error == MediaError::None) error = obey(parsed.command, reply);
    for (auto scripted = answers_.begin(); scripted != answers_.end(); ++scripted) {
        if (!startsWith(command, scripted->start)) continue;
        reply = scripted->reply;
        answers_.erase(scripted);
        return 0;
    }
    return static_cast<std::uint32_t>(error);
}

MediaError Media::obey(const MediaCommand& command, std::string& reply) {
    if (command.verb == MediaVerb::Open) return openFile(command);
    if (!open_) return MediaError::NotOpen;
    switch (command.verb) {
    case MediaVerb::Play:
        return play(command);
    case MediaVerb::Seek:
        return seek(command);
    case MediaVerb::Status:
        reply = status(command.item);
        break;
    case MediaVerb::Pause:
        if (playing()) settle(State::Paused, position());
        break;
    case MediaVerb::Resume:
        if (paused()) settle(State::Playing, base_);
        break;
    case MediaVerb::Stop:
        settle(State::Stopped, position());
        break;
    case MediaVerb::Close:
        close();
        break;
    case MediaVerb::Open:
    case MediaVerb::SetTimeFormat: // thousandths are all it speaks
        break;
    }
    return MediaError::None;
}

MediaError Media::openFile(const MediaCommand& command) {
    if (open_) return MediaError::AliasInUse;
    const std::string path = world.files.longNameOf(command.file);
    if (!world.files.exists(path)) return MediaError::FileNotFound;
    const auto file = lengths_.find(path);
    if (file == lengths_.end()) return MediaError::NotAudio;
    open_ = true;
    path_ = path;
    length_ = file->second;
    end_ = length_;
    settle(State::Stopped, 0);
    return MediaError::None;
}

std::string Media::status(platform::MediaStatusItem item) const {
    if (item == platform::MediaStatusItem::Length) return std::to_string(length_);
    return std::to_string(reported_.value_or(position()));
}

MediaError Media::play(const MediaCommand& command) {
    const std::int64_t from = command.from.value_or(position());
    const std::int64_t to = command.to.value_or(length_);
    if (from < 0 || from > to || to > length_) return MediaError::OutOfRange;
    settle(State::Playing, from);
    end_ = to;
    return MediaError::None;
}

MediaError Media::seek(const MediaCommand& command) {
    if (*command.to < 0 || *command.to > length_) return MediaError::OutOfRange;
    settle(State::Stopped, *command.to);
    return MediaError::None;
}

void Media::close() {
    open_ = false;
    path_.clear();
    length_ = 0;
    settle(State::Stopped, 0);
}

} // namespace simulated

namespace platform {

using simulated::world;

/// There is no disk to be waited for.
void expectFile(const std::string& /*path*/) {}

std::uint32_t mciSendStringA(const char* command, char* reply, std::uint32_t replySize,
                             WindowHandle callback) {
    world.media.calls.push_back({replySize, callback, reply != nullptr});
    std::string text;
    const std::uint32_t error = world.media.send(command, text);
    if (error == 0) simulated::copyCut(text, reply, replySize);
    return error;
}

bool mciGetErrorStringA(std::uint32_t error, char* text, std::uint32_t size) {
    world.media.errorTexts.emplace_back(error, size);
    const std::string_view sentence = mediaErrorText(error);
    if (sentence.empty()) return false;
    simulated::copyCut(sentence, text, size);
    return true;
}

} // namespace platform
