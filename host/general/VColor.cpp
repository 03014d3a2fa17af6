#include "host/general/VColor.h"

#include <array>

namespace tarn {

VColor fIniToVColor(unsigned int value) {
  static constexpr std::array<VColor, 16> palette = {
      VColor(0, 0, 0),       VColor(128, 0, 0),   VColor(0, 128, 0),   VColor(128, 128, 0),
      VColor(0, 0, 128),     VColor(128, 0, 128), VColor(0, 128, 128), VColor(192, 192, 192),
      VColor(128, 128, 128), VColor(255, 0, 0),   VColor(0, 255, 0),   VColor(255, 255, 0),
      VColor(0, 0, 255),     VColor(255, 0, 255), VColor(0, 255, 255), VColor(255, 255, 255)};
  return value < palette.size() ? palette[value] : VColor(value);
}

}  // namespace tarn
