#include "platform/linux/own_moves.h"

#include <algorithm>

namespace platform {

void OwnMoves::note(Point place, std::int64_t now) {
    while (!moves_.empty() && now - moves_.front().time > EchoTime)
        moves_.pop_front();
    const auto known = std::find_if(moves_.begin(), moves_.end(),
                                    [&](const Move& move) { return move.place == place; });
    if (known != moves_.end()) moves_.erase(known);
    moves_.push_back({place, now});
}

bool OwnMoves::isEcho(Point place, std::int64_t now) const {
    return std::any_of(moves_.begin(), moves_.end(), [&](const Move& move) {
        return move.place == place && now - move.time <= EchoTime;
    });
}

} // namespace platform
