#include "platform/linux/media/pulse_handles.h"

#include <pulse/pulseaudio.h>

namespace platform::media {

void PulseCloser::operator()(pa_threaded_mainloop* loop) const { pa_threaded_mainloop_free(loop); }

void PulseCloser::operator()(pa_context* context) const {
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(context);
}

void PulseCloser::operator()(pa_stream* stream) const {
    pa_stream_set_state_callback(stream, nullptr, nullptr);
    pa_stream_set_write_callback(stream, nullptr, nullptr);
    pa_stream_set_started_callback(stream, nullptr, nullptr);
    pa_stream_set_moved_callback(stream, nullptr, nullptr);
    pa_stream_set_suspended_callback(stream, nullptr, nullptr);
    pa_stream_unref(stream);
}

void PulseCloser::operator()(pa_operation* question) const { pa_operation_unref(question); }

void PulseCloser::operator()(pa_proplist* words) const { pa_proplist_free(words); }

void TimerCloser::operator()(pa_time_event* timer) const { loop->time_free(timer); }

} // namespace platform::media
