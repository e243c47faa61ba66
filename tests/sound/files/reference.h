#pragma once

#include "tests/sound/support/sound_files.h"

#include <cstdint>
#include <string>
#include <vector>

namespace sound_test {

/// A whole file decoded by the library alone, left and right in turns.
std::vector<std::int16_t> decodeByMpg123(const std::string& path);

/// Frames that libsndfile gives when a file is read to its end.
std::int64_t framesBySndfile(const std::string& path);

/// Writes a file of the test folder with libsndfile, in one of its formats. Its path.
std::string writeBySndfile(const std::string& name, const Samples& samples, int format);

} // namespace sound_test
