#pragma once

/// Where a double is narrowed on the way to the scene, at a place that hosts rely on.
namespace Narrowing {

/// The value that a float holds of `value`.
inline double narrowed(double value) {
  // volatile: GCC 12 at -O3 drops the pair of conversions where it vectorises them.
  const volatile float single = static_cast<float>(value);
  return static_cast<double>(single);
}

}  // namespace Narrowing
