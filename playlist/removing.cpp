#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "playlist/selection_after_removal.h"

namespace {

/// Moves the paths behind a removed entry down by one. The array keeps one empty element above the
/// tracks that are left.
void closeGap(FrmPlayer& player, runtime::Int16 removed, runtime::Int16 count) {
    player.trackPaths.resizeKeeping(count);
    for (runtime::Int16 i = removed; i < count; i += 1)
        player.trackPaths[i] = player.trackPaths[i + 1];
    player.trackPaths.resizeKeeping(count - 1);
    player.trackCount = count - 1;
}

} // namespace

void FrmPlayer::clear() {
    toolkit::ListBox& list = playlist().List1;
    if (list.ListCount() == 1) {
        trackCount = 0;
        list.Clear();
        trackPaths.reallocate(0);
    }
    const runtime::Int16 removed = list.ListIndex();
    if (removed == -1) return;
    const runtime::Int16 count = list.ListCount();
    closeGap(*this, removed, count);
    list.RemoveItem(removed);
    list.ListIndex(selectionAfterRemoval(removed.value(), count.value()));
}

void FrmPlayer::clearall() {
    trackPaths.reallocate(0);
    playlist().List1.Clear();
    trackCount = 0;
    savedTrackList.clear();
}
