#include "host/general/Colour.h"

#include <algorithm>
#include <cmath>

namespace tarn {

namespace {

// One component of the colour: a trapezoid over the hue circle, shifted by a third
// of a turn for each component. The hue is in 0..1.
double component(double low, double high, double hue) {
  const double sector = 6.0 * hue;
  if (sector < 1.0) return low + (high - low) * sector;
  if (sector < 3.0) return high;
  if (sector < 4.0) return low + (high - low) * (4.0 - sector);
  return low;
}

double wrapped(double hue) { return hue - std::floor(hue); }

double limited(double value) { return value > 0.0 ? std::min(value, 1.0) : 0.0; }

std::uint8_t byteOf(double value) { return static_cast<std::uint8_t>(value * 255.0 + 0.5); }

}  // namespace

void Colour::SetAsHSL(double hue, double saturation, double lightness) {
  const double h = std::isfinite(hue) ? wrapped(hue) : 0.0;
  const double s = limited(saturation);
  const double l = limited(lightness);
  const double high = l <= 0.5 ? l * (1.0 + s) : l + s - l * s;
  const double low = 2.0 * l - high;
  *this =
      Colour(byteOf(component(low, high, wrapped(h + 1.0 / 3.0))), byteOf(component(low, high, h)),
             byteOf(component(low, high, wrapped(h - 1.0 / 3.0))));
}

}  // namespace tarn
