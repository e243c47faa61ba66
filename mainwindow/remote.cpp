#include "mainwindow/remote.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "mainwindow/remote_rules.h"
#include "mainwindow/seek_thumb.h"
#include "mainwindow/volume.h"
#include "mainwindow/volume_slider.h"
#include "movement/window_states.h"
#include "playback/Mpeg.h"
#include "runtime/rounding.h"
#include "runtime/text.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

namespace {

using toolkit::Remote::Request;
using toolkit::Remote::State;
using toolkit::Remote::Status;

Status statusOf(const FrmPlayer& player) {
    const std::string& status = player.engine().Status();
    if (status == "Playing") return Status::Playing;
    return status == "Paused" ? Status::Paused : Status::Stopped;
}

void play(FrmPlayer& player) {
    if (statusOf(player) != Status::Playing) player.startfile();
}

void playOrPause(FrmPlayer& player) {
    if (statusOf(player) == Status::Playing)
        player.pctpause_MouseDown();
    else
        player.startfile();
}

} // namespace

Remote::~Remote() {
    if (offered_) toolkit::Remote::Withdraw();
}

void Remote::offer() {
    offered_ = true;
    toolkit::Remote::Events events;
    events.asked = [this](Request request) { serve(request); };
    events.seek = [this](std::int64_t place) { jumpTo(player_, place); };
    events.volume = [this](double share) { slideVolume(player_, share); };
    events.position = [this] { return position(); };
    toolkit::Remote::Offer(std::move(events), [this] { return state(); });
}

void Remote::trackOpened(const std::string& path) {
    ++track_;
    title_ = runtime::fileTitleOf(path);
    lengthKnown_ = false;
}

void Remote::sought(runtime::Int32 place) {
    if (offered_) toolkit::Remote::TellSeek(place.value());
}

/// Nothing is asked of the device for it, and no window is brought back that has gone.
State Remote::state() const {
    State now;
    if (!player_.window.loaded() || !player_.playlist().window.loaded()) return now;
    now.status = statusOf(player_);
    if (now.status != Status::Stopped) {
        now.track = track_;
        now.title = title_;
        if (lengthKnown_)
            now.length = std::max(runtime::roundToInt32(player_.trackLengthSeconds * 1000).value(),
                                  std::int32_t{0});
    }
    const std::int32_t index = player_.playlist().List1.ListIndex().value();
    now.hasNext = remote::hasNext(index, player_.trackCount.value(), player_.repeatOn);
    now.hasPrevious = remote::hasPrevious(index);
    now.volume = volume::shareOf(player_.pctvolume.Left());
    return now;
}

void Remote::serve(Request request) {
    switch (request) {
    case Request::Play:
        return play(player_);
    case Request::Pause:
        return player_.pctpause_MouseDown();
    case Request::PlayOrPause:
        return playOrPause(player_);
    case Request::Stop:
        return player_.mnuStop_Click();
    case Request::Next:
        return player_.nextfile();
    case Request::Previous:
        return player_.prevfile();
    case Request::Raise:
        return restoreWindowSilently(player_);
    case Request::Quit:
        player_.unloadmebaby();
    }
}

std::int32_t Remote::position() const {
    if (statusOf(player_) == Status::Stopped) return 0;
    return std::max(player_.engine().CurrentPosition().value(), std::int32_t{0});
}
