#include "platform/simulated/shell.h"

#include "platform/simulated/window_state.h"
#include "platform/simulated/world.h"

#include <utility>

namespace simulated {
namespace {

const platform::MenuItem* find(const std::vector<platform::MenuItem>& items,
                               const Menus::Script& wanted) {
    for (const platform::MenuItem& item : items) {
        if (!item.children.empty()) {
            if (const platform::MenuItem* below = find(item.children, wanted)) return below;
        } else if (wanted.id != 0 ? item.id == wanted.id : item.caption == wanted.caption) {
            return &item;
        }
    }
    return nullptr;
}

} // namespace

void Menus::choose(const std::string& caption, Action action) {
    scripts.push_back({caption, 0, std::move(action)});
}

void Menus::choose(std::int32_t id, Action action) {
    scripts.push_back({"", id, std::move(action)});
}

void Menus::dismiss(Action action) { scripts.push_back({"", 0, std::move(action)}); }

void Tray::send(std::int32_t code) const {
    constexpr std::uint32_t wantsMessages = 1;
    if (!icon) misuse("there is no tray icon");
    if ((icon->uFlags & wantsMessages) == 0) return;
    const auto tell = existing(icon->hWnd).trayCode;
    if (!tell) misuse("the tray icon's window is no hook window");
    tell(code);
    paintWaiting();
}

void Tray::clickLeft() const {
    send(513);
    send(514);
}

void Tray::doubleClick() const {
    clickLeft();
    send(515);
    send(514);
}

void Tray::clickRight() const {
    send(516);
    send(517);
}

void runNextScript(std::vector<Action>& scripts) {
    if (scripts.empty()) return;
    const Action action = std::move(scripts.front());
    scripts.erase(scripts.begin());
    if (action) action();
}

} // namespace simulated

namespace platform {

using simulated::world;

void setApplicationIcon(const std::vector<Picture>&) {}

std::int32_t applicationIcon() { return 1; }

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
    const MenuItem* picked = simulated::find(items, script);
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

bool Shell_NotifyIconA(std::uint32_t message, NOTIFYICONDATA* record) {
    world.tray.calls.push_back({message, *record});
    simulated::note("tray " + std::to_string(message));
    simulated::existing(record->hWnd);
    const bool adds = message == NIM_ADD;
    if (!world.tray.present || message > NIM_DELETE || adds == world.tray.icon.has_value())
        return false;
    if (message == NIM_DELETE)
        world.tray.icon.reset();
    else
        world.tray.icon = *record;
    return true;
}

} // namespace platform
