#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "movement/docking.h"
#include "movement/form_places.h"
#include "platform/system.h"
#include "toolkit/event_loop.h"

void FrmPlaylist::Form_MouseDown() {
    const docking::Place own = places::placeOf(window);
    dragStartLeft = own.x;
    dragStartTop = own.y;
    playlistDragging = true;
    platform::GetCursorPos(&modMain.dragCursorStart);
}

/// Every move starts undocked and docks again at once where it comes close.
void FrmPlaylist::Form_MouseMove() {
    if (!playlistDragging) return;
    playlistdockX = false;
    playlistdockY = false;
    platform::GetCursorPos(&modMain.dragCursorNow);
    const docking::Place raw = places::moved({dragStartLeft, dragStartTop}, modMain.dragCursorStart,
                                             modMain.dragCursorNow);
    dragLeft = raw.x;
    dragTop = raw.y;
    frmMove(dragLeft, dragTop, window);
    const docking::Contact contact =
        docking::pullTogether({dragLeft, dragTop}, raw, places::boundsOf(window),
                              places::boundsOf(modMain.frmPlayer.window));
    dragLeft = contact.place.x;
    dragTop = contact.place.y;
    playlistdockX = contact.stacked;
    playlistdockY = contact.sideBySide;
    places::move(window, {dragLeft, dragTop});
    toolkit::yieldInDrag();
}

void FrmPlaylist::Form_MouseUp() { playlistDragging = false; }

void FrmPlaylist::frmMove(runtime::Int32& X, runtime::Int32& Y, toolkit::Form& frm) {
    modMain.frmPlayer.frmMove(X, Y, frm);
}
