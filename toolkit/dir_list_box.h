#pragma once

#include "runtime/integers.h"

#include <string>
#include <vector>

namespace toolkit {

/// A hidden worker control: the immediate sub-folders of a folder as full paths, in the order
/// of the user's language.
class DirListBox {
  public:
    /// Enters a folder; error 76 or 75, with its name, for one that can't be entered, and the old
    /// list stays.
    void Path(const std::string& folder);

    /// Error 6 above 32767.
    [[nodiscard]] runtime::Int16 ListCount() const { return runtime::Int16(folders_.size()); }
    /// Full path of a sub-folder; empty where there is none.
    [[nodiscard]] std::string List(runtime::Int16 index) const;

  private:
    std::vector<std::string> folders_;
};

} // namespace toolkit
