#include "host/model/HeightLevels.h"

#include <algorithm>
#include <cmath>

namespace tarn::HeightLevels {

std::vector<double> bySpacing(double lowest, double highest, double spacing) {
  std::vector<double> levels;
  if (!(spacing > 0.0) || !std::isfinite(spacing)) return levels;
  const double first = std::ceil(lowest / spacing);
  const double last = std::floor(highest / spacing);
  const double count = last - first + 1.0;
  if (!(count >= 1.0) || count > most) return levels;
  // Beyond, a multiple has no next one.
  constexpr double lastWholeNumber = 9007199254740992.0;  // 2^53
  if (std::max(std::abs(first), std::abs(last)) >= lastWholeNumber) return levels;
  levels.reserve(static_cast<std::size_t>(count));
  // Each one is a product: a sum would carry its rounding on.
  for (double multiple = first; multiple <= last; ++multiple) {
    levels.push_back(multiple * spacing + 0.0);  // never minus zero
  }
  return levels;
}

std::vector<double> byCount(double lowest, double highest, int count) {
  std::vector<double> levels;
  const double range = highest - lowest;
  if (!(range > 0.0) || !std::isfinite(range) || count < 1 || count > most) return levels;
  levels.reserve(static_cast<std::size_t>(count));
  for (int i = 1; i <= count; ++i) levels.push_back(lowest + range * i / (count + 1));
  return levels;
}

}  // namespace tarn::HeightLevels
