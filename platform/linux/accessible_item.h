#pragma once

#include "platform/accessibility.h"

#include <QAccessible>

namespace platform {

class AccessibleForm;

/// A thing of a window, or a row of its list, as Qt hands it to readers. It keeps nothing: it asks
/// the window each time.
class AccessibleItem : public QAccessibleInterface,
                       public QAccessibleActionInterface,
                       public QAccessibleValueInterface,
                       public QAccessibleTextInterface {
  public:
    AccessibleItem(const AccessibleForm& form, AccessiblePlace place)
        : form_(form), place_(place) {}

    [[nodiscard]] AccessiblePlace place() const { return place_; }
    /// Tells the readers that the text is another one.
    void tellText();

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
        return {};
    }

    [[nodiscard]] QVariant currentValue() const override { return thing().number; }
    void setCurrentValue(const QVariant& value) override;
    [[nodiscard]] QVariant maximumValue() const override { return thing().highest; }
    [[nodiscard]] QVariant minimumValue() const override { return thing().lowest; }
    [[nodiscard]] QVariant minimumStepSize() const override { return thing().step; }

    // A text is read only, without a cursor and without a selection.
    void selection(int index, int* start, int* end) const override;
    [[nodiscard]] int selectionCount() const override { return 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    [[nodiscard]] int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    [[nodiscard]] QString text(int start, int end) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] QRect characterRect(int /*offset*/) const override { return rect(); }
    [[nodiscard]] int offsetAtPoint(const QPoint& /*point*/) const override { return 0; }
    void scrollToSubstring(int /*start*/, int /*end*/) override {}
    QString attributes(int offset, int* start, int* end) const override;

  private:
    /// As it is now; an empty text once the window has ended.
    [[nodiscard]] AccessibleThing thing() const;
    [[nodiscard]] bool isRow() const { return place_.row >= 0; }
    [[nodiscard]] bool hasFocus(const AccessibleThing& now) const;

    const AccessibleForm& form_;
    AccessiblePlace place_;
    QString toldText_;
};

} // namespace platform
