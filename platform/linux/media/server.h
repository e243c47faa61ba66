#pragma once

#include "platform/linux/media/locks.h"
#include "platform/linux/media/pulse_handles.h"

#include <chrono>
#include <condition_variable>
#include <functional>

namespace platform::media {

/// The connection to the sound server, made at the first need and kept. The server's own thread
/// serves it. Lives as long as the process. It is a lock, too: who holds it keeps the server's
/// thread out.
class ORVAN_CAPABILITY("sound server") Server {
  public:
    enum class State { Apart, Connecting, Ready };

    /// Keeps the server's thread out while it lives. Nothing may wait inside one.
    class ORVAN_SCOPED_CAPABILITY Lock {
      public:
        explicit Lock(const Server& server) ORVAN_ACQUIRE(server);
        ~Lock() ORVAN_RELEASE();
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

      private:
        pa_threaded_mainloop* loop_;
    };

    /// `lost` is called, locked, on the server's thread when the connection breaks.
    explicit Server(std::function<void()> lost);

    /// What a server that has to be started first takes.
    static constexpr std::chrono::milliseconds patience{1500};

    /// Begins to connect, and waits for nothing; `reach` takes it over. Before anything else.
    void connectEarly();

    /// Connects at need, and waits for that no longer than `limit`. Interface thread.
    bool reach(std::chrono::milliseconds limit = patience);

    /// Whether commands can be sent right now. Any thread.
    bool ready() const ORVAN_EXCLUDES(mutex_);

    /// For what the server's thread calls by itself: it does so locked.
    void assertLocked() const ORVAN_ASSERT_HELD(this) {}

    pa_threaded_mainloop* loop() const { return loop_.get(); }

    /// The connection; only while `ready`.
    pa_context* context() const ORVAN_REQUIRES(this) { return context_.get(); }

    using Question = std::function<pa_operation*(pa_context*)>;

    /// Sends one question and waits for its answer, no longer than `limit`. `ask` starts it,
    /// locked; its callback has to call `answered` as its last act. False without an answer, and
    /// then the callback will not come any more. Interface thread, not locked.
    bool ask(const Question& ask, std::chrono::milliseconds limit) ORVAN_EXCLUDES(this, mutex_);
    void answered() ORVAN_EXCLUDES(mutex_);

  private:
    bool startLoop();
    bool beginConnecting() ORVAN_EXCLUDES(mutex_);
    void connect() ORVAN_EXCLUDES(this);
    void setState(State state) ORVAN_EXCLUDES(mutex_);
    static void onConnectionState(pa_context* context, void* self);

    const std::function<void()> lost_;
    LoopHandle loop_;
    ContextHandle context_ ORVAN_GUARDED_BY(this);

    mutable Mutex mutex_;
    std::condition_variable changed_;
    State state_ ORVAN_GUARDED_BY(mutex_) = State::Apart;
    bool early_ ORVAN_GUARDED_BY(mutex_) = false; ///< nobody has waited for the connection yet
    bool answered_ ORVAN_GUARDED_BY(mutex_) = false;

    /// The last question had no answer: hold nobody up again.
    bool hangs_ ORVAN_GUARDED_BY(mutex_) = false;
};

} // namespace platform::media
