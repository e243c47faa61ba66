"""How much of a pixel a rounded shape covers, found by counting a fine grid of points."""

GRID = 8


def inside_rounded(px, py, left, top, right, bottom, radius):
    """Whether a point lies in a rectangle with round corners."""
    if not (left <= px <= right and top <= py <= bottom):
        return False
    dx = max(left + radius - px, px - (right - radius), 0.0)
    dy = max(top + radius - py, py - (bottom - radius), 0.0)
    return dx * dx + dy * dy <= radius * radius


def coverage(x, y, test):
    """The share of pixel (x, y) whose points pass the test."""
    hits = 0
    for i in range(GRID):
        for j in range(GRID):
            hits += test(x + (i + 0.5) / GRID, y + (j + 0.5) / GRID)
    return hits / (GRID * GRID)


def rounded(x, y, left, top, right, bottom, radius):
    """The share of pixel (x, y) inside a rounded rectangle."""
    return coverage(
        x, y, lambda px, py: inside_rounded(px, py, left, top, right, bottom, radius)
    )
