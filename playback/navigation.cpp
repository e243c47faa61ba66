#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "mainwindow/keys.h"
#include "playback/Mpeg.h"
#include "toolkit/painter.h"

#include <cmath>
#include <cstdint>

namespace {

/// A draw over all tracks, the present one included.
runtime::Int16 shuffledIndex(FrmPlayer& player) {
    const auto count = static_cast<float>(player.trackCount.value());
    return runtime::Int16(
        static_cast<std::int32_t>(std::floor(player.modMain.random.next() * count)));
}

/// Flips a switch; its label's colour shows it.
void flip(runtime::Bool16& flag, toolkit::Label& label) {
    flag = !flag;
    label.ForeColor(flag ? toolkit::LightBlue : toolkit::Yellow);
}

} // namespace

void FrmPlayer::unpause() {
    if (engine().Status() != "Paused") return;
    engine().StopM();
    releasePauseKeys(*this);
}

void FrmPlayer::nextfile() {
    toolkit::ListBox& list = playlist().List1;
    unpause();
    if (list.ListCount() == 1) return startfile();
    const runtime::Int16 index = list.ListIndex();
    if (index + 1 < list.ListCount()) {
        list.ListIndex(shuffleOn ? shuffledIndex(*this) : index + 1);
        return startfile();
    }
    // The last entry, or an empty list: what plays goes on unless repeat wraps round.
    if (index == -1 || !repeatOn) return;
    list.ListIndex(0);
    startfile();
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

void FrmPlayer::lblRepeat_Click() { flip(repeatOn, lblRepeat); }

void FrmPlayer::lblShuffle_Click() { flip(shuffleOn, lblShuffle); }

void FrmPlayer::mnuStop_Click() {
    if (engine().Status() == "Paused") releasePauseKeys(*this);
    engine().StopM();
    pctprogressbar.Visible(false);
}
