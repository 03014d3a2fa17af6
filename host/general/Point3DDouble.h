#pragma once

#include <cmath>

namespace tarn {

/// A point or vector of the model: three doubles, Z up, in project units.
struct Point3DDouble {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  constexpr Point3DDouble() = default;
  constexpr Point3DDouble(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}

  constexpr double X() const { return x; }
  constexpr double Y() const { return y; }
  constexpr double Z() const { return z; }

  double length() const { return std::sqrt(x * x + y * y + z * z); }

  friend constexpr Point3DDouble operator+(const Point3DDouble& a, const Point3DDouble& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
  }
  friend constexpr Point3DDouble operator-(const Point3DDouble& a, const Point3DDouble& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
  }
  friend constexpr Point3DDouble operator*(double factor, const Point3DDouble& p) {
    return {factor * p.x, factor * p.y, factor * p.z};
  }
  friend constexpr bool operator==(const Point3DDouble&, const Point3DDouble&) = default;
};

}  // namespace tarn
