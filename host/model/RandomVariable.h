#pragma once

namespace tarn {

/// A measured quantity: its value and its variance, or the flag that the variance
/// is not known.
struct RandomVariable {
  double value = 0.0;
  double variance = 0.0;
  int varianceUnknown = 1;  ///< non-zero: `variance` means nothing
};

}  // namespace tarn
