#include "movement/playlist_visibility.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "movement/docking.h"
#include "movement/form_places.h"

/// One flag is set and the other left alone, unless the windows don't touch at all.
void showPlaylist(FrmPlayer& player) {
    FrmPlaylist& playlist = player.playlist();
    playlist.window.Show();
    const toolkit::Bounds own = places::boundsOf(player.window);
    const toolkit::Bounds other = places::boundsOf(playlist.window);
    if (docking::touchStacked(own, other)) {
        playlist.playlistdockX = true;
    } else if (docking::touchSideBySide(own, other)) {
        playlist.playlistdockY = true;
    } else {
        playlist.playlistdockX = false;
        playlist.playlistdockY = false;
    }
}

void closePlaylist(FrmPlaylist& playlist) {
    playlist.playlistdockX = false;
    playlist.playlistdockY = false;
    playlist.window.Hide();
}

void minimisePlaylist(FrmPlaylist& playlist) {
    liftPlaylistKey(playlist.modMain.frmPlayer);
    playlist.window.Hide();
}

void liftPlaylistKey(FrmPlayer& player) {
    player.pctplaylist.Visible(true);
    player.pctplaylistdown.Visible(false);
}
