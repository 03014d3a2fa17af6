#include "host/general/Colour.h"

#include <algorithm>
#include <cmath>

namespace tarn {

namespace {

// One component of the colour: a trapezoid over the hue circle, shifted by a third
// of a turn for each component.
double component(double low, double high, double hue) {
  const double sector = 6.0 * (hue - std::floor(hue));
  if (sector < 1.0) return low + (high - low) * sector;
  if (sector < 3.0) return high;
  if (sector < 4.0) return low + (high - low) * (4.0 - sector);
  return low;
}

std::uint8_t byteOf(double value) { return static_cast<std::uint8_t>(value * 255.0 + 0.5); }

}  // namespace

void Colour::SetAsHSL(double hue, double saturation, double lightness) {
  const double h = std::isfinite(hue) ? hue : 0.0;
  const double s = std::clamp(saturation, 0.0, 1.0);
  const double l = std::clamp(lightness, 0.0, 1.0);
  const double high = l <= 0.5 ? l * (1.0 + s) : l + s - l * s;
  const double low = 2.0 * l - high;
  *this = Colour(byteOf(component(low, high, h + 1.0 / 3.0)), byteOf(component(low, high, h)),
                 byteOf(component(low, high, h - 1.0 / 3.0)));
}

}  // namespace tarn
