#include "playlist/playlist_keys.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "mainwindow/key_table.h"
#include "mainwindow/keys.h"
#include "movement/playlist_visibility.h"
#include "playback/Mpeg.h"
#include "playlist/scrolling.h"
#include "shell/menus.h"

namespace {

using keys::Flip;
using W = FrmPlaylist;

FrmPlayer& playerOf(FrmPlaylist& playlist) { return playlist.modMain.frmPlayer; }

/// The open key is lifted by its menu's end.
const keys::KeyRow<W> table[] = {
    {&W::pctPlsPrev, &W::pctPlsPrevDown, Flip::UpFirst, Flip::UpFirst,
     [](W& w) { playerOf(w).prevfile(); }},
    {&W::pctPlsNext, &W::pctPlsNextDown, Flip::UpFirst, Flip::UpFirst,
     [](W& w) { playerOf(w).nextfile(); }},
    {&W::pctPlsPlay, &W::pctPlsPlayDown, Flip::UpFirst, Flip::UpFirst,
     [](W& w) { playerOf(w).startfile(); }},
    {&W::pctPlsStop, &W::pctPlsStopDown, Flip::UpFirst, Flip::UpFirst,
     [](W& w) { w.pctPlsStop_MouseUp(); }},
    {&W::pctPlsOpen, &W::pctPlsOpenDown, Flip::UpFirst, Flip::None,
     [](W& w) { popUpOpenMenu(playerOf(w), w.window); }},
    {&W::pctPlaylistQuit, &W::pctPlaylistQuitDown, Flip::DownOnly, Flip::DownOnly,
     [](W& w) {
         liftPlaylistKey(playerOf(w));
         closePlaylist(w);
     }},
    {&W::pctPlaylistMini, &W::pctPlaylistMiniDown, Flip::DownOnly, Flip::DownOnly,
     [](W& w) { minimisePlaylist(w); }},
};

void connectScrollKeys(FrmPlaylist& w) {
    w.pctLBoxUpUp.MouseDown = [&w](const auto&) { w.pctLboxUpDown.Visible(true); };
    w.pctLBoxDownUp.MouseDown = [&w](const auto&) { w.pctLBoxDownDown.Visible(true); };
    w.pctLBoxUpUp.MouseUp = [&w](const auto&) {
        toolkit::ListBox& list = w.List1;
        list.TopIndex(scrolling::above(list.TopIndex().value(), list.ListCount().value()));
        w.pctLboxUpDown.Visible(false);
    };
    w.pctLBoxDownUp.MouseUp = [&w](const auto&) {
        toolkit::ListBox& list = w.List1;
        list.TopIndex(scrolling::below(list.TopIndex().value(), list.ListCount().value()));
        w.pctLBoxDownDown.Visible(false);
    };
}

} // namespace

void connectKeys(FrmPlaylist& w) {
    keys::connect<W>(w, table);
    connectScrollKeys(w);
    w.pctPlsPause.MouseDown = [&w](const auto&) { w.pctPlsPause_MouseDown(); };
    w.pctPlsPauseDown.MouseDown = [&w](const auto&) { w.pctPlsPauseDown_MouseDown(); };
    w.List1.DblClick = [&w] { playerOf(w).startfile(); };
    w.pctClear.Click = [&w] { playerOf(w).clear(); };
    w.pctClearAll.Click = [&w] { playerOf(w).clearall(); };
}

void FrmPlaylist::pctPlsStop_MouseUp() {
    FrmPlayer& player = modMain.frmPlayer;
    player.engine().StopM();
    player.lblTimenow.Visible(false);
    player.pctprogressbar.Visible(false);
    lblPlaying.Caption("");
    lblTitle.Caption("");
    // Only a stop that failed still finds the pause; after one that worked its key stays pressed.
    if (player.engine().Status() == "Paused") releasePauseKeys(player);
}

void FrmPlaylist::pctPlsPause_MouseDown() {
    if (modMain.engine->Status() != "Playing") return;
    pctPlsPause.Visible(false);
    pctPlsPauseDown.Visible(true);
    modMain.engine->PauseM();
    lblPlaying.Caption("Paused");
}

void FrmPlaylist::pctPlsPauseDown_MouseDown() {
    if (modMain.engine->Status() != "Paused") return;
    pctPlsPause.Visible(true);
    pctPlsPauseDown.Visible(false);
    modMain.engine->PlayM();
}
