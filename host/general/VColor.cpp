#include "host/general/VColor.h"

#include <algorithm>
#include <array>

namespace tarn {

VColor fIniToVColor(unsigned int value) {
  static constexpr std::array<VColor, 16> palette = {
      VColor(0, 0, 0),       VColor(128, 0, 0),   VColor(0, 128, 0),   VColor(128, 128, 0),
      VColor(0, 0, 128),     VColor(128, 0, 128), VColor(0, 128, 128), VColor(192, 192, 192),
      VColor(128, 128, 128), VColor(255, 0, 0),   VColor(0, 255, 0),   VColor(255, 255, 0),
      VColor(0, 0, 255),     VColor(255, 0, 255), VColor(0, 255, 255), VColor(255, 255, 255)};
  if (value < palette.size()) return palette[value];
  const auto component = [value](unsigned int divisor) {
    return static_cast<std::uint8_t>(std::min(value / divisor % 1000U, 255U));
  };
  return VColor(component(1'000'000U), component(1'000U), component(1U));
}

}  // namespace tarn
