#pragma once

#include "platform/linux/media/file_window.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace platform::media {

/// Bytes of a file from `start` to before `end`.
struct Stretch {
    std::int64_t start = 0;
    std::int64_t end = 0;
};

/// Stretches of a file, read as if nothing stood between them. The file is another's.
class StretchedFile {
  public:
    StretchedFile(FileWindow& file, const std::vector<Stretch>& stretches);

    std::int64_t size() const { return size_; }
    std::int64_t position() const { return at_; }

    /// A place outside is clipped to the ends.
    void seek(std::int64_t position);

    /// Reads up to `size` bytes, fewer only at the end.
    std::size_t read(void* to, std::size_t size);

  private:
    struct Placed {
        std::int64_t at = 0; ///< where it stands for the reader
        Stretch stretch;
    };

    FileWindow& file_;
    std::vector<Placed> stretches_;
    std::int64_t size_ = 0;
    std::int64_t at_ = 0;
};

} // namespace platform::media
