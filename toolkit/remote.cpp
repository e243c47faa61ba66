#include "toolkit/remote.h"

#include "toolkit/guard.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace toolkit::Remote {
namespace {

/// What is offered; the platform holds on to it, so an offer that has been withdrawn is empty.
struct Offered {
    Events events;
    std::function<State()> state;
    State told;
};

std::shared_ptr<Offered>& offered() {
    static std::shared_ptr<Offered> present;
    return present;
}

void tellChanges() {
    const State now = offered()->state();
    if (now == offered()->told) return;
    offered()->told = now;
    platform::tellRemote(now);
}

/// Calls one of the events, if the offer still stands.
template <class Event, class... Arguments>
void call(const std::weak_ptr<Offered>& offer, Event Events::*event, Arguments... arguments) {
    const std::shared_ptr<Offered> held = offer.lock();
    if (held && held->events.*event) guarded([&] { (held->events.*event)(arguments...); });
}

} // namespace

void Offer(Events events, std::function<State()> state) {
    offered() = std::make_shared<Offered>(Offered{std::move(events), std::move(state), {}});
    const std::weak_ptr<Offered> offer = offered();
    Events guardedEvents;
    guardedEvents.asked = [offer](Request request) { call(offer, &Events::asked, request); };
    guardedEvents.seek = [offer](std::int64_t place) { call(offer, &Events::seek, place); };
    guardedEvents.volume = [offer](double volume) { call(offer, &Events::volume, volume); };
    guardedEvents.position = [offer] {
        std::int32_t position = 0;
        const std::shared_ptr<Offered> held = offer.lock();
        if (held && held->events.position) guarded([&] { position = held->events.position(); });
        return position;
    };
    platform::offerRemote(std::move(guardedEvents));
    watchEvents(tellChanges);
}

void Withdraw() {
    watchEvents(nullptr);
    offered().reset();
}

void TellSeek(std::int32_t position) {
    if (offered()) platform::tellRemoteSeek(position);
}

} // namespace toolkit::Remote
