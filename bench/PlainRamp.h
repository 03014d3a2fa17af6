#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace bench {

/// A ramp of heights with a hue of 0 at the lowest and 0.8 at the highest, saturation and
/// lightness a half (the defaults of the mesh node's preferences), as a plain loop: bit for bit
/// the bytes of tarn::Colour::SetAsHSL, with the branches taken out of it so that the compiler
/// handles several points at once.
class PlainRamp {
public:
  /// As many points at a time as stay in the first cache.
  static constexpr int strip = 512;
  using Bytes = std::array<std::int32_t, strip>;

  PlainRamp(double lowestHeight, double highestHeight)
      : lowest(lowestHeight), highest(highestHeight) {}

  /// Hue at a height.
  double hueAt(float height) const {
    return startHue +
           (endHue - startHue) * (static_cast<double>(height) - lowest) / (highest - lowest);
  }

  /// The bytes of the next `count` points, which are no more than `strip`, in `red`, `green` and
  /// `blue`.
  void next(float* const* points, int count) {
    for (int i = 0; i < count; ++i) hues[static_cast<std::size_t>(i)] = hueAt(points[i][2]);
    setBytes(count);
  }
  /// The same for points that lie one after the other.
  void next(const float* points, int count) {
    for (int i = 0; i < count; ++i) hues[static_cast<std::size_t>(i)] = hueAt(points[3 * i + 2]);
    setBytes(count);
  }

  Bytes red{};
  Bytes green{};
  Bytes blue{};

  static constexpr double startHue = 0.0;
  static constexpr double endHue = 0.8;
  static constexpr double saturation = 0.5;
  static constexpr double lightness = 0.5;

private:
  using Hues = std::array<double, strip>;
  void setBytes(int count);
  static void component(const Hues& hues, int count, double turn, Bytes& bytes);

  double lowest;
  double highest;
  Hues hues{};
};

}  // namespace bench
