#include "playback/track_list.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"

void addTrack(FrmPlayer& player, const std::string& path, const std::string& title) {
    player.trackPaths.resizeKeeping(player.trackCount);
    player.trackPaths[player.trackCount] = path;
    player.playlist().List1.AddItem(title);
    player.trackCount += 1;
}
