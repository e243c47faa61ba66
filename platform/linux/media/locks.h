#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

/// Which lock guards which data, in a form that a compiler can check: clang does, under
/// -Wthread-safety; to others these words are nothing.
#ifdef __clang__
#define ORVAN_THREAD_ATTRIBUTE(word) __attribute__((word))
#else
#define ORVAN_THREAD_ATTRIBUTE(word)
#endif

#define ORVAN_CAPABILITY(name) ORVAN_THREAD_ATTRIBUTE(capability(name))
#define ORVAN_SCOPED_CAPABILITY ORVAN_THREAD_ATTRIBUTE(scoped_lockable)
#define ORVAN_GUARDED_BY(lock) ORVAN_THREAD_ATTRIBUTE(guarded_by(lock))
#define ORVAN_REQUIRES(...) ORVAN_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
#define ORVAN_EXCLUDES(...) ORVAN_THREAD_ATTRIBUTE(locks_excluded(__VA_ARGS__))
#define ORVAN_ACQUIRE(...) ORVAN_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define ORVAN_RELEASE(...) ORVAN_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))
#define ORVAN_ASSERT_HELD(...) ORVAN_THREAD_ATTRIBUTE(assert_capability(__VA_ARGS__))

namespace platform::media {

/// A mutex that data can be said to be guarded by.
class ORVAN_CAPABILITY("mutex") Mutex {
  private:
    friend class MutexLock;
    std::mutex mutex_;
};

/// Holds a mutex while it lives.
class ORVAN_SCOPED_CAPABILITY MutexLock {
  public:
    explicit MutexLock(Mutex& mutex) ORVAN_ACQUIRE(mutex) : lock_(mutex.mutex_) {}
    ~MutexLock() ORVAN_RELEASE() = default;
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

    /// Lets go of the mutex until the condition holds; looks again at each notice.
    template <class Condition>
    void wait(std::condition_variable& notice, const Condition& condition) {
        notice.wait(lock_, condition);
    }

    /// The same, no longer than `limit`. Whether the condition holds.
    template <class Condition>
    bool waitFor(std::condition_variable& notice, std::chrono::milliseconds limit,
                 const Condition& condition) {
        return notice.wait_for(lock_, limit, condition);
    }

  private:
    std::unique_lock<std::mutex> lock_;
};

} // namespace platform::media
