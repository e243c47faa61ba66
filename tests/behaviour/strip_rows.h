#pragma once

/// Pixel rows of the main window at the seek strip. A press in the strip seeks; in the rows beside
/// it, as on any bare place, it drags the window.
namespace behaviour::strip {

inline constexpr int RowAbove = 33;
inline constexpr int FirstRow = 34;
inline constexpr int MiddleRow = 37;
inline constexpr int LastRow = 40;
inline constexpr int RowBelow = 41;

} // namespace behaviour::strip
