#include "mainwindow/keys.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "mainwindow/key_table.h"
#include "movement/playlist_visibility.h"
#include "playback/Mpeg.h"
#include "shell/menus.h"

namespace {

using keys::Flip;
using W = FrmPlayer;

/// Three keys leave the up image shown; the down image covers it.
const keys::KeyRow<W> table[] = {
    {&W::pctprev, &W::pctprevdown, Flip::DownFirst, Flip::DownFirst, [](W& p) { p.prevfile(); }},
    {&W::pctnext, &W::pctnextdown, Flip::UpFirst, Flip::UpFirst, [](W& p) { p.nextfile(); }},
    {&W::pctstop, &W::pctstopdown, Flip::DownFirst, Flip::None, [](W& p) { p.pctstop_MouseUp(); }},
    {&W::pctPlay, &W::pctplaydown, Flip::DownOnly, Flip::DownOnly, [](W& p) { p.startfile(); }},
    {&W::pctminimise, &W::pctminimisedown, Flip::DownOnly, Flip::DownOnly,
     [](W& p) { p.window.Hide(); }},
    {&W::pctquit, &W::pctquitdown, Flip::DownOnly, Flip::DownOnly, [](W& p) { p.unloadmebaby(); }},
};

} // namespace

void connectKeys(FrmPlayer& p) {
    keys::connect<W>(p, table);
    p.pctopen.MouseDown = [&p](const auto&) { p.pctopen_MouseDown(); };
    p.pctopen.MouseUp = [&p](const auto&) { p.pctopen_MouseUp(); };
    p.pctpause.MouseDown = [&p](const auto&) { p.pctpause_MouseDown(); };
    p.pctpausedown.MouseDown = [&p](const auto&) { p.pctpausedown_MouseDown(); };
    p.pctalarm.MouseDown = [&p](const auto&) { p.pctalarm_MouseDown(); };
    p.pctalarm.MouseUp = [&p](const auto&) { p.pctalarm_MouseUp(); };
    p.pctalarmdown.MouseDown = [&p](const auto&) { p.pctalarmdown_MouseDown(); };
    p.pctplaylist.MouseDown = [&p](const auto&) { p.pctplaylist_MouseDown(); };
    p.pctplaylistdown.MouseDown = [&p](const auto&) { p.pctplaylistdown_MouseDown(); };
}

void releasePauseKeys(FrmPlayer& player) {
    player.pctpausedown.Visible(false);
    player.playlist().pctPlsPause.Visible(true);
    player.playlist().pctPlsPauseDown.Visible(false);
}

void FrmPlayer::pctstop_MouseUp() {
    keys::flip(pctstop, pctstopdown, Flip::DownFirst, false);
    window.Refresh();
    if (engine().Status() == "Paused") releasePauseKeys(*this);
    engine().StopM();
    lblTimenow.Visible(false);
    pctprogressbar.Visible(false);
    playlist().lblPlaying.Caption("");
    playlist().lblTitle.Caption("");
}

void FrmPlayer::pctopen_MouseDown() { keys::flip(pctopen, pctopendown, Flip::UpFirst, true); }

void FrmPlayer::pctopen_MouseUp() { popUpOpenMenu(*this, window); }

void FrmPlayer::pctpause_MouseDown() {
    if (engine().Status() != "Playing") return;
    pctpausedown.Visible(true);
    engine().PauseM();
    playlist().lblPlaying.Caption("Paused");
}

void FrmPlayer::pctpausedown_MouseDown() {
    if (engine().Status() != "Paused") return;
    engine().PlayM();
    pctpausedown.Visible(false);
}

void FrmPlayer::pctplaylist_MouseDown() {
    keys::flip(pctplaylist, pctplaylistdown, Flip::UpFirst, true);
    showPlaylist(*this);
}

void FrmPlayer::pctplaylistdown_MouseDown() {
    liftPlaylistKey(*this);
    closePlaylist(playlist());
}
