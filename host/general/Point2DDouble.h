#pragma once

namespace tarn {

/// A point of a photograph or of any plane: two doubles. In a photograph x runs to
/// the right and y down, in pixels; the centre of the upper left pixel is (0.5, 0.5).
struct Point2DDouble {
  double x = 0.0;
  double y = 0.0;

  constexpr double X() const { return x; }
  constexpr double Y() const { return y; }

  friend constexpr bool operator==(const Point2DDouble&, const Point2DDouble&) = default;
};

}  // namespace tarn
