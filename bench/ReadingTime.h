#pragma once

#include <algorithm>
#include <chrono>

namespace bench {

/// The seconds that `read()` takes; giving back what it returns does not count. The better of
/// two readings, for ours and for peers: the first one of a while also pays for the system
/// getting hold of its memory, which differs by a factor of several.
template <typename Read>
double readingTime(const Read& read) {
  const auto once = [&read] {
    const auto start = std::chrono::steady_clock::now();
    const auto result = read();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return taken.count();
  };
  const double first = once();
  return std::min(first, once());
}

}  // namespace bench
