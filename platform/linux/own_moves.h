#pragma once

#include "platform/types.h"

#include <cstdint>
#include <deque>

namespace platform {

/// Tells the echoes of a window's own moves from moves that the window manager makes.
///
/// Each own move comes back from the window system a while later. In a fast drag the window is
/// elsewhere by then, and the echo of an older move must not count as news.
class OwnMoves {
  public:
    /// How long after a move its echo may come, in milliseconds.
    static constexpr std::int64_t EchoTime = 2000;

    /// The program places the window. `now` in milliseconds of a clock that never runs back.
    void note(Point place, std::int64_t now);

    /// The window is hidden, and what was done to it leaves no echo.
    void forget() { moves_.clear(); }

    /// Whether the window system's word of `place` only repeats a move of the program.
    [[nodiscard]] bool isEcho(Point place, std::int64_t now) const;

  private:
    struct Move {
        Point place;
        std::int64_t time;
    };
    std::deque<Move> moves_;
};

} // namespace platform
