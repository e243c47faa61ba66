#pragma once

#include <string>

namespace platform {

/// Puts the process's current folder back at the end of the object. A dialog leaves its own last
/// folder in its place, and a stick that holds it couldn't be taken out.
class CurrentFolderKept {
  public:
    CurrentFolderKept();
    CurrentFolderKept(const CurrentFolderKept&) = delete;
    CurrentFolderKept& operator=(const CurrentFolderKept&) = delete;
    ~CurrentFolderKept();

  private:
    std::wstring folder_;
};

} // namespace platform
