#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace platform::media {

/// A part of an open file, read through one buffer. Owns the descriptor; one thread at a time.
/// A file that shrinks simply ends earlier; one that grows keeps the size it had.
class FileWindow {
  public:
    FileWindow() = default;
    FileWindow(FileWindow&& other) noexcept;
    FileWindow& operator=(FileWindow&& other) noexcept;
    ~FileWindow();

    /// Opens an ordinary file whole. 0, or the system's error number.
    int open(const std::string& hostPath);

    /// Makes the bytes from `start` to `end` (of the window as it was) the whole window.
    void narrow(std::int64_t start, std::int64_t end);

    std::int64_t size() const { return end_ - start_; }
    std::int64_t position() const { return at_ - start_; }

    /// Moves to a byte of the window; a place outside is clipped to its ends.
    void seek(std::int64_t position);

    /// Reads up to `size` bytes, fewer only at the end (or where the disk gives no more).
    std::size_t read(void* to, std::size_t size);

  private:
    std::size_t refill();

    int descriptor_ = -1;
    std::int64_t start_ = 0;
    std::int64_t end_ = 0;
    std::int64_t at_ = 0;
    std::unique_ptr<std::byte[]> buffer_;
    std::int64_t bufferStart_ = 0;
    std::size_t bufferFill_ = 0;
};

} // namespace platform::media
