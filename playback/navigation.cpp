#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "toolkit/painter.h"

#include <cmath>

void FrmPlayer::unpause() {
    if (engine().Status() != "Paused") return;
    engine().StopM();
    releasePauseImages();
}

void FrmPlayer::nextfile() {
    toolkit::ListBox& list = playlist().List1;
    unpause();
    if (list.ListCount() == 1) return startfile();
    const runtime::Int16 index = list.ListIndex();
    if (index + 1 < list.ListCount()) {
        list.ListIndex(shuffleOn == runtime::True16 ? shuffledIndex() : index + 1);
        return startfile();
    }
    // The last entry, or an empty list: what plays goes on unless repeat wraps round.
    if (index == -1 || repeatOn != runtime::True16) return;
    list.ListIndex(0);
    startfile();
}

/// A draw over all tracks, the present one included.
runtime::Int16 FrmPlayer::shuffledIndex() {
    const float draw = shared_.random.next() * static_cast<float>(trackCount.value());
    return runtime::Int16(static_cast<std::int32_t>(std::floor(draw)));
}

void FrmPlayer::prevfile() {
    toolkit::ListBox& list = playlist().List1;
    unpause();
    const runtime::Int16 index = list.ListIndex();
    if (index == -1) return;
    if (list.ListCount() == 1) return startfile();
    list.ListIndex(index == 0 ? list.ListCount() - 1 : index - 1);
    startfile();
}

namespace {

/// Flips a switch; its label's colour shows it.
void flip(runtime::Bool16& flag, toolkit::Label& label) {
    const bool on = flag == runtime::True16;
    flag = on ? runtime::False16 : runtime::True16;
    label.ForeColor(on ? toolkit::Yellow : toolkit::LightBlue);
}

} // namespace

void FrmPlayer::lblRepeat_Click() { flip(repeatOn, lblRepeat); }

void FrmPlayer::lblShuffle_Click() { flip(shuffleOn, lblShuffle); }

void FrmPlayer::mnuStop_Click() {
    if (engine().Status() == "Paused") releasePauseImages();
    engine().StopM();
    pctprogressbar.Visible(false);
}

void FrmPlayer::pctstop_MouseUp() {
    pctstopdown.Visible(false);
    pctstop.Visible(true);
    if (engine().Status() == "Paused") releasePauseImages();
    engine().StopM();
    lblTimenow.Visible(false);
    pctprogressbar.Visible(false);
    playlist().lblPlaying.Caption("");
    playlist().lblTitle.Caption("");
}

void FrmPlaylist::pctPlsStop_MouseUp() {
    FrmPlayer& player = shared_.frmPlayer;
    pctPlsStop.Visible(true);
    pctPlsStopDown.Visible(false);
    shared_.engine->StopM();
    player.lblTimenow.Visible(false);
    player.pctprogressbar.Visible(false);
    lblPlaying.Caption("");
    lblTitle.Caption("");
    // Only a stop that failed still finds the pause; after one that worked its key stays pressed.
    if (shared_.engine->Status() == "Paused") player.releasePauseImages();
}
