#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace platform::media {

/// A part of an open file, read through a buffer that moves, and a small one that stays at the end,
/// where the tags are. Owns the descriptor; one thread at a time.
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

    /// The bytes from a place on that are at hand: at least `count`, up to `mostAhead`, and fewer
    /// only at the end. Good until the next call of anything; doesn't move.
    std::span<const unsigned char> look(std::int64_t position, std::size_t count);

    static constexpr std::size_t mostAhead = 8192;

  private:
    struct Buffer {
        std::unique_ptr<unsigned char[]> bytes;
        std::int64_t start = 0;
        std::size_t fill = 0;

        std::size_t from(std::int64_t place) const;
    };

    bool fill(Buffer& buffer, std::int64_t place, std::size_t size);
    std::span<const unsigned char> bytesFrom(std::int64_t place, std::size_t count);

    int descriptor_ = -1;
    std::int64_t start_ = 0;
    std::int64_t end_ = 0;
    std::int64_t at_ = 0;
    Buffer moving_;
    Buffer tail_;
};

} // namespace platform::media
