#include "platform/linux/fonts.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/window.h"

#include <QCursor>
#include <QKeyEvent>
#include <QPixmap>
#include <QPushButton>

#include <functional>
#include <utility>

namespace platform {
namespace {

QCursor cursorOf(const PointerShape& pointer) {
    const QImage image(reinterpret_cast<const uchar*>(pointer.picture.pixels.data()),
                       pointer.picture.width, pointer.picture.height,
                       qsizetype{pointer.picture.width} * 4, QImage::Format_ARGB32);
    return QCursor(QPixmap::fromImage(image), pointer.hotSpot.x, pointer.hotSpot.y);
}

/// Return and Escape click the button, as they do in the desktop's own dialogs.
class ClickingKeys : public QObject {
  public:
    explicit ClickingKeys(QPushButton& button) : QObject(&button), button_(button) {
        button.installEventFilter(this);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
            button_.click();
            return true;
        default:
            return false;
        }
    }

  private:
    QPushButton& button_;
};

} // namespace

void createPushButton(WindowHandle window, const PushButton& button,
                      std::function<void()> clicked) {
    WindowWidget* const widget = findWindow(window);
    if (widget == nullptr) return;
    auto* const made = new QPushButton(QString::fromStdString(button.caption), widget);
    const Rect& area = button.area;
    made->setGeometry(area.left, area.top, area.right - area.left, area.bottom - area.top);
    made->setFont(fontFor(button.font));
    if (!button.pointer.picture.empty()) made->setCursor(cursorOf(button.pointer));
    QObject::connect(made, &QPushButton::clicked, widget,
                     [widget, handler = std::move(clicked)] { widget->run(handler); });
    new ClickingKeys(*made);
    made->setFocus();
    made->show();
}

} // namespace platform
