#include "platform/simulated/world.h"

#include <stdexcept>
#include <utility>

namespace simulated {

World world;

void reset() {
    world = World();
    world.files.addFolder(world.desktop.applicationFolder);
}

void note(std::string what) {
    const auto watch = world.watch; // it may set another
    if (watch) watch(what);
    world.notes.push_back(std::move(what));
}

void misuse(const std::string& what) { throw std::logic_error("simulated platform: " + what); }

std::size_t scriptsLeft() {
    return world.menus.scripts.size() + world.dialogs.openScripts.size() +
           world.dialogs.folderScripts.size() + world.messages.scripts.size();
}

} // namespace simulated
