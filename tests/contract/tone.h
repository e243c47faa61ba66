#pragma once

#include <cstdint>
#include <string>

namespace contract {

/// A mono WAV file of 16 bits, its length a multiple of 10 ms: 440 Hz, about as loud as it is safe
/// on any machine.
std::string toneFile(std::uint32_t milliseconds);

} // namespace contract
