#include "platform/simulated/regions.h"
#include "platform/simulated/window.h"
#include "platform/simulated/window_state.h"
#include "platform/simulated/world.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace simulated {
namespace {

using platform::Point;
using platform::PointerAction;
using platform::PointerEvent;

Point toScreen(WindowHandle handle, Point client) {
    const Point origin = clientOrigin(existing(handle));
    return {origin.x + client.x, origin.y + client.y};
}

bool contains(WindowHandle handle, Point screen) {
    const Point origin = clientOrigin(existing(handle));
    return inShape(handle, screen.x - origin.x, screen.y - origin.y);
}

PointerEvent eventOf(PointerAction action, PointerButton button = PointerButton::None) {
    PointerEvent event;
    event.action = action;
    event.button = button;
    return event;
}

WindowHandle windowUnder(Point screen) {
    const std::vector<WindowHandle>& order = world.windows.order;
    const auto top = std::find_if(order.rbegin(), order.rend(),
                                  [&](WindowHandle handle) { return contains(handle, screen); });
    return top == order.rend() ? 0 : *top;
}

void send(WindowHandle handle, PointerEvent event) {
    world.reader.standIn.reset();
    const auto found = world.windows.all.find(handle);
    if (found == world.windows.all.end() || !enabled(handle)) return;
    const Point origin = clientOrigin(found->second);
    event.position = {world.desktop.cursor.x - origin.x, world.desktop.cursor.y - origin.y};
    event.buttonsHeld = !world.windows.held.empty();
    world.events.idleYields = 0;
    const auto handler = found->second.events.pointer; // it may destroy the window
    if (handler) handler(event);
}

/// Tells the window that the pointer has left, once nothing holds the pointer.
void hover(WindowHandle handle) {
    const WindowHandle left = world.windows.hovered;
    if (world.windows.captured != 0 || left == handle) return;
    world.windows.hovered = handle;
    if (left != 0) send(left, eventOf(PointerAction::Leave));
}

void movePointer(Point screen) {
    world.desktop.cursor = screen;
    const WindowHandle under = windowUnder(screen);
    hover(under);
    const WindowHandle target = world.windows.captured != 0 ? world.windows.captured : under;
    if (target != 0) send(target, eventOf(PointerAction::Move));
}

/// Brings the window to where the user can press it and puts the pointer there.
void aim(WindowHandle handle, Point client) {
    if (!existing(handle).visible) misuse("the pointer can't reach a hidden window");
    const Point screen = toScreen(handle, client);
    if (!contains(handle, screen)) misuse("the place lies outside the window's shape");
    bringToFront(handle);
    world.desktop.cursor = screen;
    hover(handle);
}

void press(WindowHandle handle, Point client, PointerButton button, bool second) {
    std::vector<PointerButton>& held = world.windows.held;
    if (std::find(held.begin(), held.end(), button) != held.end())
        misuse("the button is held already");
    if (held.empty())
        aim(handle, client);
    else if (world.windows.captured != handle)
        misuse("a press while another window holds the pointer");
    else
        world.desktop.cursor = toScreen(handle, client);
    if (!enabled(handle)) {
        world.windows.ignored.push_back(button);
        return;
    }
    held.push_back(button);
    world.windows.captured = handle;
    PointerEvent event = eventOf(PointerAction::Press, button);
    event.secondPress = second;
    send(handle, event);
}

void releaseButton(PointerButton button) {
    std::vector<PointerButton>& held = world.windows.held;
    if (std::erase(world.windows.ignored, button) > 0) return;
    if (std::erase(held, button) == 0) misuse("a release without a press");
    const WindowHandle target = world.windows.captured;
    if (held.empty()) world.windows.captured = 0;
    if (target != 0) send(target, eventOf(PointerAction::Release, button));
    hover(windowUnder(world.desktop.cursor));
}

void sendKey(WindowHandle handle, const platform::KeyEvent& event) {
    const Window& target = existing(handle);
    if (!target.visible) misuse("a hidden window has no keyboard");
    if (!enabled(handle)) return;
    const auto handler = target.events.key;
    if (handler) handler(event);
    paintWaiting();
}

} // namespace

platform::Point clientOrigin(const Window& shown) {
    if (shown.options.frame != platform::Frame::Dialog) return shown.position;
    return {shown.position.x + SideWidth, shown.position.y + TitleBarHeight};
}

void moveTo(WindowHandle handle, std::int32_t x, std::int32_t y) {
    if (world.windows.captured == 0) aim(handle, {x, y});
    movePointer(toScreen(handle, {x, y}));
    paintWaiting();
}

void moveToScreen(std::int32_t x, std::int32_t y) {
    movePointer({x, y});
    paintWaiting();
}

void pressAt(WindowHandle handle, std::int32_t x, std::int32_t y, PointerButton button) {
    press(handle, {x, y}, button, false);
    paintWaiting();
}

void loseReleases() {
    world.windows.held.clear();
    world.windows.captured = 0;
}

void pressAgainAt(WindowHandle handle, std::int32_t x, std::int32_t y, PointerButton button) {
    press(handle, {x, y}, button, true);
    paintWaiting();
}

void release(PointerButton button) {
    releaseButton(button);
    paintWaiting();
}

void releaseAt(WindowHandle handle, std::int32_t x, std::int32_t y, PointerButton button) {
    const Point screen = toScreen(handle, {x, y});
    if (screen != world.desktop.cursor) movePointer(screen);
    release(button);
}

void click(WindowHandle handle, std::int32_t x, std::int32_t y, PointerButton button) {
    pressAt(handle, x, y, button);
    release(button);
}

void doubleClick(WindowHandle handle, std::int32_t x, std::int32_t y, PointerButton button) {
    click(handle, x, y, button);
    pressAgainAt(handle, x, y, button);
    release(button);
}

void wheelAt(WindowHandle handle, std::int32_t x, std::int32_t y, std::int32_t rows) {
    aim(handle, {x, y});
    PointerEvent event = eventOf(PointerAction::Wheel);
    event.wheelRows = rows;
    send(handle, event);
    paintWaiting();
}

void typeKey(WindowHandle handle, Key key) {
    sendKey(handle, {.key = key, .text = key == Key::Space ? " " : ""});
}

void typeText(WindowHandle handle, const std::string& character) {
    sendKey(handle, {.key = Key::Other, .text = character});
}

} // namespace simulated
