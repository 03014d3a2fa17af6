#include "host/model/NURBSSurfaceCylinder.h"

#include <Eigen/Geometry>

#include <array>
#include <cmath>

namespace tarn {

VClass NURBSSurfaceCylinderCls("NURBSSurfaceCylinder", &NURBSSurfaceCls,
                               []() -> VObject* { return new NURBSSurfaceCylinder; });

int NURBSSurfaceCylinder::Tessellate(double tolerance) {
  const double radius = GetCylinder()->GetRadius();
  Point3DDouble ends[2];
  GetCylinder()->GetEndPoints(ends);
  const Point3DDouble along = ends[1] - ends[0];
  const double length = along.length();
  if (!(tolerance > 0.0) || !std::isfinite(tolerance) || !(radius > 0.0) ||
      !std::isfinite(radius) || !(length > 0.0) || !std::isfinite(length)) {
    return 0;
  }
  const Eigen::Vector3d axis(along.x / length, along.y / length, along.z / length);
  const Eigen::Vector3d east = radius * axis.unitOrthogonal();
  const Eigen::Vector3d north = axis.cross(east);

  // The square around the circle: middles of its sides on it, corners between them.
  constexpr std::array<std::array<int, 2>, 9> square = {
      {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}, {1, 0}}};
  std::vector<Point3DDouble> controlPoints;
  std::vector<double> weights;
  for (const Point3DDouble& end : ends) {
    for (const auto& [x, y] : square) {
      const Eigen::Vector3d out = x * east + y * north;
      controlPoints.push_back(end + Point3DDouble(out.x(), out.y(), out.z()));
      weights.push_back(x != 0 && y != 0 ? std::sqrt(0.5) : 1.0);
    }
  }
  return SetSurface(2, {0, 0, 0, 0.25, 0.25, 0.5, 0.5, 0.75, 0.75, 1, 1, 1}, 1, {0, 0, 1, 1},
                    controlPoints, weights) &&
         NURBSSurface::Tessellate(tolerance);
}

}  // namespace tarn
