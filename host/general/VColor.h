#pragma once

#include "host/TarnOIHostExport.h"

#include <cstdint>

namespace tarn {

/// A packed colour: red in the lowest byte, then green, then blue.
class TARN_HOST_EXPORT VColor {
public:
  constexpr VColor() = default;
  constexpr explicit VColor(std::uint32_t packed) : _packed(packed) {}
  constexpr VColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
      : _packed(static_cast<std::uint32_t>(red) | static_cast<std::uint32_t>(green) << 8 |
                static_cast<std::uint32_t>(blue) << 16) {}

  constexpr int getRed() const { return static_cast<int>(_packed & 0xFF); }
  constexpr int getGreen() const { return static_cast<int>(_packed >> 8 & 0xFF); }
  constexpr int getBlue() const { return static_cast<int>(_packed >> 16 & 0xFF); }
  constexpr std::uint32_t packed() const { return _packed; }

private:
  std::uint32_t _packed = 0;
};

/// The colour of a preference's colour index: 0 to 15 name the sixteen colours of
/// the standard palette (0 black, 1 dark red, 2 dark green, 3 dark yellow, 4 dark
/// blue, 5 dark magenta, 6 dark cyan, 7 light grey, 8 dark grey, 9 red, 10 green,
/// 11 yellow, 12 blue, 13 magenta, 14 cyan, 15 white); the decimal digits of a larger
/// value are RRRGGGBBB, a component above 255 counting as 255.
TARN_HOST_EXPORT VColor fIniToVColor(unsigned int value);

}  // namespace tarn
