#pragma once

#include "host/general/Point3DDouble.h"

namespace tarn {

/// The scalar product.
constexpr double dot(const Point3DDouble& a, const Point3DDouble& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// The vector product: perpendicular to both, by the right hand, as long as the area between.
constexpr Point3DDouble cross(const Point3DDouble& a, const Point3DDouble& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

}  // namespace tarn
