#include "platform/windows/error_numbers.h"

#include "runtime/errors.h"

namespace platform {

int errorNumberOf(DWORD systemError) {
    switch (systemError) {
    case ERROR_SUCCESS:
        return 0;
    case ERROR_FILE_NOT_FOUND:
        return runtime::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
    case ERROR_FILENAME_EXCED_RANGE:
        return runtime::PathNotFound;
    case ERROR_ACCESS_DENIED:
        return runtime::PathFileAccess;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return runtime::PermissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return runtime::DiskFull;
    case ERROR_TOO_MANY_OPEN_FILES:
        return runtime::TooManyFiles;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        return runtime::OutOfMemory;
    default:
        return runtime::DeviceError;
    }
}

} // namespace platform
