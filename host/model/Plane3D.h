#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/general/Point3DDouble.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass Plane3DCls;

/// A plane of the model. A new one is the plane z = 0.
class TARN_HOST_EXPORT Plane3D : public VObject {
public:
  /// Sets the plane through three points; seen from the side to which the normal points,
  /// they stand counter-clockwise. Returns 0, and changes nothing, when they define none:
  /// two are the same, all are on one line (to within 1e-12 of a radian), or a coordinate
  /// is not finite.
  int SetThreePoints(const Point3DDouble& a, const Point3DDouble& b, const Point3DDouble& c);

  /// The Hessian normal form: every point p of the plane has normal . p = distance, with a
  /// normal of length 1.
  void GetHessian(Point3DDouble& normal, double& distance) const;

  /// The distance of the point from the plane, positive on the side of the normal. Exact
  /// also far from the origin, where `distance` of GetHessian has lost digits.
  double GetSignedDistance(const Point3DDouble& point) const;

  VClass* iam() const override { return &Plane3DCls; }

private:
  Point3DDouble _normal{0.0, 0.0, 1.0};
  Point3DDouble _onPlane;
};

}  // namespace tarn
