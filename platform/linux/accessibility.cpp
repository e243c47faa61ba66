#include "platform/accessibility.h"

#include "platform/linux/accessibility.h"
#include "platform/linux/accessible_form.h"
#include "platform/linux/press_place.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"

#include <QAccessible>

#include <optional>

namespace platform {
namespace {

/// Qt asks for each of its objects that a reader comes across, with the names of its classes.
QAccessibleInterface* makeForm(const QString& /*className*/, QObject* object) {
    auto* const window = dynamic_cast<WindowWidget*>(object);
    return window != nullptr && window->tellsReaders() ? new AccessibleForm(*window) : nullptr;
}

} // namespace

void welcomeReaders() {
    static const bool installed = [] {
        QAccessible::installFactory(makeForm);
        return true;
    }();
    static_cast<void>(installed);
}

bool readerListens() { return QAccessible::isActive(); }

void tellReaders(WindowHandle window, AccessiblePlace place, AccessibleChange change) {
    WindowWidget* const widget = findWindow(window);
    if (widget == nullptr || !QAccessible::isActive()) return;
    if (AccessibleForm* const form = accessibleFormOf(*widget)) form->tell(place, change);
}

bool takesInput(WindowHandle window) {
    const WindowWidget* const widget = findWindow(window);
    return widget != nullptr && widget->takesInput();
}

void standInForPointer(std::optional<Point> place) { PressPlace::current() = place; }

} // namespace platform
