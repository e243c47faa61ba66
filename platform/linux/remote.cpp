#include "platform/remote.h"

#include "platform/linux/media_player.h"

#include <QTimer>

#include <cstdint>
#include <utility>

namespace platform {
namespace {

/// Never destroyed: at the end of the process the message bus is gone before statics are.
MediaPlayer*& player() {
    static MediaPlayer* one = nullptr;
    return one;
}

} // namespace

void offerRemote(RemoteEvents events) {
    delete player();
    player() = new MediaPlayer(std::move(events));
    // Behind the events of the first window, which comes to the screen first.
    QTimer::singleShot(0, player(), [] { player()->appear(); });
}

void tellRemote(const RemoteState& state) {
    if (player() != nullptr) player()->tell(state);
}

void tellRemoteSeek(std::int32_t position) {
    if (player() != nullptr) player()->tellSeek(position);
}

} // namespace platform
