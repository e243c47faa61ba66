"""Cuts a set of colours down to a small palette by splitting its boxes at their widest side."""


def widest(box):
    """The channel in which a box of colours spreads most, and how far."""
    spreads = [max(c[k] for c in box) - min(c[k] for c in box) for k in range(3)]
    channel = spreads.index(max(spreads))
    return spreads[channel], channel


def split(box):
    _, channel = widest(box)
    box = sorted(box, key=lambda colour: (colour[channel], colour))
    return box[: len(box) // 2], box[len(box) // 2 :]


def mean(box):
    return tuple((sum(c[k] for c in box) + len(box) // 2) // len(box) for k in range(3))


def reduce(colours, limit):
    """At most `limit` colours, and for each given colour the index of its stand-in."""
    boxes = [list(colours)]
    while len(boxes) < limit and any(len(box) > 1 for box in boxes):
        chosen = max(range(len(boxes)), key=lambda i: (widest(boxes[i])[0], -i))
        boxes[chosen : chosen + 1] = split(boxes[chosen])
    index_of = {colour: i for i, box in enumerate(boxes) for colour in box}
    return [mean(box) for box in boxes], index_of
