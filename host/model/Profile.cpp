#include "host/model/Profile.h"

#include "host/model/PointMesh.h"

#include <algorithm>
#include <cmath>

namespace tarn {

Profile::Profile(const Plane3D& plane, const Point3DDouble& from, const Point3DDouble& to,
                 double thickness)
    : _plane(plane), _from(from), _thickness(thickness) {
  Point3DDouble normal;
  double unused = 0.0;
  plane.GetHessian(normal, unused);
  const double steepness = std::hypot(normal.x, normal.y);
  if (!(steepness > 1e-9)) return;
  _usable = true;
  _direction = {normal.y / steepness, -normal.x / steepness, 0.0};
  if (_direction.x * (to.x - from.x) + _direction.y * (to.y - from.y) < 0.0) {
    _direction = -1.0 * _direction;
  }
}

int Profile::Add(const PointMesh& mesh) {
  int added = 0;
  const int count = mesh.GetNumPoints();
  for (int i = 0; i < count; ++i) added += Add(mesh.GetModelPoint(i));
  return added;
}

int Profile::Add(const Point3DDouble& point) {
  // Negated, so that what is not a number is left out.
  if (!_usable || !(std::fabs(_plane.GetSignedDistance(point)) <= _thickness)) return 0;
  _points.push_back(
      {(point.x - _from.x) * _direction.x + (point.y - _from.y) * _direction.y, point.z});
  _sorted = false;
  return 1;
}

const std::vector<Profile::Point>& Profile::GetPoints() const {
  if (!_sorted) {
    std::ranges::stable_sort(_points, {}, &Point::distance);
    _sorted = true;
  }
  return _points;
}

}  // namespace tarn
