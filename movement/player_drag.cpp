#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "movement/docking.h"
#include "movement/form_places.h"
#include "movement/snap.h"
#include "toolkit/guard.h"

namespace {

/// The rows of the window that belong to the seek bar, in twips, both ends included.
constexpr toolkit::Twips stripTop = 510;
constexpr toolkit::Twips stripBottom = 600;

} // namespace

void FrmPlayer::connectDrag() {
    window.MouseDown = [this](const toolkit::MouseArguments& at) { Form_MouseDown(at); };
    window.MouseMove = [this](const auto&) { Form_MouseMove(); };
    window.MouseUp = [this](const auto&) { Form_MouseUp(); };
}

void FrmPlayer::Form_MouseDown(const toolkit::MouseArguments& at) {
    if (at.Y >= stripTop && at.Y <= stripBottom) return clickSeekStrip(at.X);
    dragStart = places::placeOf(window);
    playlistStart = places::placeOf(playlist().window);
    mouseHeld = runtime::True16;
    platform::GetCursorPos(&shared_.dragCursorStart);
}

/// Every move starts over from the press, so a snap never adds up and lets go by itself.
void FrmPlayer::Form_MouseMove() {
    if (mouseHeld == runtime::False16) return;
    pendingDockX = runtime::False16;
    pendingDockY = runtime::False16;
    platform::GetCursorPos(&shared_.dragCursorNow);
    const docking::Place raw =
        places::moved(dragStart, shared_.dragCursorStart, shared_.dragCursorNow);
    const docking::Place list =
        places::moved(playlistStart, shared_.dragCursorStart, shared_.dragCursorNow);
    drag = raw;
    frmMove(drag.x, drag.y, window);
    if (playlist().window.Visible()) dragWithPlaylist(raw, list);
    places::move(window, drag);
    toolkit::yieldInDrag();
}

/// A docked playlist travels along, and moves first; a free one pulls the main window to itself.
void FrmPlayer::dragWithPlaylist(const docking::Place& raw, const docking::Place& list) {
    toolkit::Form& other = playlist().window;
    const docking::Window player = places::windowOf(window);
    const docking::Window still = places::windowOf(other);
    const bool stacked = playlist().playlistdockX != runtime::False16;
    if (stacked || playlist().playlistdockY != runtime::False16) {
        const auto rule = stacked ? docking::moveStacked : docking::moveSideBySide;
        const docking::Pair pair = rule({drag, list}, player, still, shared_.workArea);
        drag = pair.player;
        places::move(other, pair.playlist);
        return;
    }
    const docking::Contact contact = docking::pullTogether(drag, raw, player, still);
    drag = contact.place;
    if (contact.stacked) pendingDockX = runtime::True16;
    if (contact.sideBySide) pendingDockY = runtime::True16;
}

/// What is pending is not cleared here: a press and release without a move repeats it.
void FrmPlayer::Form_MouseUp() {
    mouseHeld = runtime::False16;
    if (pendingDockX != runtime::False16) playlist().playlistdockX = runtime::True16;
    if (pendingDockY != runtime::False16) playlist().playlistdockY = runtime::True16;
}

void FrmPlayer::frmMove(runtime::Int32& X, runtime::Int32& Y, toolkit::Form& frm) {
    frmMoveX(X, frm);
    frmMoveY(Y, frm);
}

void FrmPlayer::frmMoveX(runtime::Int32& X, toolkit::Form& frm) {
    X = snap::horizontally(X, places::pixelsOf(frm.Width()), shared_.workArea);
}

void FrmPlayer::frmMoveY(runtime::Int32& Y, toolkit::Form& frm) {
    Y = snap::vertically(Y, places::pixelsOf(frm.Height()), shared_.workArea);
}
