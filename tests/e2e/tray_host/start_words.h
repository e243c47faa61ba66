#pragma once

#include <xcb/xcb.h>

#include <map>
#include <string>

/// Hears what programs tell all who wait for them to start.
class StartWords {
  public:
    /// Of the display that the environment names.
    StartWords();
    ~StartWords();
    StartWords(const StartWords&) = delete;
    StartWords& operator=(const StartWords&) = delete;

    /// Waits until a whole message has come since the last call, a minute at most; empty if none
    /// has.
    std::string next();

  private:
    /// The message that an event is the end of; empty for none.
    std::string messageOf(const xcb_client_message_event_t& event);

    xcb_connection_t* display_;
    std::map<xcb_window_t, std::string> begun_;
};
