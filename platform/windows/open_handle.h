#pragma once

#include "platform/windows/win32.h"

namespace platform {

/// A file that is closed at the end of the object.
class OpenHandle {
  public:
    explicit OpenHandle(HANDLE handle) : handle_(handle) {}
    OpenHandle(const OpenHandle&) = delete;
    OpenHandle& operator=(const OpenHandle&) = delete;
    ~OpenHandle() {
        if (isOpen()) CloseHandle(handle_);
    }

    [[nodiscard]] bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

} // namespace platform
