#include "platform/window.h"

#include "platform/linux/accessibility.h"
#include "platform/linux/hook.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/linux/x_server.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace platform {
namespace {

struct Hook {
    WindowHandle parent;
    std::shared_ptr<std::function<void(std::int32_t)>> code;
};

struct Table {
    std::map<WindowHandle, WindowWidget*> windows; // in the order of their making
    std::map<WindowHandle, Hook> hooks;
    WindowHandle last = 0;
};

Table& table() {
    static Table all;
    return all;
}

/// While a desktop shows itself alone, no window that is shown can be seen.
void leaveShowDesktop() {
    if (x::isShowingDesktop()) x::askWindowManager(x::atom("_NET_SHOWING_DESKTOP"), x::root(), {});
}

} // namespace

WindowWidget* findWindow(WindowHandle window) {
    const auto found = table().windows.find(window);
    return found == table().windows.end() ? nullptr : found->second;
}

std::vector<WindowWidget*> allWindows() {
    std::vector<WindowWidget*> all;
    for (const auto& [handle, widget] : table().windows)
        all.push_back(widget);
    return all;
}

WindowWidget* firstWindow() {
    return table().windows.empty() ? nullptr : table().windows.begin()->second;
}

WindowHandle createWindow(const WindowOptions& options, WindowEvents events) {
    welcomeReaders();
    const WindowHandle handle = ++table().last;
    const WindowWidget* const main = options.frame == Frame::None ? firstWindow() : nullptr;
    auto* const widget = new WindowWidget(options, std::move(events));
    if (main != nullptr) widget->setBesideMain();
    table().windows.emplace(handle, widget);
    return handle;
}

void destroyWindow(WindowHandle window) {
    table().hooks.erase(window);
    WindowWidget* const widget = findWindow(window);
    if (widget == nullptr) return;
    table().windows.erase(window);
    std::erase_if(table().hooks, [&](const auto& hook) { return hook.second.parent == window; });
    widget->end();
}

void showWindow(WindowHandle window, bool visible) {
    WindowWidget* const widget = findWindow(window);
    if (widget == nullptr) return;
    if (visible)
        widget->reveal();
    else
        widget->hide();
}

bool setNormalState(WindowHandle window) {
    WindowWidget* const widget = findWindow(window);
    if (widget == nullptr) return false;
    leaveShowDesktop();
    widget->setWindowState(Qt::WindowNoState);
    widget->leaveIcon();
    return true;
}

double pictureScale(WindowHandle window) {
    const WindowWidget* const widget = findWindow(window);
    return widget == nullptr ? 1 : widget->pictureScale();
}

void requestPaint(WindowHandle window) {
    if (WindowWidget* const widget = findWindow(window)) widget->update();
}

void paintNow(WindowHandle window) {
    WindowWidget* const widget = findWindow(window);
    if (widget == nullptr || !widget->isVisible()) return;
    widget->repaint();
    x::awaitServer();
}

void setTooltip(WindowHandle window, const std::string& text) {
    if (WindowWidget* const widget = findWindow(window)) widget->setTip(text);
}

WindowHandle createHookWindow(WindowHandle parent, std::function<void(std::int32_t)> code) {
    const WindowHandle handle = ++table().last;
    auto shared = std::make_shared<std::function<void(std::int32_t)>>(std::move(code));
    table().hooks.emplace(handle, Hook{parent, std::move(shared)});
    return handle;
}

void deliverTrayCode(WindowHandle hook, std::int32_t code) {
    const auto found = table().hooks.find(hook);
    if (found == table().hooks.end()) return;
    // Held, since the hook may destroy itself.
    const auto callback = found->second.code;
    if (*callback) (*callback)(code);
}

} // namespace platform
