#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The name of the lock file for a display: screens of one display share it, other displays of the
/// same user have their own.
std::string lockNameOf(std::string_view display);

/// A folder of this user alone for lock files: `runtimeFolder` if it can be used, else `fallback`,
/// which is made at need. Empty if neither is there for this user alone.
std::string lockFolder(const std::string& runtimeFolder, const std::string& fallback);

enum class LockResult { Taken, HeldByAnother, Failed };

/// Takes a lock that lasts until the process ends, however it ends. The file's mere presence means
/// nothing, so one left over from an earlier run is no matter.
LockResult takeLock(const std::string& path);

} // namespace platform
