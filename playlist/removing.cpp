#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "playlist/selection_after_removal.h"

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
    closeGap(removed, count);
    list.RemoveItem(removed);
    list.ListIndex(selectionAfterRemoval(removed.value(), count.value()));
}

/// Moves the paths behind a removed entry down by one. The array keeps one empty element above the
/// tracks that are left.
void FrmPlayer::closeGap(runtime::Int16 removed, runtime::Int16 count) {
    trackPaths.resizeKeeping(count);
    for (runtime::Int16 i = removed; i < count; i += 1)
        trackPaths[i] = trackPaths[i + 1];
    trackPaths.resizeKeeping(count - 1);
    trackCount = count - 1;
}

void FrmPlayer::clearall() {
    trackPaths.reallocate(0);
    playlist().List1.Clear();
    trackCount = 0;
    savedTrackList.clear();
}
