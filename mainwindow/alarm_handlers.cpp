#include "app/frmPlayer.h"
#include "mainwindow/alarm.h"
#include "platform/desktop.h"
#include "platform/system.h"
#include "runtime/number_text.h"
#include "toolkit/guard.h"

namespace {

std::string alarmText(runtime::Int16 hour, runtime::Int16 minute) {
    return runtime::twoDigits(hour.value()) + ":" + runtime::twoDigits(minute.value());
}

} // namespace

void FrmPlayer::connectAlarm() {
    pctalarm.MouseDown = [this](const auto&) { pctalarm_MouseDown(); };
    pctalarm.MouseUp = [this](const auto&) { pctalarm_MouseUp(); };
    pctalarmdown.MouseDown = [this](const auto&) { pctalarmdown_MouseDown(); };
    lblHr.MouseDown = [this](const auto&) { holdStep(lblHr, alarmHour, alarms::hourSteps); };
    lblHr.MouseUp = [this](const auto&) { releaseStep(lblHr); };
    lblMin.MouseDown = [this](const auto&) { holdStep(lblMin, alarmMinute, alarms::minuteSteps); };
    lblMin.MouseUp = [this](const auto&) { releaseStep(lblMin); };
    cmdSet.Click = [this] { cmdSet_Click(); };
}

void FrmPlayer::pctalarm_MouseDown() {
    pctalarm.Visible(false);
    pctalarmdown.Visible(true);
    lblShuffle.Visible(false);
    lblRepeat.Visible(false);
}

void FrmPlayer::pctalarm_MouseUp() {
    lblTimer.Caption(alarmText(alarmHour, alarmMinute));
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

/// Steps while the label is held. The release runs inside the yield and ends the loop; the first
/// pass steps nothing, so that a press released at once adds nothing.
void FrmPlayer::holdStep(toolkit::Label& label, runtime::Int16& value, const alarms::Steps& steps) {
    label.ForeColor(toolkit::Red);
    mouseHeld = runtime::True16;
    runtime::Int16 pass = 0;
    while (mouseHeld == runtime::True16) {
        if (pass != 0) {
            value = alarms::stepped(value, steps.highest);
            const alarms::Wait wait = alarms::waitOf(pass, steps);
            platform::Sleep(wait.milliseconds);
            pass = wait.pass;
        }
        pass += 1;
        lblTimer.Caption(alarmText(alarmHour, alarmMinute));
        toolkit::yieldToEvents();
    }
}

void FrmPlayer::releaseStep(toolkit::Label& label) {
    label.ForeColor(toolkit::Yellow);
    mouseHeld = runtime::False16;
}

/// The label's own caption is the only memory of which way it acts.
void FrmPlayer::cmdSet_Click() {
    if (cmdSet.Caption() == "Set")
        armAlarm();
    else
        disarmAlarm();
}

void FrmPlayer::armAlarm() {
    // An alarm needs the tick even if nothing has ever played.
    Timer1.Enabled(true);
    closeAlarmKey();
    alarmTime = alarms::fractionOf(alarmHour, alarmMinute);
    lblHr.Visible(false);
    lblMin.Visible(false);
    lblshowtime.Caption("Timer On");
    showSwitches();
    cmdSet.Caption("Unset");
}

void FrmPlayer::disarmAlarm() {
    alarmTime = alarms::Disarmed;
    closeAlarmKey();
    lblHr.Visible(false);
    lblMin.Visible(false);
    lblshowtime.Caption("Timer Off");
    showSwitches();
    cmdSet.Caption("Set");
}

void FrmPlayer::closeAlarmKey() {
    pctalarm.Visible(true);
    pctalarmdown.Visible(false);
    lblTimenow.Visible(true);
    lblTimer.Visible(false);
}

void FrmPlayer::showSwitches() {
    cmdSet.Visible(false);
    lblShuffle.Visible(true);
    lblRepeat.Visible(true);
}

/// The last thing in a tick. The caption of the arming key is left alone: after an alarm it still
/// offers to disarm.
void FrmPlayer::testAlarm() {
    if (!alarms::isDue(alarmTime, platform::secondsSinceMidnight())) return;
    startfile();
    alarmTime = alarms::Disarmed;
    lblshowtime.Caption("Timer Off");
}
