#pragma once

#include "runtime/integers.h"

namespace runtime {

/// The nearest whole number, ties to the even one, in any rounding mode of the process.
double nearestEven(double value);

/// The same as an integer. Error 6 outside the result's range and for a
/// value that is no number.
Int16 roundToInt16(double value);
Int32 roundToInt32(double value);

/// a / b. Error 11 when only b is 0, error 6 when both are or when a result is too large.
double divide(double a, double b);

} // namespace runtime
