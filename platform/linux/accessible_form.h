#pragma once

#include "platform/accessibility.h"

#include <QAccessibleWidget>

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

class QPushButton;

namespace platform {

class WindowWidget;

/// A window as Qt hands it to readers: its things, and behind them its push buttons, of which Qt
/// tells by itself. Made when a reader first asks for the window.
class AccessibleForm : public QAccessibleWidget {
  public:
    explicit AccessibleForm(WindowWidget& window);
    ~AccessibleForm() override;
    Q_DISABLE_COPY_MOVE(AccessibleForm)

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;

    /// The window's widget; null once it has ended.
    [[nodiscard]] WindowWidget* windowWidget() const;
    /// What the window tells; null once it has ended.
    [[nodiscard]] const AccessibleWindow* asked() const;
    /// Whether the user can reach the window.
    [[nodiscard]] bool takesInput() const;
    [[nodiscard]] bool shows(std::int32_t thing) const;
    /// Qt's object for a thing or a row; the same each time.
    QAccessibleInterface* item(AccessiblePlace place) const;

    void tell(AccessiblePlace place, AccessibleChange change);

  private:
    [[nodiscard]] std::vector<std::int32_t> shown() const;
    [[nodiscard]] QList<QPushButton*> buttons() const;
    void tellValue(AccessiblePlace place);
    void tellRows(std::int32_t list);

    mutable std::map<std::pair<std::int32_t, std::int32_t>, QAccessible::Id> items_;
    std::map<std::int32_t, std::int32_t> rowsTold_; ///< of each list
};

/// The window's object, if a reader has asked for it; null for windows that tell nothing.
AccessibleForm* accessibleFormOf(WindowWidget& window);

} // namespace platform
