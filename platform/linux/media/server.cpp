#include "platform/linux/media/server.h"

#include <algorithm>
#include <pulse/pulseaudio.h>
#include <utility>

namespace platform::media {
namespace {

// How long a server that has let somebody wait in vain is waited for.
constexpr std::chrono::milliseconds shortPatience{50};

constexpr const char* applicationName = "Orvan Music Player";

} // namespace

Server::Lock::Lock(pa_threaded_mainloop* loop) : loop_(loop) {
    if (loop_ != nullptr) pa_threaded_mainloop_lock(loop_);
}

Server::Lock::~Lock() {
    if (loop_ != nullptr) pa_threaded_mainloop_unlock(loop_);
}

Server::Server(std::function<void()> lost) : lost_(std::move(lost)) {}

bool Server::ready() const {
    const std::lock_guard lock(mutex_);
    return state_ == State::Ready;
}

void Server::setState(State state) {
    const std::lock_guard lock(mutex_);
    state_ = state;
    changed_.notify_all();
}

bool Server::startLoop() {
    if (loop_ != nullptr) return true;
    pa_threaded_mainloop* loop = pa_threaded_mainloop_new();
    if (loop == nullptr) return false;
    pa_threaded_mainloop_set_name(loop, "sound server");
    if (pa_threaded_mainloop_start(loop) < 0) {
        pa_threaded_mainloop_free(loop);
        return false;
    }
    loop_ = loop;
    return true;
}

bool Server::reach(std::chrono::milliseconds limit) {
    if (!startLoop()) return false;
    const bool begin = [this] {
        const std::lock_guard lock(mutex_);
        if (state_ != State::Apart) return false;
        state_ = State::Connecting;
        return true;
    }();
    if (begin) {
        // On the server's thread, since connecting may have to start the server first.
        const Lock lock(loop_);
        pa_threaded_mainloop_once_unlocked(
            loop_, [](pa_threaded_mainloop*, void* self) { static_cast<Server*>(self)->connect(); },
            this);
    }
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, begin ? limit : std::min(limit, shortPatience),
                      [this] { return state_ != State::Connecting; });
    return state_ == State::Ready;
}

void Server::connect() {
    {
        const Lock lock(loop_);
        if (context_ != nullptr) {
            pa_context_set_state_callback(context_, nullptr, nullptr);
            pa_context_disconnect(context_);
            pa_context_unref(context_);
        }
        context_ = pa_context_new(pa_threaded_mainloop_get_api(loop_), applicationName);
        if (context_ != nullptr)
            pa_context_set_state_callback(context_, &Server::onConnectionState, this);
    }
    // Nobody else touches the connection before it is ready, so this may go without the lock.
    if (context_ == nullptr ||
        pa_context_connect(context_, nullptr, PA_CONTEXT_NOFLAGS, nullptr) < 0)
        setState(State::Apart);
}

void Server::onConnectionState(pa_context* context, void* self) {
    auto* server = static_cast<Server*>(self);
    switch (pa_context_get_state(context)) {
    case PA_CONTEXT_READY:
        server->setState(State::Ready);
        break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED: {
        const bool wasReady = server->ready();
        server->setState(State::Apart);
        if (wasReady) server->lost_();
        break;
    }
    default:
        break;
    }
}

bool Server::ask(const std::function<pa_operation*()>& ask, std::chrono::milliseconds limit) {
    if (!ready()) return false;
    pa_operation* question = nullptr;
    {
        const Lock loopLock(loop_);
        {
            const std::lock_guard lock(mutex_);
            if (state_ != State::Ready) return false;
            answered_ = false;
        }
        question = ask();
        if (question == nullptr) return false;
    }
    bool inTime = false;
    {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, hangs_ ? std::min(limit, shortPatience) : limit,
                          [this] { return answered_ || state_ != State::Ready; });
        inTime = answered_;
        hangs_ = !answered_ && state_ == State::Ready;
    }
    const Lock loopLock(loop_);
    if (pa_operation_get_state(question) == PA_OPERATION_RUNNING) pa_operation_cancel(question);
    pa_operation_unref(question);
    return inTime;
}

void Server::answered() {
    const std::lock_guard lock(mutex_);
    answered_ = true;
    changed_.notify_all();
}

} // namespace platform::media
