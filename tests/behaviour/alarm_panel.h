#pragma once

#include "tests/behaviour/player.h"

namespace behaviour {

/// What shows of the alarm's panel. All of its controls must agree.
enum class Panel { AtRest, KeyHeld, Open };

inline Panel panelOf(FrmPlayer& form) {
    const bool key = form.pctalarmdown.shown();
    const bool open = form.lblTimer.shown();
    CHECK(form.pctalarm.shown() != key);
    CHECK(form.lblTimenow.shown() != open);
    CHECK(form.lblHr.shown() == open);
    CHECK(form.lblMin.shown() == open);
    CHECK(form.cmdSet.shown() == open);
    CHECK(form.lblShuffle.shown() != key);
    CHECK(form.lblRepeat.shown() != key);
    CHECK((!open || key));
    if (open) return Panel::Open;
    return key ? Panel::KeyHeld : Panel::AtRest;
}

inline void openPanel(Player& player) {
    player.click(player.frmPlayer().pctalarm);
    REQUIRE(panelOf(player.frmPlayer()) == Panel::Open);
}

/// Opens the panel and clicks its arming label.
inline void clickSet(Player& player) {
    openPanel(player);
    player.click(player.frmPlayer().cmdSet);
}

/// A started player with one track selected and its alarm armed.
inline void arm(Player& player, int hour, int minute) {
    player.start();
    player.addTracks({"C:\\Music\\a.mp3"});
    player.list().ListIndex(0);
    player.frmPlayer().alarmHour = runtime::Int16(hour);
    player.frmPlayer().alarmMinute = runtime::Int16(minute);
    clickSet(player);
}

} // namespace behaviour
