#pragma once

#include "host/TarnOIHostExport.h"

#include <vector>

namespace tarn {

/// At which heights contours run.
namespace HeightLevels {

/// More levels than this are not given: a spacing that small is a mistake.
inline constexpr int most = 100'000;

/// The multiples of `spacing` from `lowest` to `highest`, both included, in ascending order.
/// None where the spacing is not positive and finite, would give more than `most`, or is so
/// small that doubles do not hold the multiples at these heights.
TARN_HOST_EXPORT std::vector<double> bySpacing(double lowest, double highest, double spacing);

/// `count` levels that divide the range from `lowest` to `highest` into count + 1 equal parts,
/// in ascending order. None where the range is empty or the count is not 1 to `most`.
TARN_HOST_EXPORT std::vector<double> byCount(double lowest, double highest, int count);

}  // namespace HeightLevels

}  // namespace tarn
