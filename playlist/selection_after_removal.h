#pragma once

/// The entry to select after the entry at `removed` of `count` entries is gone: the one that
/// followed it, at the same index; after the last entry, the first.
constexpr int selectionAfterRemoval(int removed, int count) {
    return removed + 1 < count ? removed : 0;
}
