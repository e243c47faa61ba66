#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

struct pa_context;
struct pa_operation;
struct pa_threaded_mainloop;

namespace platform::media {

/// The connection to the sound server, made at the first need and kept. The server's own thread
/// serves it. Lives as long as the process.
class Server {
  public:
    enum class State { Apart, Connecting, Ready };

    /// Keeps the server's thread out while it lives. Nothing may wait inside one.
    class Lock {
      public:
        explicit Lock(pa_threaded_mainloop* loop);
        ~Lock();
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

      private:
        pa_threaded_mainloop* loop_;
    };

    /// `lost` is called, locked, on the server's thread when the connection breaks.
    explicit Server(std::function<void()> lost);

    /// Connects at need, and waits for that no longer than `limit`. Interface thread.
    bool reach(std::chrono::milliseconds limit);

    /// Whether commands can be sent right now. Any thread.
    bool ready() const;

    Lock lock() const { return Lock(loop_); }
    bool hasLoop() const { return loop_ != nullptr; }
    pa_threaded_mainloop* loop() const { return loop_; }

    /// The connection; only while `ready`, and locked.
    pa_context* context() const { return context_; }

    /// Sends one question and waits for its answer, no longer than `limit`. `ask` starts it,
    /// locked; its callback has to call `answered` as its last act. False without an answer, and
    /// then the callback will not come any more. Interface thread, not locked.
    bool ask(const std::function<pa_operation*()>& ask, std::chrono::milliseconds limit);
    void answered();

  private:
    bool startLoop();
    void connect();
    void setState(State state);
    static void onConnectionState(pa_context* context, void* self);

    const std::function<void()> lost_;
    pa_threaded_mainloop* loop_ = nullptr;
    pa_context* context_ = nullptr;

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    State state_ = State::Apart; // guarded by mutex_
    bool answered_ = false;      // guarded by mutex_
    bool hangs_ = false;         ///< the last question had no answer: hold nobody up again
};

} // namespace platform::media
