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
constexpr std::size_t tailSize = std::size_t{16} * 1024;

} // namespace

FileWindow::FileWindow(FileWindow&& other) noexcept { *this = std::move(other); }

FileWindow& FileWindow::operator=(FileWindow&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    std::swap(start_, other.start_);
    std::swap(end_, other.end_);
    std::swap(at_, other.at_);
    std::swap(moving_, other.moving_);
    std::swap(tail_, other.tail_);
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
    moving_ = {};
    tail_ = {};
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = descriptor;
    start_ = at_ = 0;
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

std::size_t FileWindow::Buffer::from(std::int64_t place) const {
    const std::int64_t offset = place - start;
    const bool inside = offset >= 0 && offset < static_cast<std::int64_t>(fill);
    return inside ? fill - static_cast<std::size_t>(offset) : 0;
}

bool FileWindow::fill(Buffer& buffer, std::int64_t place, std::size_t size) {
    if (!buffer.bytes) buffer.bytes = std::make_unique<unsigned char[]>(size);
    size = std::min(size, static_cast<std::size_t>(end_ - place));
    buffer.start = place;
    buffer.fill = 0;
    ssize_t got = 0;
    do {
        got = ::pread(descriptor_, buffer.bytes.get(), size, place);
    } while (got < 0 && errno == EINTR);
    if (got > 0) buffer.fill = static_cast<std::size_t>(got);
    return got > 0;
}

std::span<const unsigned char> FileWindow::bytesFrom(std::int64_t place, std::size_t count) {
    const auto left = static_cast<std::size_t>(std::max<std::int64_t>(0, end_ - place));
    if (left == 0) return {};
    const std::size_t wanted = std::min(count, left);
    const std::int64_t tailStart = std::max<std::int64_t>(0, end_ - std::int64_t{tailSize});
    Buffer* buffer = &moving_;
    if (moving_.from(place) < wanted) {
        const bool inTail = place >= tailStart;
        if (inTail) buffer = &tail_;
        if (buffer->from(place) < wanted) {
            const std::int64_t start = inTail ? tailStart : place;
            if (!fill(*buffer, start, inTail ? tailSize : bufferSize)) return {};
        }
    }
    const std::size_t size = std::min(buffer->from(place), left);
    return {buffer->bytes.get() + (place - buffer->start), size};
}

std::span<const unsigned char> FileWindow::look(std::int64_t position, std::size_t count) {
    if (position < 0 || position >= size()) return {};
    return bytesFrom(start_ + position, std::min(count, mostAhead));
}

std::size_t FileWindow::read(void* to, std::size_t size) {
    auto* out = static_cast<std::byte*>(to);
    std::size_t done = 0;
    while (done < size && at_ < end_) {
        const auto bytes = bytesFrom(at_, 1);
        const std::size_t count = std::min(size - done, bytes.size());
        if (count == 0) break;
        std::memcpy(out + done, bytes.data(), count);
        done += count;
        at_ += static_cast<std::int64_t>(count);
    }
    return done;
}

} // namespace platform::media
