#include "platform/linux/error_numbers.h"

#include "runtime/errors.h"

#include <cerrno>

namespace platform {

int errorNumberOf(int errnoValue) {
    switch (errnoValue) {
    case 0:
        return 0;
    case ENOENT:
        return runtime::FileNotFound;
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG:
        return runtime::PathNotFound;
    case EACCES:
    case EPERM:
    case EISDIR:
    case ENXIO:
        return runtime::PathFileAccess;
    case EROFS:
    case EBUSY:
    case ETXTBSY:
        return runtime::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return runtime::DiskFull;
    case EMFILE:
    case ENFILE:
        return runtime::TooManyFiles;
    case ENOMEM:
        return runtime::OutOfMemory;
    default:
        return runtime::DeviceError;
    }
}

} // namespace platform
