#include "tests/sound/support/stalled_file.h"

#include "tests/sound/support/sound_server.h"

#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

struct Stall {
    std::mutex mutex;
    std::condition_variable changed;
    bool on = false;
    struct stat file {};
    std::int64_t fromByte = 0;
    std::chrono::milliseconds each{0}; ///< slow, if not 0, rather than stalled
    int held = 0;
    int looks = 0;
};

/// Never taken apart: a thread may still stand in it when the process ends.
Stall& stall() {
    static Stall& it = *new Stall;
    return it;
}

bool isStalled(const Stall& stall, int descriptor, std::int64_t end) {
    struct stat facts {};
    return stall.on && end > stall.fromByte && ::fstat(descriptor, &facts) == 0 &&
           facts.st_dev == stall.file.st_dev && facts.st_ino == stall.file.st_ino;
}

void holdUp(int descriptor, std::int64_t end) {
    Stall& it = stall();
    std::unique_lock lock(it.mutex);
    if (!isStalled(it, descriptor, end)) return;
    ++it.looks;
    if (it.each.count() != 0) {
        const auto slow = it.each;
        lock.unlock();
        std::this_thread::sleep_for(slow);
        return;
    }
    ++it.held;
    it.changed.wait(lock, [&] { return !isStalled(it, descriptor, end); });
    --it.held;
}

void begin(const std::string& path, std::int64_t fromByte, std::chrono::milliseconds each) {
    Stall& it = stall();
    const std::lock_guard lock(it.mutex);
    if (::stat(path.c_str(), &it.file) != 0) throw std::runtime_error("no file " + path);
    it.fromByte = fromByte;
    it.each = each;
    it.looks = 0;
    it.on = true;
}

void end() {
    const std::lock_guard lock(stall().mutex);
    stall().on = false;
    stall().changed.notify_all();
}

} // namespace

/// Stands before the system's own in the programs that are linked with this.
extern "C" ssize_t pread(int descriptor, void* to, std::size_t size, off_t at) {
    holdUp(descriptor, at + static_cast<std::int64_t>(size));
    return ::syscall(SYS_pread64, descriptor, to, size, at);
}

namespace sound_test {

SlowFile::SlowFile(const std::string& path, std::chrono::milliseconds each) {
    begin(path, 0, each);
}

SlowFile::~SlowFile() { end(); }

int SlowFile::looks() const {
    const std::lock_guard lock(stall().mutex);
    return stall().looks;
}

StalledFile::StalledFile(const std::string& path, std::int64_t fromByte) {
    begin(path, fromByte, std::chrono::milliseconds(0));
}

bool StalledFile::holdsSomebody() const {
    return waitUntil([] {
        const std::lock_guard lock(stall().mutex);
        return stall().held > 0;
    });
}

void StalledFile::answer() { end(); }

} // namespace sound_test
