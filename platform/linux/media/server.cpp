#include "platform/linux/media/server.h"

#include "platform/linux/media/stream_words.h"

#include <algorithm>
#include <pulse/pulseaudio.h>
#include <utility>

namespace platform::media {
namespace {

// How long a server that has let somebody wait in vain is waited for.
constexpr std::chrono::milliseconds shortPatience{50};

} // namespace

Server::Lock::Lock(const Server& server) : loop_(server.loop()) {
    if (loop_ != nullptr) pa_threaded_mainloop_lock(loop_);
}

Server::Lock::~Lock() {
    if (loop_ != nullptr) pa_threaded_mainloop_unlock(loop_);
}

Server::Server(std::function<void()> lost) : lost_(std::move(lost)) {}

bool Server::ready() const {
    const MutexLock lock(mutex_);
    return state_ == State::Ready;
}

void Server::setState(State state) {
    const MutexLock lock(mutex_);
    state_ = state;
    changed_.notify_all();
}

bool Server::startLoop() {
    if (loop_) return true;
    LoopHandle loop(pa_threaded_mainloop_new());
    if (!loop) return false;
    pa_threaded_mainloop_set_name(loop.get(), "sound server");
    if (pa_threaded_mainloop_start(loop.get()) < 0) return false;
    loop_ = std::move(loop);
    return true;
}

bool Server::beginConnecting() {
    {
        const MutexLock lock(mutex_);
        if (state_ != State::Apart) return false;
        state_ = State::Connecting;
    }
    // On the server's thread, since connecting may have to start the server first.
    const Lock lock(*this);
    pa_threaded_mainloop_once_unlocked(
        loop(), [](pa_threaded_mainloop*, void* self) { static_cast<Server*>(self)->connect(); },
        this);
    return true;
}

void Server::connectEarly() {
    if (!startLoop() || !beginConnecting()) return;
    const MutexLock lock(mutex_);
    early_ = true;
}

bool Server::reach(std::chrono::milliseconds limit) {
    if (!startLoop()) return false;
    const bool begun = beginConnecting();
    MutexLock lock(mutex_);
    const bool first = std::exchange(early_, false) || begun;
    lock.waitFor(changed_, first ? limit : std::min(limit, shortPatience),
                 [this]() ORVAN_REQUIRES(mutex_) { return state_ != State::Connecting; });
    return state_ == State::Ready;
}

void Server::connect() {
    pa_context* fresh = nullptr;
    {
        const Lock lock(*this);
        context_.reset();
        const PropertiesHandle words = applicationProperties();
        context_.reset(pa_context_new_with_proplist(pa_threaded_mainloop_get_api(loop()),
                                                    applicationName, words.get()));
        fresh = context_.get();
        if (fresh != nullptr)
            pa_context_set_state_callback(fresh, &Server::onConnectionState, this);
    }
    // Nobody else touches the connection before it is ready, so this may go without the lock.
    if (fresh == nullptr || pa_context_connect(fresh, nullptr, PA_CONTEXT_NOFLAGS, nullptr) < 0)
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

bool Server::ask(const Question& ask, std::chrono::milliseconds limit) {
    if (!ready()) return false;
    QuestionHandle question;
    {
        const Lock serverLock(*this);
        {
            const MutexLock lock(mutex_);
            if (state_ != State::Ready) return false;
            answered_ = false;
        }
        question.reset(ask(context_.get()));
        if (!question) return false;
    }
    bool inTime = false;
    {
        MutexLock lock(mutex_);
        lock.waitFor(changed_, hangs_ ? std::min(limit, shortPatience) : limit,
                     [this]()
                         ORVAN_REQUIRES(mutex_) { return answered_ || state_ != State::Ready; });
        inTime = answered_;
        hangs_ = !answered_ && state_ == State::Ready;
    }
    const Lock serverLock(*this);
    if (pa_operation_get_state(question.get()) == PA_OPERATION_RUNNING)
        pa_operation_cancel(question.get());
    question.reset();
    return inTime;
}

void Server::answered() {
    const MutexLock lock(mutex_);
    answered_ = true;
    changed_.notify_all();
}

} // namespace platform::media
