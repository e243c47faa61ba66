#pragma once

#include "tests/behaviour/player.h"

namespace behaviour {

/// A started player with its two windows where a test wants them, and a hand on the pointer.
/// Places are the windows' top left corners, in screen pixels.
class WindowPair {
  public:
    /// The playlist is open; whether the windows are docked follows from their contact.
    WindowPair(platform::Point main, platform::Point list,
               platform::Rect workArea = {0, 0, 1024, 768}) {
        simulated::world.desktop.workArea = workArea;
        player.start();
        player.frmPlayer().window.Left(static_cast<float>(15 * main.x));
        player.frmPlayer().window.Top(static_cast<float>(15 * main.y));
        player.frmPlaylist().window.Left(static_cast<float>(15 * list.x));
        player.frmPlaylist().window.Top(static_cast<float>(15 * list.y));
        open();
    }

    [[nodiscard]] platform::Point main() { return simulated::window(player.mainWindow()).position; }
    [[nodiscard]] platform::Point list() {
        return simulated::window(player.playlistWindow()).position;
    }
    [[nodiscard]] bool isOpen() { return simulated::window(player.playlistWindow()).visible; }
    [[nodiscard]] bool stacked() { return player.frmPlaylist().playlistdockX != 0; }
    [[nodiscard]] bool beside() { return player.frmPlaylist().playlistdockY != 0; }
    [[nodiscard]] bool free() { return !stacked() && !beside(); }

    void open() { player.click(player.frmPlayer().pctplaylist); }
    void closeByKey() { player.click(player.frmPlayer().pctplaylistdown); }
    void closeByQuit() { player.click(player.frmPlaylist().pctPlaylistQuit); }
    void closeByMinimise() { player.click(player.frmPlaylist().pctPlaylistMini); }

    /// Takes a window by its bare background.
    void takeMain(simulated::PointerButton button = simulated::PointerButton::Left) {
        held_ = main();
        simulated::pressAt(player.mainWindow(), gripX, gripY, button);
    }
    void takeList(simulated::PointerButton button = simulated::PointerButton::Left) {
        held_ = list();
        simulated::pressAt(player.playlistWindow(), gripX, gripY, button);
    }
    /// Moves the pointer so that the window taken would stand there if nothing pulled at it.
    static void dragTo(int x, int y) { simulated::moveToScreen(x + gripX, y + gripY); }
    /// The same, by a distance from where the window was taken.
    void dragBy(int x, int y) const { dragTo(held_.x + x, held_.y + y); }

    /// A whole drag; the place is where the pointer wants the window.
    void dragMain(int x, int y) {
        takeMain();
        dragTo(x, y);
        simulated::release();
    }
    void dragList(int x, int y) {
        takeList();
        dragTo(x, y);
        simulated::release();
    }

    Player player;

    static constexpr int gripX = 100; ///< a bare place of both windows, client pixels
    static constexpr int gripY = 6;

  private:
    platform::Point held_;
};

using platform::Point;

} // namespace behaviour

namespace platform {

inline doctest::String toString(const Point& place) {
    return doctest::toString(place.x) + ", " + doctest::toString(place.y);
}

} // namespace platform
