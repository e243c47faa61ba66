#include "platform/simulated/window.h"

#include "platform/simulated/window_state.h"
#include "platform/simulated/world.h"

#include <algorithm>
#include <utility>

namespace simulated {

Window& existing(WindowHandle handle) {
    const auto found = world.windows.all.find(handle);
    if (found == world.windows.all.end())
        misuse("no window " + std::to_string(handle) + ", or it was destroyed");
    return found->second;
}

const Window& window(WindowHandle handle) { return existing(handle); }

WindowHandle windowTitled(const std::string& title) {
    WindowHandle found = 0;
    for (const auto& [handle, one] : world.windows.all) {
        if (one.options.title != title || one.trayCode) continue;
        if (found != 0) misuse("several windows are titled " + title);
        found = handle;
    }
    if (found == 0) misuse("no window is titled " + title);
    return found;
}

platform::Picture picture(WindowHandle handle) {
    const Window& shown = existing(handle);
    if (!shown.events.paint) misuse("the window paints nothing");
    return shown.events.paint();
}

void paintIfWanted(WindowHandle handle) {
    const auto found = world.windows.all.find(handle);
    if (found == world.windows.all.end() || !found->second.paintWanted) return;
    found->second.paintWanted = false;
    ++found->second.paints;
    if (found->second.events.paint) found->second.events.paint();
}

void paintWaiting() {
    std::vector<WindowHandle> waiting;
    for (auto& [handle, one] : world.windows.all)
        if (one.visible && one.paintWanted) waiting.push_back(handle);
    for (const WindowHandle handle : waiting)
        paintIfWanted(handle);
}

bool enabled(WindowHandle handle) {
    const Windows& windows = world.windows;
    const auto listed = [handle](const std::vector<WindowHandle>& disabled) {
        return std::find(disabled.begin(), disabled.end(), handle) != disabled.end();
    };
    return !listed(windows.disabled) &&
           std::none_of(windows.disabledByModal.begin(), windows.disabledByModal.end(),
                        [&](const auto& entry) { return listed(entry.second); });
}

Disabled::Disabled(const std::vector<WindowHandle>& windows)
    : before_(world.windows.disabled.size()) {
    auto& disabled = world.windows.disabled;
    disabled.insert(disabled.end(), windows.begin(), windows.end());
}

Disabled::~Disabled() { world.windows.disabled.resize(before_); }

std::vector<WindowHandle> allWindows() {
    std::vector<WindowHandle> all;
    for (const auto& [handle, one] : world.windows.all)
        if (!one.trayCode) all.push_back(handle);
    return all;
}

void changeScale(double scale) {
    world.desktop.scale = scale;
    for (auto& [handle, one] : world.windows.all)
        one.paintWanted = true;
    paintWaiting();
}

void bringToFront(WindowHandle handle) {
    std::erase(world.windows.order, handle);
    world.windows.order.push_back(handle);
}

void setVisible(WindowHandle handle, bool visible) {
    Window& changed = existing(handle);
    if (visible) bringToFront(handle);
    if (changed.visible == visible) return;
    changed.visible = visible;
    changed.paintWanted = visible;
    if (!visible) {
        std::erase(world.windows.order, handle);
        world.windows.disabledByModal.erase(handle);
    }
    note((visible ? "show window " : "hide window ") + std::to_string(handle));
}

void place(WindowHandle handle, platform::Point corner) {
    Window& moved = existing(handle);
    if (moved.position == corner) return;
    moved.position = corner;
    const auto tell = moved.events.moved; // the event may destroy the window
    if (tell) tell(corner);
}

void moveByWindowManager(WindowHandle handle, platform::Point corner) {
    if (!existing(handle).visible) misuse("a hidden window can't be moved by the user");
    place(handle, corner);
}

void minimiseByWindowManager(WindowHandle handle) {
    if (!existing(handle).visible) misuse("a hidden window can't be made an icon");
    existing(handle).minimised = true;
}

void closeByUser(WindowHandle handle) {
    const auto closing = existing(handle).events.closing;
    if (closing) closing();
    paintWaiting();
}

void clickButton(WindowHandle handle, const std::string& caption) {
    const Window& shown = existing(handle);
    if (!shown.visible) misuse("a hidden window's button can't be clicked");
    const auto found = std::find_if(shown.buttons.begin(), shown.buttons.end(),
                                    [&](const auto& one) { return one.button.caption == caption; });
    if (found == shown.buttons.end()) misuse("the window has no button " + caption);
    if (!enabled(handle)) return;
    const auto clicked = found->clicked; // it may destroy the window
    if (clicked) clicked();
    paintWaiting();
}

} // namespace simulated

namespace platform {

using simulated::existing;
using simulated::world;

Size frameSize(Frame frame) {
    if (frame != Frame::Dialog) return {0, 0};
    return {2 * simulated::SideWidth, simulated::TitleBarHeight};
}

WindowHandle createWindow(const WindowOptions& options, WindowEvents events) {
    if (options.size.width <= 0 || options.size.height <= 0) simulated::misuse("an empty window");
    const WindowHandle handle = ++world.windows.last;
    simulated::Window& made = world.windows.all[handle];
    made.options = options;
    made.events = std::move(events);
    made.position = options.position;
    made.size = options.size;
    return handle;
}

void destroyWindow(WindowHandle window) {
    if (window <= 1000 || window > world.windows.last) simulated::misuse("no such window");
    std::erase_if(world.windows.all, [&](const auto& entry) {
        return entry.first == window || entry.second.parent == window;
    });
    std::erase(world.windows.order, window);
    world.windows.disabledByModal.erase(window);
    if (world.windows.captured == window) world.windows.captured = 0;
    if (world.windows.hovered == window) world.windows.hovered = 0;
}

void showWindow(WindowHandle window, bool visible) { simulated::setVisible(window, visible); }

bool setNormalState(WindowHandle window) {
    simulated::Window& changed = existing(window);
    simulated::note("normal state of window " + std::to_string(window));
    if (world.windows.refuseNormalState) return false;
    changed.minimised = false;
    return true;
}

double pictureScale(WindowHandle window) {
    existing(window);
    return world.desktop.scale;
}

void requestPaint(WindowHandle window) { existing(window).paintWanted = true; }

void paintNow(WindowHandle window) {
    const simulated::Window& shown = existing(window);
    if (!shown.visible || !shown.paintWanted) return;
    simulated::note("paint window " + std::to_string(window));
    simulated::paintIfWanted(window);
}

void setTooltip(WindowHandle window, const std::string& text) {
    existing(window).tooltip = text;
    ++existing(window).tooltipsSet;
}

void createPushButton(WindowHandle window, const PushButton& button,
                      std::function<void()> clicked) {
    const Rect& area = button.area;
    simulated::Window& holder = existing(window);
    if (area.left < 0 || area.top < 0 || area.right > holder.size.width ||
        area.bottom > holder.size.height || area.left >= area.right || area.top >= area.bottom)
        simulated::misuse("a push button outside its window");
    holder.buttons.push_back({button, std::move(clicked)});
}

WindowHandle createHookWindow(WindowHandle parent, std::function<void(std::int32_t)> code) {
    existing(parent);
    const WindowHandle handle = ++world.windows.last;
    simulated::Window& hook = world.windows.all[handle];
    hook.parent = parent;
    hook.trayCode = std::move(code);
    return handle;
}

} // namespace platform
