#include "runtime/errors.h"

namespace runtime {

const char* NumberedError::description() const {
    switch (number) {
    case InvalidCall:
        return "Invalid procedure call or argument";
    case Overflow:
        return "Overflow";
    case OutOfMemory:
        return "Out of memory";
    case SubscriptOutOfRange:
        return "Subscript out of range";
    case DivisionByZero:
        return "Division by zero";
    case TypeMismatch:
        return "Type mismatch";
    case BadFileNumber:
        return "Bad file name or number";
    case FileNotFound:
        return "File not found";
    case FileAlreadyOpen:
        return "File already open";
    case DeviceError:
        return "Device I/O error";
    case DiskFull:
        return "Disk full";
    case EndOfFile:
        return "Input past end of file";
    case TooManyFiles:
        return "Too many files";
    case PermissionDenied:
        return "Permission denied";
    case PathFileAccess:
        return "Path/File access error";
    case PathNotFound:
        return "Path not found";
    default:
        return "Application-defined or object-defined error";
    }
}

void raise(int number) { throw NumberedError{number}; }

void raiseIfFailed(int number) {
    if (number != 0) raise(number);
}

} // namespace runtime
