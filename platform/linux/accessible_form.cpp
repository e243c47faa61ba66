#include "platform/linux/accessible_form.h"

#include "platform/linux/accessible_item.h"
#include "platform/linux/window_widget.h"

#include <QPushButton>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace platform {
namespace {

void tellReader(QAccessibleInterface* item, QAccessible::Event what) {
    QAccessibleEvent event(item, what);
    QAccessible::updateAccessibility(&event);
}

void tellState(QAccessibleInterface* item) {
    // Qt tells those that can be of interest, each as it is now.
    QAccessible::State changed;
    changed.checked = item->state().checkable;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(item, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace

AccessibleForm::AccessibleForm(WindowWidget& window)
    : QAccessibleWidget(&window, window.frame() == Frame::Dialog ? QAccessible::Dialog
                                                                 : QAccessible::Window) {
    const AccessibleWindow* const told = asked();
    if (told == nullptr) return;
    for (const std::int32_t number : told->shown())
        rowsTold_[number] = told->thing({number}).rows;
}

AccessibleForm::~AccessibleForm() {
    for (const auto& [place, id] : items_)
        QAccessible::deleteAccessibleInterface(id);
}

WindowWidget* AccessibleForm::windowWidget() const { return dynamic_cast<WindowWidget*>(object()); }

const AccessibleWindow* AccessibleForm::asked() const {
    WindowWidget* const widget = windowWidget();
    return widget == nullptr ? nullptr : widget->accessible();
}

bool AccessibleForm::takesInput() const {
    const WindowWidget* const widget = windowWidget();
    return widget != nullptr && widget->takesInput();
}

std::vector<std::int32_t> AccessibleForm::shown() const {
    const AccessibleWindow* const told = asked();
    return told == nullptr ? std::vector<std::int32_t>() : told->shown();
}

bool AccessibleForm::shows(std::int32_t thing) const {
    const std::vector<std::int32_t> all = shown();
    return std::find(all.begin(), all.end(), thing) != all.end();
}

QList<QPushButton*> AccessibleForm::buttons() const {
    return widget()->findChildren<QPushButton*>(Qt::FindDirectChildrenOnly);
}

QAccessibleInterface* AccessibleForm::item(AccessiblePlace place) const {
    const auto [known, isNew] = items_.try_emplace({place.thing, place.row}, 0);
    if (isNew)
        known->second = QAccessible::registerAccessibleInterface(new AccessibleItem(*this, place));
    return QAccessible::accessibleInterface(known->second);
}

int AccessibleForm::childCount() const {
    return static_cast<int>(shown().size()) + static_cast<int>(buttons().size());
}

QAccessibleInterface* AccessibleForm::child(int index) const {
    const std::vector<std::int32_t> things = shown();
    const int count = static_cast<int>(things.size());
    if (index < 0) return nullptr;
    if (index < count) return item({things[static_cast<std::size_t>(index)]});
    return QAccessible::queryAccessibleInterface(buttons().value(index - count));
}

int AccessibleForm::indexOfChild(const QAccessibleInterface* child) const {
    const std::vector<std::int32_t> things = shown();
    if (const auto* const own = dynamic_cast<const AccessibleItem*>(child)) {
        const auto found = std::find(things.begin(), things.end(), own->place().thing);
        return found == things.end() ? -1 : static_cast<int>(found - things.begin());
    }
    if (child == nullptr) return -1;
    const auto behind = buttons().indexOf(qobject_cast<QPushButton*>(child->object()));
    return behind < 0 ? -1 : static_cast<int>(things.size()) + static_cast<int>(behind);
}

/// What lies over other things, as the scroll keys over the list, comes behind them.
QAccessibleInterface* AccessibleForm::childAt(int x, int y) const {
    for (int index = childCount() - 1; index >= 0; --index) {
        QAccessibleInterface* const one = child(index);
        if (one != nullptr && one->rect().contains(x, y)) return one;
    }
    return nullptr;
}

QAccessibleInterface* AccessibleForm::focusChild() const {
    for (int index = 0; index < childCount(); ++index) {
        QAccessibleInterface* const one = child(index);
        if (one == nullptr || !one->state().focused) continue;
        QAccessibleInterface* const inside = one->focusChild();
        return inside != nullptr ? inside : one;
    }
    return nullptr;
}

QString AccessibleForm::text(QAccessible::Text kind) const {
    const AccessibleWindow* const told = asked();
    if (kind == QAccessible::Name && told != nullptr) return QString::fromStdString(told->name);
    return QAccessibleWidget::text(kind);
}

void AccessibleForm::tell(AccessiblePlace place, AccessibleChange change) {
    switch (change) {
    case AccessibleChange::Appeared:
        tellReader(item(place), QAccessible::ObjectCreated);
        return tellReader(item(place), QAccessible::ObjectShow);
    case AccessibleChange::Vanished:
        tellReader(item(place), QAccessible::ObjectHide);
        return tellReader(item(place), QAccessible::ObjectDestroyed);
    case AccessibleChange::Name:
        return tellReader(item(place), QAccessible::NameChanged);
    case AccessibleChange::Value:
        return tellValue(place);
    case AccessibleChange::State:
        return tellState(item(place));
    case AccessibleChange::Rows:
        return tellRows(place.thing);
    case AccessibleChange::SelectedRow:
        if (place.row < 0) return;
        tellReader(item(place), QAccessible::Selection);
        if (item(place)->state().focused) tellReader(item(place), QAccessible::Focus);
        return;
    }
}

void AccessibleForm::tellValue(AccessiblePlace place) {
    auto* const changed = dynamic_cast<AccessibleItem*>(item(place));
    if (changed == nullptr) return;
    if (changed->role() != QAccessible::Slider) return changed->tellText();
    QAccessibleValueChangeEvent event(changed, changed->currentValue());
    QAccessible::updateAccessibility(&event);
}

/// Rows are told apart by their numbers: the list grows or shrinks at its end, and those in between
/// have other names.
void AccessibleForm::tellRows(std::int32_t list) {
    const AccessibleWindow* const told = asked();
    if (told == nullptr) return;
    std::int32_t& before = rowsTold_[list];
    const std::int32_t now = told->thing({list}).rows;
    for (std::int32_t row = now; row < before; ++row) {
        const auto known = items_.find({list, row});
        if (known == items_.end()) continue;
        tellReader(QAccessible::accessibleInterface(known->second), QAccessible::ObjectDestroyed);
        QAccessible::deleteAccessibleInterface(known->second);
        items_.erase(known);
    }
    for (const auto& [place, id] : items_)
        if (place.first == list && place.second >= 0 && place.second < before)
            tellReader(QAccessible::accessibleInterface(id), QAccessible::NameChanged);
    for (std::int32_t row = before; row < now; ++row)
        tellReader(item({list, row}), QAccessible::ObjectCreated);
    before = now;
}

AccessibleForm* accessibleFormOf(WindowWidget& window) {
    return dynamic_cast<AccessibleForm*>(QAccessible::queryAccessibleInterface(&window));
}

} // namespace platform
