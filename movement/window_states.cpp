#include "movement/window_states.h"

#include "app/frmPlayer.h"
#include "runtime/errors.h"

namespace {

void makeNormal(FrmPlayer& player) { player.window.WindowState(0); }

void show(FrmPlayer& player) { player.window.Show(); }

void ignoringErrors(void (*step)(FrmPlayer&), FrmPlayer& player) {
    try {
        step(player);
    } catch (const runtime::NumberedError&) { // NOLINT(bugprone-empty-catch)
    }
}

} // namespace

void restoreWindow(FrmPlayer& player) {
    makeNormal(player);
    show(player);
}

void restoreWindowSilently(FrmPlayer& player) {
    ignoringErrors(makeNormal, player);
    ignoringErrors(show, player);
}
