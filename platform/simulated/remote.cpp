#include "platform/simulated/remote.h"

#include "platform/simulated/window.h"
#include "platform/simulated/world.h"

#include <cstdint>
#include <utility>

namespace simulated {
namespace {

/// Held: an event may end the player, and what it offered with it.
platform::RemoteEvents offeredBy(const Remote& remote) {
    if (!remote.events) misuse("the player has not let the desktop ask");
    return *remote.events;
}

} // namespace

void Remote::ask(platform::RemoteRequest request) const {
    offeredBy(*this).asked(request);
    paintWaiting();
}

void Remote::seek(std::int64_t place) const {
    offeredBy(*this).seek(place);
    paintWaiting();
}

void Remote::setVolume(double volume) const {
    offeredBy(*this).volume(volume);
    paintWaiting();
}

std::int32_t Remote::position() const { return offeredBy(*this).position(); }

} // namespace simulated

namespace platform {

using simulated::world;

void offerRemote(RemoteEvents events) {
    if (world.remote.events) simulated::misuse("the desktop may ask already");
    if (world.windows.order.empty()) simulated::misuse("no window is shown yet");
    world.remote.events = std::move(events);
}

void tellRemote(const RemoteState& state) {
    if (!world.remote.events) simulated::misuse("nothing has been offered to the desktop");
    if (state == world.remote.now())
        simulated::misuse("nothing has changed that the desktop is told");
    world.remote.told.push_back(state);
}

void tellRemoteSeek(std::int32_t position) { world.remote.jumps.push_back(position); }

} // namespace platform
