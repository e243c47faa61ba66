#include "platform/linux/input_barrier.h"

#include "platform/linux/window_widget.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>
#include <vector>

namespace platform {
namespace {

/// Those that there are, lifted ones among them.
std::vector<const InputBarrier*>& allBarriers() {
    static std::vector<const InputBarrier*> all;
    return all;
}

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::Enter:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

InputBarrier::InputBarrier(const std::vector<WindowWidget*>& barred, QWidget& front,
                           std::function<void()> lifted)
    : front_(&front), lifted_(std::move(lifted)) {
    kept_.emplace(front);
    front.installEventFilter(this);
    barAll(barred);
}

InputBarrier::InputBarrier(const std::vector<WindowWidget*>& barred) { barAll(barred); }

void InputBarrier::barAll(const std::vector<WindowWidget*>& barred) {
    allBarriers().push_back(this);
    for (WindowWidget* const window : barred) {
        bar(*window);
        for (QWidget* const button : window->findChildren<QWidget*>())
            bar(*button);
    }
}

InputBarrier::~InputBarrier() { std::erase(allBarriers(), this); }

bool InputBarrier::bars(const WindowWidget& window) {
    return std::any_of(allBarriers().begin(), allBarriers().end(), [&](const InputBarrier* one) {
        return std::find(one->barred_.begin(), one->barred_.end(), &window) != one->barred_.end();
    });
}

void InputBarrier::bar(QWidget& widget) {
    // What lies under the pointer there lights up and has its tooltip no longer.
    QEvent leave(QEvent::Leave);
    if (widget.underMouse()) QCoreApplication::sendEvent(&widget, &leave);
    widget.installEventFilter(this);
    barred_.emplace_back(&widget);
}

bool InputBarrier::eventFilter(QObject* watched, QEvent* event) {
    if (watched == front_) {
        if (event->type() == QEvent::Hide && !event->spontaneous()) lift();
        return false;
    }
    // A window that has the keyboard already isn't activated by a click.
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::MouseButtonPress)
        bringDialogsToFront();
    if (!isInput(event->type())) return false;
    event->ignore(); // Qt closes a window whose closing was accepted
    return true;
}

void InputBarrier::lift() {
    front_->removeEventFilter(this);
    for (const QPointer<QWidget>& widget : barred_)
        if (widget != nullptr) widget->removeEventFilter(this);
    barred_.clear();
    lifted_();
}

} // namespace platform
