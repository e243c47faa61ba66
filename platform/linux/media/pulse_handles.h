#pragma once

#include <memory>

struct pa_context;
struct pa_mainloop_api;
struct pa_operation;
struct pa_proplist;
struct pa_stream;
struct pa_threaded_mainloop;
struct pa_time_event;

/// The sound server's objects, each with one owner. All but the loop are let go of with the
/// server's thread kept out.
namespace platform::media {

struct PulseCloser {
    void operator()(pa_threaded_mainloop* loop) const;
    /// Its callbacks don't come any more.
    void operator()(pa_context* context) const;
    void operator()(pa_stream* stream) const;
    /// The question goes on; only the handle goes.
    void operator()(pa_operation* question) const;
    void operator()(pa_proplist* words) const;
};

using LoopHandle = std::unique_ptr<pa_threaded_mainloop, PulseCloser>;
using ContextHandle = std::unique_ptr<pa_context, PulseCloser>;
using StreamHandle = std::unique_ptr<pa_stream, PulseCloser>;
using PropertiesHandle = std::unique_ptr<pa_proplist, PulseCloser>;
using QuestionHandle = std::unique_ptr<pa_operation, PulseCloser>;

/// A timer is given back to the loop that it runs in.
struct TimerCloser {
    pa_mainloop_api* loop = nullptr;
    void operator()(pa_time_event* timer) const;
};

using TimerHandle = std::unique_ptr<pa_time_event, TimerCloser>;

} // namespace platform::media
