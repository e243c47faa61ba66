#pragma once

#include <string>

namespace simulated {

/// Fails the test: a test or the code under test did what no user and no program can do.
/// Throws std::logic_error.
[[noreturn]] void misuse(const std::string& what);

} // namespace simulated
