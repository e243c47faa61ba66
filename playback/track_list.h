#pragma once

#include "runtime/dynamic_array.h"

#include <string>

/// The full path of each track, in list order; never allocated until the first track is added. Its
/// upper bound may lie above the last track: only `trackCount` says what counts.
using TrackPaths = runtime::DynamicArray<std::string>;
