#include "mainwindow/alarm_panel.h"

#include "app/frmPlayer.h"
#include "mainwindow/alarm.h"
#include "platform/system.h"
#include "runtime/number_text.h"
#include "toolkit/app.h"
#include "toolkit/event_loop.h"

#include <string>

namespace {

std::string alarmText(const FrmPlayer& player) {
    return runtime::twoDigits(player.alarmHour.value()) + ":" +
           runtime::twoDigits(player.alarmMinute.value());
}

/// Steps while the label is held. The release runs inside the yield and ends the loop; the first
/// pass steps nothing, so that a press released at once adds nothing.
void holdStep(FrmPlayer& player, toolkit::Label& label, runtime::Int16& value,
              const alarms::Steps& steps) {
    label.ForeColor(toolkit::Red);
    player.mouseHeld = true;
    runtime::Int16 pass = 0;
    while (player.mouseHeld) {
        if (pass != 0) {
            value = alarms::stepped(value, steps.highest);
            const alarms::Wait wait = alarms::waitOf(pass, steps);
            platform::Sleep(wait.milliseconds);
            pass = wait.pass;
        }
        pass += 1;
        player.lblTimer.Caption(alarmText(player));
        toolkit::yieldToEvents();
    }
}

void releaseStep(FrmPlayer& player, toolkit::Label& label) {
    label.ForeColor(toolkit::Yellow);
    player.mouseHeld = false;
}

void closeAlarmKey(FrmPlayer& player) {
    player.pctalarm.Visible(true);
    player.pctalarmdown.Visible(false);
    player.lblTimenow.Visible(true);
    player.lblTimer.Visible(false);
}

void showSwitches(FrmPlayer& player) {
    player.cmdSet.Visible(false);
    player.lblShuffle.Visible(true);
    player.lblRepeat.Visible(true);
}

void arm(FrmPlayer& player) {
    // An alarm needs the tick even if nothing has ever played.
    player.Timer1.Enabled(true);
    closeAlarmKey(player);
    player.alarmTime = alarms::fractionOf(player.alarmHour, player.alarmMinute);
    player.lblHr.Visible(false);
    player.lblMin.Visible(false);
    player.lblshowtime.Caption("Timer On");
    showSwitches(player);
    player.cmdSet.Caption("Unset");
}

void disarm(FrmPlayer& player) {
    player.alarmTime = alarms::Disarmed;
    closeAlarmKey(player);
    player.lblHr.Visible(false);
    player.lblMin.Visible(false);
    player.lblshowtime.Caption("Timer Off");
    showSwitches(player);
    player.cmdSet.Caption("Set");
}

} // namespace

void FrmPlayer::pctalarm_MouseDown() {
    pctalarm.Visible(false);
    pctalarmdown.Visible(true);
    lblShuffle.Visible(false);
    lblRepeat.Visible(false);
}

void FrmPlayer::pctalarm_MouseUp() {
    lblTimer.Caption(alarmText(*this));
    lblHr.Visible(true);
    lblMin.Visible(true);
    cmdSet.Visible(true);
    lblTimenow.Visible(false);
    lblTimer.Visible(true);
}

/// Closes the panel without a decision: an armed alarm stays armed at its old time.
void FrmPlayer::pctalarmdown_MouseDown() {
    pctalarm.Visible(true);
    pctalarmdown.Visible(false);
    cmdSet.Visible(false);
    lblHr.Visible(false);
    lblMin.Visible(false);
    lblTimenow.Visible(true);
    lblTimer.Visible(false);
    lblShuffle.Visible(true);
    lblRepeat.Visible(true);
}

void FrmPlayer::lblHr_MouseDown() { holdStep(*this, lblHr, alarmHour, alarms::hourSteps); }

void FrmPlayer::lblHr_MouseUp() { releaseStep(*this, lblHr); }

void FrmPlayer::lblMin_MouseDown() { holdStep(*this, lblMin, alarmMinute, alarms::minuteSteps); }

void FrmPlayer::lblMin_MouseUp() { releaseStep(*this, lblMin); }

/// The label's own caption is the only memory of which way it acts.
void FrmPlayer::cmdSet_Click() {
    if (cmdSet.Caption() == "Set")
        arm(*this);
    else
        disarm(*this);
}

/// The caption of the arming key is left alone: after an alarm it still offers to disarm.
void testAlarm(FrmPlayer& player) {
    if (!alarms::isDue(player.alarmTime, toolkit::App::SecondsSinceMidnight())) return;
    player.startfile();
    player.alarmTime = alarms::Disarmed;
    player.lblshowtime.Caption("Timer Off");
}
