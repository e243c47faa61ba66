#pragma once

namespace pictures {

/// A bitmap and its size in pixels.
struct SizeRow {
    const char* name;
    int width;
    int height;
};

inline constexpr SizeRow sizes[] = {
    {"frmPlayer.bmp", 275, 81},
    {"frmPlaylist.bmp", 275, 82},
    {"key.bmp", 18, 16},
    {"pctprevdown.bmp", 18, 16},
    {"pctnextdown.bmp", 18, 16},
    {"pctstopdown.bmp", 18, 16},
    {"pctplaydown.bmp", 18, 16},
    {"pctopendown.bmp", 18, 16},
    {"pctpausedown.bmp", 18, 16},
    {"pctalarmdown.bmp", 18, 16},
    {"pctplaylistdown.bmp", 18, 16},
    {"pctprogressbar.bmp", 31, 9},
    {"pctprogressbardown.bmp", 31, 9},
    {"pctvolume.bmp", 9, 10},
    {"pctminimise.bmp", 9, 16},
    {"pctminimisedown.bmp", 9, 16},
    {"pctquit.bmp", 11, 20},
    {"pctquitdown.bmp", 10, 19},
    {"scrollkey.bmp", 18, 16},
    {"pctLboxUpDown.bmp", 18, 16},
    {"pctLBoxDownDown.bmp", 18, 16},
    {"pctClearAll.bmp", 50, 10},
    {"pctClear.bmp", 33, 10},
    {"pctPlsPrev.bmp", 20, 9},
    {"pctPlsPrevDown.bmp", 20, 9},
    {"pctPlsNext.bmp", 20, 9},
    {"pctPlsNextDown.bmp", 20, 9},
    {"pctPlsStop.bmp", 20, 9},
    {"pctPlsStopDown.bmp", 20, 9},
    {"pctPlsPlay.bmp", 20, 9},
    {"pctPlsPlayDown.bmp", 20, 9},
    {"pctPlsOpen.bmp", 20, 9},
    {"pctPlsOpenDown.bmp", 20, 9},
    {"pctPlsPause.bmp", 20, 9},
    {"pctPlsPauseDown.bmp", 20, 9},
};

} // namespace pictures
