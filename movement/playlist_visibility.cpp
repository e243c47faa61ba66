#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "movement/docking.h"
#include "movement/form_places.h"

void FrmPlayer::connectPlaylistKey() {
    pctplaylist.MouseDown = [this](const auto&) { pctplaylist_MouseDown(); };
    pctplaylistdown.MouseDown = [this](const auto&) { pctplaylistdown_MouseDown(); };
}

/// Exact contact decides anew whether the pair is docked; one flag is set, the other left alone.
void FrmPlayer::pctplaylist_MouseDown() {
    pctplaylist.Visible(false);
    pctplaylistdown.Visible(true);
    FrmPlaylist& list = playlist();
    list.window.Show();
    const docking::Window player = places::windowOf(window);
    const docking::Window other = places::windowOf(list.window);
    if (docking::touchStacked(player, other)) {
        list.playlistdockX = runtime::True16;
    } else if (docking::touchSideBySide(player, other)) {
        list.playlistdockY = runtime::True16;
    } else {
        list.playlistdockX = runtime::False16;
        list.playlistdockY = runtime::False16;
    }
}

void FrmPlayer::pctplaylistdown_MouseDown() {
    pctplaylist.Visible(true);
    pctplaylistdown.Visible(false);
    playlist().playlistdockX = runtime::False16;
    playlist().playlistdockY = runtime::False16;
    playlist().window.Hide();
}

void FrmPlaylist::connectTitleKeys() {
    pctPlaylistQuit.MouseDown = [this](const auto&) { pctPlaylistQuitDown.Visible(true); };
    pctPlaylistQuit.MouseUp = [this](const auto&) {
        pctPlaylistQuitDown.Visible(false);
        liftPlaylistKey();
        playlistdockX = runtime::False16;
        playlistdockY = runtime::False16;
        window.Hide();
    };
    pctPlaylistMini.MouseDown = [this](const auto&) { pctPlaylistMiniDown.Visible(true); };
    pctPlaylistMini.MouseUp = [this](const auto&) {
        pctPlaylistMiniDown.Visible(false);
        minimise();
    };
    // A session that ends closes every window, and the dock has yet to be saved.
    window.CloseWished = [this] { minimise(); };
}

/// Unlike the other two ways to hide the window, this one keeps the dock.
void FrmPlaylist::minimise() {
    liftPlaylistKey();
    window.Hide();
}

void FrmPlaylist::liftPlaylistKey() {
    shared_.frmPlayer.pctplaylist.Visible(true);
    shared_.frmPlayer.pctplaylistdown.Visible(false);
}
