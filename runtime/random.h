#pragma once

#include <random>

namespace runtime {

/// The uniform random source. It is never seeded: each run of the program draws the same sequence.
class Random {
  public:
    /// The next draw, in [0, 1) in single precision.
    float next() { return static_cast<float>(source_() >> 8U) * 0x1p-24F; }

  private:
    std::mt19937 source_; // NOLINT(bugprone-random-generator-seed): the fixed sequence is wanted
};

} // namespace runtime
