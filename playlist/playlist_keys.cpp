#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "playlist/scrolling.h"

namespace {

void pressKey(toolkit::Image& up, toolkit::Image& down) {
    up.Visible(false);
    down.Visible(true);
}

/// The key springs back before its action runs.
void releaseKey(toolkit::Image& up, toolkit::Image& down) {
    up.Visible(true);
    down.Visible(false);
}

} // namespace

void FrmPlaylist::connectKeys() {
    FrmPlayer& player = shared_.frmPlayer;
    const auto pressesOnly = [](toolkit::Image& up, toolkit::Image& down) {
        up.MouseDown = [&](const auto&) { pressKey(up, down); };
    };
    const auto fires = [&](toolkit::Image& up, toolkit::Image& down, void (FrmPlayer::*action)()) {
        pressesOnly(up, down);
        up.MouseUp = [&up, &down, &player, action](const auto&) {
            releaseKey(up, down);
            (player.*action)();
        };
    };
    fires(pctPlsPrev, pctPlsPrevDown, &FrmPlayer::prevfile);
    fires(pctPlsNext, pctPlsNextDown, &FrmPlayer::nextfile);
    fires(pctPlsPlay, pctPlsPlayDown, &FrmPlayer::startfile);
    pressesOnly(pctPlsStop, pctPlsStopDown);
    pctPlsStop.MouseUp = [this](const auto&) { pctPlsStop_MouseUp(); };
    pressesOnly(pctPlsOpen, pctPlsOpenDown);
    pctPlsOpen.MouseUp = [this, &player](const auto&) { player.popUpOpenMenu(window); };
    pctPlsPause.MouseDown = [this](const auto&) { pctPlsPause_MouseDown(); };
    pctPlsPauseDown.MouseDown = [this](const auto&) { pctPlsPauseDown_MouseDown(); };
    List1.DblClick = [&player] { player.startfile(); };
    pctClear.Click = [&player] { player.clear(); };
    pctClearAll.Click = [&player] { player.clearall(); };
}

void FrmPlaylist::connectScrollKeys() {
    pctLBoxUpUp.MouseDown = [this](const auto&) { pctLboxUpDown.Visible(true); };
    pctLBoxDownUp.MouseDown = [this](const auto&) { pctLBoxDownDown.Visible(true); };
    pctLBoxUpUp.MouseUp = [this](const auto&) {
        List1.TopIndex(scrolling::above(List1.TopIndex().value(), List1.ListCount().value()));
        pctLboxUpDown.Visible(false);
    };
    pctLBoxDownUp.MouseUp = [this](const auto&) {
        List1.TopIndex(scrolling::below(List1.TopIndex().value(), List1.ListCount().value()));
        pctLBoxDownDown.Visible(false);
    };
}

void FrmPlaylist::pctPlsPause_MouseDown() {
    if (shared_.engine->Status() != "Playing") return;
    pctPlsPause.Visible(false);
    pctPlsPauseDown.Visible(true);
    shared_.engine->PauseM();
    lblPlaying.Caption("Paused");
}

void FrmPlaylist::pctPlsPauseDown_MouseDown() {
    if (shared_.engine->Status() != "Paused") return;
    pctPlsPause.Visible(true);
    pctPlsPauseDown.Visible(false);
    shared_.engine->PlayM();
}
