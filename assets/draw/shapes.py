"""How much of a pixel a shape covers, found by counting a fine grid of points.

Shapes are told in units, pixels by their numbers at `scale` pixels to a unit.
"""

GRID = 8


def inside_rounded(px, py, left, top, right, bottom, radius):
    """Whether a point lies in a rectangle with round corners."""
    if not (left <= px <= right and top <= py <= bottom):
        return False
    dx = max(left + radius - px, px - (right - radius), 0.0)
    dy = max(top + radius - py, py - (bottom - radius), 0.0)
    return dx * dx + dy * dy <= radius * radius


def coverage(x, y, scale, test):
    """The share of pixel (x, y) whose points pass the test."""
    hits = 0
    for i in range(GRID):
        for j in range(GRID):
            hits += test((x + (i + 0.5) / GRID) / scale, (y + (j + 0.5) / GRID) / scale)
    return hits / (GRID * GRID)


def rounded(x, y, scale, left, top, right, bottom, radius):
    """The share of pixel (x, y) inside a rounded rectangle."""
    first, last = x / scale, (x + 1) / scale
    upper, lower = y / scale, (y + 1) / scale
    if first >= right or last <= left or upper >= bottom or lower <= top:
        return 0.0
    within = left <= first and last <= right and top <= upper and lower <= bottom
    beside_corners = left + radius <= first and last <= right - radius
    between_corners = top + radius <= upper and lower <= bottom - radius
    if within and (beside_corners or between_corners):
        return 1.0
    return coverage(
        x, y, scale, lambda px, py: inside_rounded(px, py, left, top, right, bottom, radius)
    )
