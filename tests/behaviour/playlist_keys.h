#pragma once

#include "tests/behaviour/player.h"

namespace behaviour {

/// A started player with its playlist open, driven by the pointer and the keyboard.
class OpenPlaylist : public Player {
  public:
    OpenPlaylist() {
        simulated::world.desktop.workArea = {0, 0, 1024, 768};
        start();
        frmPlaylist().window.Left(9000);
        frmPlaylist().window.Top(9000);
        simulated::click(mainWindow(), 255, 55);
    }

    /// Tracks a.mp3, b.mp3, ... of 200 seconds, nothing selected.
    void addLetters(int count) {
        for (int n = 0; n < count; ++n)
            addTracks(
                {("C:\\Music\\" + std::string(1, static_cast<char>('a' + n)) + ".mp3").c_str()});
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

    void press(platform::Point key) { simulated::pressAt(playlistWindow(), key.x, key.y); }
    void click(platform::Point key) { simulated::click(playlistWindow(), key.x, key.y); }
    /// Presses a key, slides off the window and lets go there.
    void clickAndSlideOff(platform::Point key) {
        press(key);
        simulated::moveToScreen(5, 5);
        simulated::release();
    }
};

/// The middle of each key of the playlist window, client pixels.
namespace keys {

inline constexpr platform::Point previous{18, 76};
inline constexpr platform::Point next{42, 76};
inline constexpr platform::Point stop{66, 76};
inline constexpr platform::Point play{90, 76};
inline constexpr platform::Point open{114, 76};
inline constexpr platform::Point pause{138, 76};
inline constexpr platform::Point remove{184, 76};
inline constexpr platform::Point removeAll{232, 76};
inline constexpr platform::Point up{264, 30};
inline constexpr platform::Point patch{264, 44};
inline constexpr platform::Point down{264, 58};

/// A row of the list, 0 to 2.
inline constexpr platform::Point row(int n) { return {60, 30 + 13 * n}; }

} // namespace keys
} // namespace behaviour
