#include "playback/track_list.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"

namespace {

void store(FrmPlayer& player, const std::string& path) {
    player.trackPaths.resizeKeeping(player.trackCount);
    player.trackPaths[player.trackCount] = path;
}

} // namespace

void addTrack(FrmPlayer& player, const std::string& path, const std::string& title) {
    store(player, path);
    player.playlist().List1.AddItem(title);
    player.trackCount += 1;
}

void addCountedTrack(FrmPlayer& player, const std::string& path, const std::string& title) {
    store(player, path);
    player.trackCount += 1;
    player.playlist().List1.AddItem(title);
}
