#include "tests/contract/reader.h"

#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"

#include <doctest/doctest.h>

#include <QAccessible>

#include <cstdint>
#include <string>
#include <vector>

namespace contract {
namespace {

QAccessibleInterface* windowOf(platform::WindowHandle window) {
    QAccessibleInterface* const found =
        QAccessible::queryAccessibleInterface(platform::findWindow(window));
    REQUIRE(found != nullptr);
    return found;
}

QAccessibleInterface* thingOf(platform::WindowHandle window, int thing, int row) {
    QAccessibleInterface* found = windowOf(window)->child(thing);
    REQUIRE(found != nullptr);
    if (row >= 0) found = found->child(row);
    REQUIRE(found != nullptr);
    REQUIRE(found->isValid());
    return found;
}

Read readOf(QAccessibleInterface& thing, const platform::WindowWidget& window) {
    const QPoint corner = window.mapFromGlobal(thing.rect().topLeft());
    const QAccessible::State state = thing.state();
    Read read;
    read.name = thing.text(QAccessible::Name).toStdString();
    if (const QAccessibleTextInterface* const text = thing.textInterface())
        read.value = text->text(0, text->characterCount()).toStdString();
    if (const QAccessibleValueInterface* const value = thing.valueInterface())
        read.number = value->currentValue().toDouble();
    read.description = thing.text(QAccessible::Description).toStdString();
    read.area = {corner.x(), corner.y(), corner.x() + thing.rect().width(),
                 corner.y() + thing.rect().height()};
    read.usable = !state.disabled;
    read.pressed = state.pressed;
    read.checked = state.checked;
    read.selected = state.selected;
    read.rows = thing.childCount();
    return read;
}

std::vector<Read> childrenOf(QAccessibleInterface& parent, platform::WindowHandle window) {
    std::vector<Read> read;
    for (int n = 0; n < parent.childCount(); ++n) {
        QAccessibleInterface* const child = parent.child(n);
        REQUIRE(child != nullptr);
        CHECK(child->parent() == &parent);
        CHECK(parent.indexOfChild(child) == n);
        read.push_back(readOf(*child, *platform::findWindow(window)));
    }
    return read;
}

void perform(QAccessibleInterface& thing, const QString& action) {
    REQUIRE(thing.actionInterface() != nullptr);
    REQUIRE(thing.actionInterface()->actionNames().contains(action));
    thing.actionInterface()->doAction(action);
}

} // namespace

std::string readName(platform::WindowHandle window) {
    return windowOf(window)->text(QAccessible::Name).toStdString();
}

std::vector<Read> readThings(platform::WindowHandle window) {
    return childrenOf(*windowOf(window), window);
}

std::vector<Read> readRows(platform::WindowHandle window, int thing) {
    return childrenOf(*thingOf(window, thing, -1), window);
}

int thingAt(platform::WindowHandle window, std::int32_t x, std::int32_t y) {
    const QPoint place = platform::findWindow(window)->mapToGlobal(QPoint(x, y));
    return windowOf(window)->indexOfChild(windowOf(window)->childAt(place.x(), place.y()));
}

void act(platform::WindowHandle window, int thing, int row) {
    QAccessibleInterface* const found = thingOf(window, thing, row);
    REQUIRE(found->actionInterface() != nullptr);
    perform(*found, found->actionInterface()->actionNames().first());
}

void select(platform::WindowHandle window, int list, int row) {
    perform(*thingOf(window, list, row), "Select");
}

void setNumber(platform::WindowHandle window, int slider, double number) {
    QAccessibleValueInterface* const value = thingOf(window, slider, -1)->valueInterface();
    REQUIRE(value != nullptr);
    value->setCurrentValue(number);
}

} // namespace contract
