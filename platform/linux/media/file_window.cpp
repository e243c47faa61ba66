#include "platform/linux/media/file_window.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace platform::media {
namespace {

// Four seconds of an ordinary MP3: the disk is asked about once in that time.
constexpr std::size_t bufferSize = std::size_t{64} * 1024;

} // namespace

FileWindow::FileWindow(FileWindow&& other) noexcept { *this = std::move(other); }

FileWindow& FileWindow::operator=(FileWindow&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    std::swap(start_, other.start_);
    std::swap(end_, other.end_);
    std::swap(at_, other.at_);
    std::swap(buffer_, other.buffer_);
    std::swap(bufferStart_, other.bufferStart_);
    std::swap(bufferFill_, other.bufferFill_);
    return *this;
}

FileWindow::~FileWindow() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

int FileWindow::open(const std::string& hostPath) {
    // Without O_NONBLOCK a pipe with nobody at its other end would hold the caller here.
    const int descriptor = ::open(hostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0) return errno;
    struct stat facts {};
    if (::fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) {
        ::close(descriptor);
        return EINVAL;
    }
    buffer_ = std::make_unique<std::byte[]>(bufferSize);
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = descriptor;
    start_ = at_ = bufferStart_ = 0;
    bufferFill_ = 0;
    end_ = facts.st_size;
    return 0;
}

void FileWindow::narrow(std::int64_t start, std::int64_t end) {
    end_ = std::min(end_, start_ + end);
    start_ = std::min(end_, start_ + start);
    at_ = start_;
}

void FileWindow::seek(std::int64_t position) {
    at_ = start_ + std::clamp<std::int64_t>(position, 0, size());
}

std::size_t FileWindow::refill() {
    bufferStart_ = at_;
    bufferFill_ = 0;
    const auto wanted = std::min<std::int64_t>(bufferSize, end_ - at_);
    ssize_t got = 0;
    do {
        got = ::pread(descriptor_, buffer_.get(), static_cast<std::size_t>(wanted), at_);
    } while (got < 0 && errno == EINTR);
    if (got > 0) bufferFill_ = static_cast<std::size_t>(got);
    return bufferFill_;
}

std::size_t FileWindow::read(void* to, std::size_t size) {
    auto* out = static_cast<std::byte*>(to);
    std::size_t done = 0;
    while (done < size && at_ < end_) {
        const std::int64_t offset = at_ - bufferStart_;
        const bool inside = offset >= 0 && offset < static_cast<std::int64_t>(bufferFill_);
        if (!inside) {
            if (refill() == 0) break;
            continue;
        }
        const auto from = static_cast<std::size_t>(offset);
        const std::size_t count =
            std::min({size - done, bufferFill_ - from, static_cast<std::size_t>(end_ - at_)});
        std::memcpy(out + done, buffer_.get() + from, count);
        done += count;
        at_ += static_cast<std::int64_t>(count);
    }
    return done;
}

} // namespace platform::media
