#pragma once

#include <algorithm>
#include <chrono>

namespace sound_test {

/// How long the calls made through it took.
class Patience {
  public:
    template <class Call>
    auto operator()(const Call& call) {
        const auto start = std::chrono::steady_clock::now();
        auto answer = call();
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
        longest = std::max(longest, passed.count());
        total += passed.count();
        return answer;
    }
    double longest = 0; ///< seconds
    double total = 0;   ///< seconds, of all calls
};

} // namespace sound_test
