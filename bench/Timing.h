#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace bench {

/// Seconds that the work takes.
template <typename Work>
double secondsOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The value in the middle; there must be one.
inline double medianOf(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

}  // namespace bench
