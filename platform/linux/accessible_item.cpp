#include "platform/linux/accessible_item.h"

#include "platform/linux/accessible_form.h"
#include "platform/linux/window_widget.h"

#include <QWindow>

#include <cstdint>

namespace platform {
namespace {

QAccessible::Role roleOf(AccessibleRole role) {
    switch (role) {
    case AccessibleRole::Button:
    case AccessibleRole::ToggleButton:
        return QAccessible::Button;
    case AccessibleRole::CheckBox:
        return QAccessible::CheckBox;
    case AccessibleRole::Slider:
        return QAccessible::Slider;
    case AccessibleRole::Text:
        return QAccessible::StaticText;
    case AccessibleRole::List:
        return QAccessible::List;
    case AccessibleRole::Row:
        return QAccessible::ListItem;
    }
    return QAccessible::NoRole;
}

/// A row's second action, which Qt has no word for.
const QString& selectAction() {
    static const QString name = QStringLiteral("Select");
    return name;
}

} // namespace

AccessibleThing AccessibleItem::thing() const {
    const AccessibleWindow* const asked = form_.asked();
    return asked == nullptr ? AccessibleThing() : asked->thing(place_);
}

void AccessibleItem::tellText() {
    const QString now = text(0, characterCount());
    if (now == toldText_) return;
    QAccessibleTextUpdateEvent event(this, 0, toldText_, now);
    toldText_ = now;
    QAccessible::updateAccessibility(&event);
}

bool AccessibleItem::isValid() const {
    const AccessibleWindow* const asked = form_.asked();
    return asked != nullptr && (!isRow() || place_.row < asked->thing({place_.thing}).rows);
}

QWindow* AccessibleItem::window() const { return form_.window(); }

QAccessibleInterface* AccessibleItem::parent() const {
    if (isRow()) return form_.item({place_.thing});
    return QAccessible::queryAccessibleInterface(form_.object());
}

int AccessibleItem::childCount() const { return isRow() ? 0 : thing().rows; }

QAccessibleInterface* AccessibleItem::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    return form_.item({place_.thing, index});
}

int AccessibleItem::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const item = dynamic_cast<const AccessibleItem*>(child);
    const bool own = item != nullptr && item->isRow() && item->place_.thing == place_.thing;
    return own ? item->place_.row : -1;
}

QAccessibleInterface* AccessibleItem::childAt(int x, int y) const {
    if (!rect().contains(x, y)) return nullptr;
    const int rows = childCount();
    if (rows == 0) return nullptr;
    // They all are as high as the first.
    const QRect first = form_.item({place_.thing, 0})->rect();
    return first.height() > 0 ? child((y - first.top()) / first.height()) : nullptr;
}

QAccessibleInterface* AccessibleItem::focusChild() const {
    const AccessibleThing now = thing();
    return hasFocus(now) ? child(now.selectedRow) : nullptr;
}

QString AccessibleItem::text(QAccessible::Text kind) const {
    switch (kind) {
    case QAccessible::Name:
        return QString::fromStdString(thing().name);
    case QAccessible::Value:
        return QString::fromStdString(thing().value);
    case QAccessible::Description:
        return QString::fromStdString(thing().description);
    default:
        return {};
    }
}

QRect AccessibleItem::rect() const {
    const WindowWidget* const widget = form_.windowWidget();
    if (widget == nullptr) return {};
    const Rect area = thing().area;
    return {widget->mapToGlobal(QPoint(area.left, area.top)),
            QSize(area.right - area.left, area.bottom - area.top)};
}

QAccessible::Role AccessibleItem::role() const { return roleOf(thing().role); }

/// The list has the keyboard whenever its window has.
bool AccessibleItem::hasFocus(const AccessibleThing& now) const {
    const WindowWidget* const widget = form_.windowWidget();
    if (widget == nullptr || !widget->isActiveWindow()) return false;
    return isRow() ? now.selected : now.role == AccessibleRole::List;
}

QAccessible::State AccessibleItem::state() const {
    const AccessibleThing now = thing();
    const WindowWidget* const widget = form_.windowWidget();
    QAccessible::State state;
    state.disabled = !now.usable || !form_.takesInput();
    state.invisible = widget == nullptr || !widget->isVisible() || !form_.shows(place_.thing);
    state.offscreen = isRow() && !form_.item({place_.thing})->rect().contains(rect());
    state.readOnly = now.role == AccessibleRole::Text;
    state.pressed = now.pressed;
    state.checkable =
        now.role == AccessibleRole::ToggleButton || now.role == AccessibleRole::CheckBox;
    state.checked = now.checked || (state.checkable && now.pressed);
    state.selectable = isRow();
    state.selected = now.selected;
    state.focusable = isRow() || now.role == AccessibleRole::List;
    state.focused = hasFocus(now);
    return state;
}

void* AccessibleItem::interface_cast(QAccessible::InterfaceType type) {
    const AccessibleThing now = thing();
    if (type == QAccessible::ActionInterface && now.acts)
        return static_cast<QAccessibleActionInterface*>(this);
    if (type == QAccessible::ValueInterface && now.role == AccessibleRole::Slider)
        return static_cast<QAccessibleValueInterface*>(this);
    if (type == QAccessible::TextInterface && now.role == AccessibleRole::Text)
        return static_cast<QAccessibleTextInterface*>(this);
    return nullptr;
}

QStringList AccessibleItem::actionNames() const {
    const AccessibleThing now = thing();
    if (!now.acts) return {};
    if (isRow()) return {pressAction(), selectAction()};
    return {now.role == AccessibleRole::CheckBox ? toggleAction() : pressAction()};
}

void AccessibleItem::doAction(const QString& name) {
    const AccessibleWindow* const asked = form_.asked();
    if (asked == nullptr || !actionNames().contains(name)) return;
    (name == selectAction() ? asked->select : asked->act)(place_);
}

void AccessibleItem::setCurrentValue(const QVariant& value) {
    if (const AccessibleWindow* const asked = form_.asked())
        asked->setNumber(place_.thing, value.toDouble());
}

void AccessibleItem::selection(int /*index*/, int* start, int* end) const {
    *start = 0;
    *end = 0;
}

QString AccessibleItem::text(int start, int end) const {
    const QString whole = QString::fromStdString(thing().value);
    return whole.mid(start, end < 0 ? -1 : end - start);
}

int AccessibleItem::characterCount() const {
    return static_cast<int>(QString::fromStdString(thing().value).size());
}

QString AccessibleItem::attributes(int /*offset*/, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

} // namespace platform
