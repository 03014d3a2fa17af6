#include "host/model/Plane3D.h"

#include "host/general/VectorProducts.h"

#include <cmath>

namespace tarn {

VClass Plane3DCls("Plane3D", &VObjectCls, []() -> VObject* { return new Plane3D; });

namespace {

// To length 1, first by the largest component: squares must not leave the range of double.
bool normalise(Point3DDouble& vector) {
  const double largest =
      std::fmax(std::fabs(vector.x), std::fmax(std::fabs(vector.y), std::fabs(vector.z)));
  if (!(largest > 0.0) || !std::isfinite(largest)) return false;
  vector = {vector.x / largest, vector.y / largest, vector.z / largest};
  vector = 1.0 / vector.length() * vector;
  return std::isfinite(vector.length());
}

}  // namespace

int Plane3D::SetThreePoints(const Point3DDouble& a, const Point3DDouble& b,
                            const Point3DDouble& c) {
  Point3DDouble toB = b - a;
  Point3DDouble toC = c - a;
  if (!normalise(toB) || !normalise(toC)) return 0;
  Point3DDouble normal = cross(toB, toC);
  // Its length is the sine of the angle between the two.
  if (!(normal.length() > 1e-12)) return 0;
  _normal = 1.0 / normal.length() * normal;
  _onPlane = a;
  return 1;
}

void Plane3D::GetHessian(Point3DDouble& normal, double& distance) const {
  normal = _normal;
  distance = dot(_normal, _onPlane);
}

double Plane3D::GetSignedDistance(const Point3DDouble& point) const {
  return dot(_normal, point - _onPlane);
}

}  // namespace tarn
