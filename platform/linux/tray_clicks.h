#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace platform {

/// The mouse codes of the tray icon.
enum TrayCode : std::int32_t {
    TrayLeftDown = 513,
    TrayLeftUp = 514,
    TrayLeftDoubleClick = 515,
    TrayRightDown = 516,
    TrayRightUp = 517,
    TrayMiddleDown = 519,
    TrayMiddleUp = 520,
};

/// What a tray host reports.
enum class TrayActivation { Click, DoubleClick, MiddleClick };

/// Makes mouse codes of what a tray host reports. Some hosts report a double click as a click and a
/// double click, others as two clicks: either way it becomes exactly one.
class TrayClicks {
  public:
    /// Two clicks at most `doubleClickTime` milliseconds apart are a double click.
    explicit TrayClicks(std::int64_t doubleClickTime) : doubleClickTime_(doubleClickTime) {}

    /// The codes for a report at `now`, in milliseconds of any clock that never runs back.
    std::vector<std::int32_t> codesFor(TrayActivation activation, std::int64_t now);

  private:
    [[nodiscard]] bool isRecent(std::optional<std::int64_t> time, std::int64_t now) const {
        return time.has_value() && now - *time <= doubleClickTime_;
    }

    std::int64_t doubleClickTime_;
    std::optional<std::int64_t> firstClick_;   ///< that may yet become a double click
    std::optional<std::int64_t> madeOfClicks_; ///< when two clicks last became a double click
};

} // namespace platform
