#include "movement/player_drag.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "movement/docking.h"
#include "movement/drag_scale.h"
#include "movement/form_places.h"
#include "movement/snap.h"
#include "platform/system.h"
#include "toolkit/event_loop.h"

namespace {

/// What the rules for the two windows make of a move. `raw` is the main window's place before the
/// edges' snap and `list` the playlist's. A docked playlist travels along, and moves first; a free
/// one pulls the main window to itself.
void dragWithPlaylist(FrmPlayer& player, const docking::Place& raw, const docking::Place& list) {
    FrmPlaylist& playlist = player.playlist();
    const docking::Place wanted{player.dragLeft, player.dragTop};
    const toolkit::Bounds own = places::boundsOf(player.window);
    const toolkit::Bounds other = places::boundsOf(playlist.window);
    docking::Place place;
    if (playlist.playlistdockX || playlist.playlistdockY) {
        const bool stacked = playlist.playlistdockX;
        const auto rule = stacked ? docking::moveStacked : docking::moveSideBySide;
        docking::Pair pair = rule({wanted, list}, own, other, player.modMain.workArea);
        if (stacked)
            player.frmMoveX(pair.playlist.x, playlist.window);
        else
            player.frmMoveY(pair.playlist.y, playlist.window);
        place = pair.player;
        places::move(playlist.window, pair.playlist);
    } else {
        const docking::Contact contact = docking::pullTogether(wanted, raw, own, other);
        place = contact.place;
        player.pendingDockX = contact.stacked;
        player.pendingDockY = contact.sideBySide;
    }
    player.dragLeft = place.x;
    player.dragTop = place.y;
}

} // namespace

void beginDrag(FrmPlayer& player) {
    const docking::Place own = places::placeOf(player.window);
    player.dragStartLeft = own.x;
    player.dragStartTop = own.y;
    const docking::Place list = places::placeOf(player.playlist().window);
    player.playlistStartLeft = list.x;
    player.playlistStartTop = list.y;
    player.mouseHeld = true;
    platform::GetCursorPos(&player.modMain.dragCursorStart);
}

/// Every move starts over from the press, so a snap never adds up and lets go by itself.
void FrmPlayer::Form_MouseMove() {
    if (!mouseHeld) return;
    pendingDockX = false;
    pendingDockY = false;
    const platform::Point& from = modMain.dragCursorStart;
    platform::Point& to = modMain.dragCursorNow;
    platform::GetCursorPos(&to);
    const docking::Place raw = places::moved({dragStartLeft, dragStartTop}, from, to);
    const docking::Place list = places::moved({playlistStartLeft, playlistStartTop}, from, to);
    dragLeft = raw.x;
    dragTop = raw.y;
    frmMove(dragLeft, dragTop, window);
    if (playlist().window.Visible()) dragWithPlaylist(*this, raw, list);
    places::move(window, {dragLeft, dragTop});
    toolkit::yieldInDrag();
}

/// What is pending is not cleared here: a press and release without a move repeats it.
void FrmPlayer::Form_MouseUp() {
    mouseHeld = false;
    if (pendingDockX) playlist().playlistdockX = true;
    if (pendingDockY) playlist().playlistdockY = true;
}

void FrmPlayer::frmMove(runtime::Int32& X, runtime::Int32& Y, toolkit::Form& frm) {
    frmMoveX(X, frm);
    frmMoveY(Y, frm);
}

void FrmPlayer::frmMoveX(runtime::Int32& X, toolkit::Form& frm) {
    X = snap::horizontally(X, drags::pixelsOf(frm.Width()), modMain.workArea);
}

void FrmPlayer::frmMoveY(runtime::Int32& Y, toolkit::Form& frm) {
    Y = snap::vertically(Y, drags::pixelsOf(frm.Height()), modMain.workArea);
}
