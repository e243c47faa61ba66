#include "platform/simulated/window_state.h"
#include "platform/simulated/world.h"
#include "platform/window.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace simulated {
const platform::MenuItem* findEntry(const std::vector<platform::MenuItem>& items,
                                    const std::string& caption, std::int32_t id) {
    for (const platform::MenuItem& item : items) {
        if (!item.children.empty()) {
            if (const auto* below = findEntry(item.children, caption, id)) return below;
        } else if (id != 0 ? item.id == id : item.caption == caption) {
            return &item;
        }
    }
    return nullptr;
}

void Menus::choose(const std::string& caption, Action action) {
    scripts.push_back({caption, 0, std::move(action)});
}

void Menus::choose(std::int32_t id, Action action) {
    scripts.push_back({"", id, std::move(action)});
}

void Menus::dismiss(Action action) { scripts.push_back({"", 0, std::move(action)}); }

void runNextScript(std::vector<Action>& scripts) {
    if (scripts.empty()) return;
    const Action action = std::move(scripts.front());
    scripts.erase(scripts.begin());
    if (action) action();
}

void onModalWindow(std::function<void()> action) {
    world.windows.modalScripts.push_back(std::move(action));
}

} // namespace simulated

namespace platform {

using simulated::world;

void showWindowModal(WindowHandle window) {
    simulated::setVisible(window, true);
    auto others = simulated::allWindows();
    std::erase(others, window);
    world.windows.disabledByModal[window] = others;
    simulated::run();
    simulated::runNextScript(world.windows.modalScripts);
    const auto closed = [&] {
        const auto found = world.windows.all.find(window);
        return found == world.windows.all.end() || !found->second.visible;
    };
    simulated::runUntil(closed, "a modal window");
}

std::int32_t popupMenu(WindowHandle window, const std::vector<MenuItem>& items) {
    simulated::existing(window);
    world.menus.shown.push_back(items);
    simulated::note("open menu");
    simulated::run();
    if (world.menus.scripts.empty()) return 0;
    const simulated::Menus::Script script = std::move(world.menus.scripts.front());
    world.menus.scripts.erase(world.menus.scripts.begin());
    if (script.action) script.action();
    if (script.caption.empty() && script.id == 0) return 0;
    const MenuItem* picked = simulated::findEntry(items, script.caption, script.id);
    if (picked == nullptr)
        simulated::misuse("the menu has no entry " + script.caption + std::to_string(script.id));
    simulated::note("pick " + picked->caption);
    return picked->id;
}

void messageBox(const std::string& text, const std::string& title, MessageIcon icon) {
    world.messages.shown.push_back({text, title, icon});
    simulated::note("message \"" + text + '"');
    const simulated::Disabled disabled(simulated::allWindows());
    simulated::run();
    simulated::runNextScript(world.messages.scripts);
}

} // namespace platform
