#include "bench/PlainRamp.h"

#include <cstddef>

namespace bench {

void PlainRamp::setBytes(int count) {
  component(hues, count, 1.0 / 3.0, red);
  component(hues, count, 0.0, green);
  component(hues, count, -1.0 / 3.0, blue);
}

// A trapezoid over the hue, `turn` on from it.
void PlainRamp::component(const Hues& hues, int count, double turn, Bytes& bytes) {
  constexpr double high = lightness * (1.0 + saturation);
  constexpr double low = 2.0 * lightness - high;
  for (int i = 0; i < count; ++i) {
    const auto n = static_cast<std::size_t>(i);
    double hue = hues[n] + turn;
    hue = hue >= 1.0 ? hue - 1.0 : hue;
    hue = hue < 0.0 ? hue + 1.0 : hue;
    const double sector = 6.0 * hue;
    double height = sector < 4.0 - sector ? sector : 4.0 - sector;
    height = height > 0.0 ? height : 0.0;
    height = height < 1.0 ? height : 1.0;
    bytes[n] = static_cast<std::int32_t>((low + (high - low) * height) * 255.0 + 0.5);
  }
}

}  // namespace bench
