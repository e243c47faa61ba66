#pragma once

/// The list's view: three rows that scroll one entry a click and wrap round at both ends.
namespace scrolling {

inline constexpr int Rows = 3;

/// The first row's entry after a click on the lower key.
constexpr int below(int top, int count) {
    if (count <= Rows) return top;
    return top == count - Rows ? 0 : top + 1;
}

/// The first row's entry after a click on the upper key.
constexpr int above(int top, int count) {
    if (count <= Rows) return top;
    return top == 0 ? count - Rows : top - 1;
}

} // namespace scrolling
