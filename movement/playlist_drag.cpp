#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "movement/docking.h"
#include "movement/form_places.h"
#include "toolkit/guard.h"

void FrmPlaylist::connectDrag() {
    window.MouseDown = [this](const auto&) { Form_MouseDown(); };
    window.MouseMove = [this](const auto&) { Form_MouseMove(); };
    window.MouseUp = [this](const auto&) { playlistDragging = runtime::False16; };
}

void FrmPlaylist::Form_MouseDown() {
    dragStart = places::placeOf(window);
    playlistDragging = runtime::True16;
    platform::GetCursorPos(&shared_.dragCursorStart);
}

/// Every move starts undocked and docks again at once where it comes close.
void FrmPlaylist::Form_MouseMove() {
    if (playlistDragging == runtime::False16) return;
    playlistdockX = runtime::False16;
    playlistdockY = runtime::False16;
    platform::GetCursorPos(&shared_.dragCursorNow);
    const docking::Place raw =
        places::moved(dragStart, shared_.dragCursorStart, shared_.dragCursorNow);
    drag = raw;
    frmMove(drag.x, drag.y, window);
    const docking::Contact contact = docking::pullTogether(
        drag, raw, places::windowOf(window), places::windowOf(shared_.frmPlayer.window));
    drag = contact.place;
    if (contact.stacked) playlistdockX = runtime::True16;
    if (contact.sideBySide) playlistdockY = runtime::True16;
    places::move(window, drag);
    toolkit::yieldInDrag();
}

void FrmPlaylist::frmMove(runtime::Int32& X, runtime::Int32& Y, toolkit::Form& frm) {
    shared_.frmPlayer.frmMove(X, Y, frm);
}
