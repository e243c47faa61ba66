#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"

/// Every key is a pair of images at one place. The press shows the down image; the release shows
/// the key at rest and only then fires, wherever the pointer is and whatever the button.
void FrmPlayer::connectKeys() {
    pctprev.MouseDown = [this](const auto&) {
        pctprevdown.Visible(true);
        pctprev.Visible(false);
    };
    pctprev.MouseUp = [this](const auto&) {
        pctprevdown.Visible(false);
        pctprev.Visible(true);
        prevfile();
    };
    pctnext.MouseDown = [this](const auto&) {
        pctnext.Visible(false);
        pctnextdown.Visible(true);
    };
    pctnext.MouseUp = [this](const auto&) {
        pctnext.Visible(true);
        pctnextdown.Visible(false);
        nextfile();
    };
    pctstop.MouseDown = [this](const auto&) {
        pctstopdown.Visible(true);
        pctstop.Visible(false);
    };
    pctstop.MouseUp = [this](const auto&) { pctstop_MouseUp(); };
    pctopen.MouseDown = [this](const auto&) { pctopen_MouseDown(); };
    pctopen.MouseUp = [this](const auto&) { popUpOpenMenu(window); };
    pctpause.MouseDown = [this](const auto&) { pctpause_MouseDown(); };
    pctpausedown.MouseDown = [this](const auto&) { pctpausedown_MouseDown(); };
}

/// Three pairs leave the up image shown; the down image covers it.
void FrmPlayer::connectCoveredKeys() {
    pctPlay.MouseDown = [this](const auto&) { pctplaydown.Visible(true); };
    pctPlay.MouseUp = [this](const auto&) {
        pctplaydown.Visible(false);
        startfile();
    };
    pctminimise.MouseDown = [this](const auto&) { pctminimisedown.Visible(true); };
    pctminimise.MouseUp = [this](const auto&) {
        pctminimisedown.Visible(false);
        window.Hide();
    };
    pctquit.MouseDown = [this](const auto&) { pctquitdown.Visible(true); };
    pctquit.MouseUp = [this](const auto&) {
        pctquitdown.Visible(false);
        unloadmebaby();
    };
}

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
