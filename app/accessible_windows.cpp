#include "app/accessible_windows.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "mainwindow/seek.h"
#include "mainwindow/slider_drags.h"
#include "mainwindow/time_text.h"
#include "mainwindow/volume.h"
#include "playback/Mpeg.h"
#include "runtime/rounding.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

namespace {

using toolkit::Accessible;
using toolkit::buttonOf;
using toolkit::keyOf;
using toolkit::latchOf;
using toolkit::switchOf;
using toolkit::textOf;

/// The whole way of a thumb, from the left edge of its lowest place.
toolkit::Bounds grooveOf(const toolkit::Control& thumb, float lowest, float travel) {
    return {lowest, thumb.Top(), travel + thumb.Width(), thumb.Height()};
}

toolkit::SliderNumbers seekNumbers(const FrmPlayer& p) {
    const double length = std::max(p.trackLengthSeconds.toDouble(), 0.0);
    const double position = std::clamp(p.trackPositionSeconds.toDouble(), 0.0, length);
    const std::string words = timeText(p.trackLengthSeconds, runtime::Fixed(position), true) +
                              " of " + timeText(p.trackLengthSeconds, p.trackLengthSeconds, true);
    return {0, length, sliders::seekStep(length), position, words};
}

/// A thumb that is dragged asks for a position with its first move, and would for another one with
/// the next.
Accessible seekBar(FrmPlayer& p) {
    Accessible slider;
    slider.role = platform::AccessibleRole::Slider;
    slider.name = "Position";
    slider.parts = {&p.pctprogressbar, &p.pctprogressbardown};
    slider.place = grooveOf(p.pctprogressbar, seek::ThumbStart, seek::ThumbTravel);
    slider.usable = [&p] { return p.engine().Status() == "Playing"; };
    slider.numbers = [&p] { return seekNumbers(p); };
    slider.dragFor = [&p](double wanted) -> toolkit::ThumbDrag {
        const toolkit::SliderNumbers now = seekNumbers(p);
        return {sliders::seekDrag(now.number, wanted, now.highest), 1};
    };
    return slider;
}

/// The first move of a drag sends the volume of the thumb's old place, the second that of the new.
Accessible volumeSlider(FrmPlayer& p) {
    Accessible slider;
    slider.role = platform::AccessibleRole::Slider;
    slider.name = "Volume";
    slider.parts = {&p.pctvolume};
    slider.place =
        grooveOf(p.pctvolume, volume::LowestLeft, volume::HighestLeft - volume::LowestLeft);
    slider.numbers = [&p]() -> toolkit::SliderNumbers {
        const double percent = sliders::WholeVolume * volume::shareOf(p.pctvolume.Left());
        const std::string words = std::to_string(runtime::roundToInt32(percent).value()) + " %";
        return {0, sliders::WholeVolume, sliders::VolumeStep, percent, words};
    };
    slider.dragFor = [&p](double wanted) -> toolkit::ThumbDrag {
        return {sliders::volumeDrag(p.pctvolume.Left(), wanted), 2};
    };
    return slider;
}

/// A click on the time has it tell the other one, played or to go.
Accessible timeOf(FrmPlayer& p) {
    Accessible time = textOf("Time", p.lblTimenow);
    time.acts = true;
    return time;
}

/// Its caption says what it would do.
Accessible setKey(FrmPlayer& p) {
    Accessible key = buttonOf("Set", p.cmdSet);
    key.caption = [&p] { return p.cmdSet.Caption(); };
    return key;
}

/// The row of the track that was opened, if it is in the list still; of several such rows the
/// selected one, if it is among them.
bool isOpened(const FrmPlayer& p, std::int32_t row) {
    const std::string& opened = p.engine().OpenedPath();
    const auto holds = [&](std::int32_t index) {
        return index >= 0 && index < p.trackCount.value() && p.trackPaths[index] == opened;
    };
    const std::int32_t selected = p.playlist().List1.ListIndex().value();
    return holds(row) && (row == selected || !holds(selected));
}

std::string noteOf(const FrmPlayer& p, std::int32_t row) {
    const std::string& status = p.engine().Status();
    return status != "Idle" && isOpened(p, row) ? status : "";
}

} // namespace

toolkit::AccessibleTable accessibleTableOf(FrmPlayer& p) {
    return {"Orvan Music Player",
            {
                textOf("Alarm state", p.lblshowtime),
                timeOf(p),
                textOf("Alarm time", p.lblTimer),
                setKey(p),
                buttonOf("Hour", p.lblHr),
                buttonOf("Minute", p.lblMin),
                switchOf("Shuffle", p.lblShuffle, [&p] { return p.shuffleOn != 0; }),
                switchOf("Repeat", p.lblRepeat, [&p] { return p.repeatOn != 0; }),
                seekBar(p),
                keyOf("Previous", p.pctprev, p.pctprevdown),
                keyOf("Next", p.pctnext, p.pctnextdown),
                keyOf("Stop", p.pctstop, p.pctstopdown),
                keyOf("Play", p.pctPlay, p.pctplaydown),
                keyOf("Open", p.pctopen, p.pctopendown),
                latchOf("Pause", p.pctpause, p.pctpausedown),
                volumeSlider(p),
                latchOf("Alarm", p.pctalarm, p.pctalarmdown),
                latchOf("Playlist", p.pctplaylist, p.pctplaylistdown),
                keyOf("Minimise", p.pctminimise, p.pctminimisedown),
                keyOf("Quit", p.pctquit, p.pctquitdown),
            },
            {}};
}

toolkit::AccessibleTable accessibleTableOf(FrmPlaylist& w) {
    const FrmPlayer& player = w.modMain.frmPlayer;
    return {"Playlist",
            {
                textOf("Status", w.lblPlaying),
                textOf("Counter", w.lblTitle),
                toolkit::listOf("Tracks", w.List1,
                                [&player](std::int32_t row) { return noteOf(player, row); }),
                keyOf("Scroll up", w.pctLBoxUpUp, w.pctLboxUpDown),
                keyOf("Scroll down", w.pctLBoxDownUp, w.pctLBoxDownDown),
                keyOf("Previous", w.pctPlsPrev, w.pctPlsPrevDown),
                keyOf("Next", w.pctPlsNext, w.pctPlsNextDown),
                keyOf("Stop", w.pctPlsStop, w.pctPlsStopDown),
                keyOf("Play", w.pctPlsPlay, w.pctPlsPlayDown),
                keyOf("Open", w.pctPlsOpen, w.pctPlsOpenDown),
                latchOf("Pause", w.pctPlsPause, w.pctPlsPauseDown),
                buttonOf("Clear", w.pctClear),
                buttonOf("Clear all", w.pctClearAll),
                keyOf("Minimise", w.pctPlaylistMini, w.pctPlaylistMiniDown),
                keyOf("Quit", w.pctPlaylistQuit, w.pctPlaylistQuitDown),
            },
            {&w.pctNone}};
}
