#include "tests/contract/linux/shown_dialog.h"

#include <QApplication>
#include <QWidget>

namespace contract {

QWidget* shownDialog() {
    QWidget* found = nullptr;
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (widget->windowType() == Qt::Dialog && widget->isVisible()) found = widget;
    return found;
}

} // namespace contract
