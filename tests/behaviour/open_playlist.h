#pragma once

#include "tests/behaviour/player.h"

#include <string>
#include <vector>

namespace behaviour {

/// A started player with its playlist open, driven by the pointer and the keyboard.
class OpenPlaylist : public Player {
  public:
    OpenPlaylist() {
        simulated::world.desktop.workArea = {0, 0, 1024, 768};
        start();
        form.window.Left(9000);
        form.window.Top(9000);
        click(frmPlayer().pctplaylist);
    }

    /// Tracks a.mp3, b.mp3, ... of 200 seconds, nothing selected.
    void addLetters(int count) {
        std::vector<std::string> paths;
        paths.reserve(static_cast<std::size_t>(count));
        for (int n = 0; n < count; ++n)
            paths.push_back("C:\\Music\\" + std::string(1, static_cast<char>('a' + n)) + ".mp3");
        addTracks(paths);
    }

    /// The same, the first selected and playing.
    void playLetters(int count) {
        addLetters(count);
        list().ListIndex(0);
        frmPlayer().startfile();
    }

    std::string sounding() { return simulated::world.media.openPath(); }
    int selected() { return list().ListIndex().value(); }
    int firstRow() { return list().TopIndex().value(); }

    /// Presses a key, slides off the window and lets go there.
    void clickAndSlideOff(const toolkit::Control& key) {
        press(key);
        releaseFarAway();
    }

    void clickRow(int n) { simulated::click(playlistWindow(), row(n).x, row(n).y); }
    void doubleClickRow(int n, PointerButton button = PointerButton::Left) {
        simulated::doubleClick(playlistWindow(), row(n).x, row(n).y, button);
    }
    /// Turns the wheel over the list, downwards positive.
    void turnWheel(int rows) { simulated::wheelAt(playlistWindow(), row(1).x, row(1).y, rows); }

    FrmPlaylist& form = frmPlaylist();

  private:
    /// The middle of a row of the list, 0 to 2, beside the scroll keys.
    platform::Point row(int n) {
        const platform::Rect area = list().area();
        const int height = (area.bottom - area.top) / 3;
        return {area.left + 50, area.top + height * n + height / 2};
    }
};

} // namespace behaviour
