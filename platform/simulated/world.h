#pragma once

#include "platform/simulated/accessibility.h"
#include "platform/simulated/desktop.h"
#include "platform/simulated/events.h"
#include "platform/simulated/files.h"
#include "platform/simulated/media.h"
#include "platform/simulated/misuse.h"
#include "platform/simulated/regions.h"
#include "platform/simulated/remote.h"
#include "platform/simulated/shell.h"
#include "platform/simulated/text.h"
#include "platform/simulated/window.h"

#include <functional>
#include <string>
#include <vector>

/// The simulated platform: a whole desktop of its own, for tests. One world at a time, built
/// afresh by `reset`, on a clock that only tests move. What no user and no program can do throws
/// std::logic_error.
///
///     reset();
///     world.media.addFile("C:\\Music\\a.mp3", 5000);
///     ... build the player ...
///     click(player, 20, 60);
///     advance(5000);
///     CHECK(world.media.commands().back() == "Close mpeg");
namespace simulated {

struct World {
    Events events;
    Desktop desktop;
    Windows windows;
    Regions regions;
    Text text;
    Media media;
    Sound sound;
    Files files;
    Menus menus;
    Dialogs dialogs;
    Messages messages;
    Tray tray;
    Remote remote;
    Reader reader;
    std::vector<std::string> notes;
    std::function<void(const std::string&)> watch; ///< runs with every note, as it happens
};

/// The world that the seam's functions act on.
extern World world;

/// Builds a fresh world; all that the last one held is gone.
void reset();

/// What happened, in order, over all subjects: "send Stop mpeg", "hide window 1001",
/// "replace C:\Orvan\x.mps", ...
inline const std::vector<std::string>& log() { return world.notes; }
inline void clearLog() { world.notes.clear(); }

/// Appends to the log.
void note(std::string what);

/// Scripted menus, dialogs and message boxes that have not been asked for yet.
std::size_t scriptsLeft();

} // namespace simulated
