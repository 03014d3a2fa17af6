#pragma once

#include "host/general/Point3DDouble.h"

namespace tarn {

/// A weighted point (w x, w y, w z, w): what a rational B-spline is linear in (Piegl and
/// Tiller, The NURBS Book, 2nd ed., 4.2).
struct HomogeneousPoint {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
  double w = 0.0;

  HomogeneousPoint() = default;
  HomogeneousPoint(const Point3DDouble& point, double weight)
      : x(weight * point.x), y(weight * point.y), z(weight * point.z), w(weight) {}

  Point3DDouble point() const { return {x / w, y / w, z / w}; }

  void add(double factor, const HomogeneousPoint& other) {
    x += factor * other.x;
    y += factor * other.y;
    z += factor * other.z;
    w += factor * other.w;
  }

  /// The point that divides the way from `a` to `b` at `t`, 0 to 1.
  static HomogeneousPoint between(const HomogeneousPoint& a, const HomogeneousPoint& b, double t) {
    HomogeneousPoint result;
    result.add(1.0 - t, a);
    result.add(t, b);
    return result;
  }
};

}  // namespace tarn
