#pragma once

#include <string>

/// Numbered errors: how a fault inside the player travels, from where it arises to a trap or to
/// the fatal message.
namespace runtime {

enum ErrorNumber : int {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    BadFileNumber = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceError = 57,
    DiskFull = 61,
    EndOfFile = 62,
    TooManyFiles = 67,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// The one exception type of the player's own code.
struct NumberedError {
    int number = 0;
    std::string detail = {}; ///< a further line for the fatal message, empty for most errors

    /// What the message boxes say of the error, without a full stop.
    [[nodiscard]] const char* description() const;
};

/// Raises an error with its number.
[[noreturn]] void raise(int number);

/// Raises the error of a file operation's result, unless that is 0.
void raiseIfFailed(int number);

} // namespace runtime
