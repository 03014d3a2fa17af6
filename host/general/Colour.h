#pragma once

#include "host/TarnOIHostExport.h"

#include <cstdint>

namespace tarn {

/// A colour of three bytes, stored in the order blue, green, red.
class TARN_HOST_EXPORT Colour {
public:
  constexpr Colour() = default;
  constexpr Colour(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
      : _bytes{blue, green, red} {}

  constexpr std::uint8_t red() const { return _bytes[2]; }
  constexpr std::uint8_t green() const { return _bytes[1]; }
  constexpr std::uint8_t blue() const { return _bytes[0]; }

  /// The stored bytes in their order: blue, green, red.
  constexpr const std::uint8_t* bytes() const { return _bytes; }

  /// Sets the colour from hue, saturation and lightness, all in 0..1. The hue wraps
  /// (1.25 is 0.25, -0.25 is 0.75) and a non-finite hue counts as 0; saturation and
  /// lightness are clamped, NaN to 0. Source: Foley, van Dam, Feiner, Hughes, Computer
  /// Graphics: Principles and Practice, 2nd ed., section 13.3.5.
  void SetAsHSL(double hue, double saturation, double lightness);

  friend constexpr bool operator==(const Colour&, const Colour&) = default;

private:
  std::uint8_t _bytes[3] = {0, 0, 0};
};

}  // namespace tarn
