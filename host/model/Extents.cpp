#include "host/model/Extents.h"

#include <algorithm>
#include <cmath>

namespace tarn {

Extents::Extents(const Point3DDouble& first, const Point3DDouble& second) {
  Add(first);
  Add(second);
}

void Extents::Add(const Point3DDouble& point) {
  if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z)) return;
  if (_empty) {
    _empty = 0;
    _minimum = point;
    _maximum = point;
    return;
  }
  _minimum = {std::min(_minimum.x, point.x), std::min(_minimum.y, point.y),
              std::min(_minimum.z, point.z)};
  _maximum = {std::max(_maximum.x, point.x), std::max(_maximum.y, point.y),
              std::max(_maximum.z, point.z)};
}

int Extents::GetExtents(Point3DDouble& minimum, Point3DDouble& maximum) const {
  if (_empty) return 0;
  minimum = _minimum;
  maximum = _maximum;
  return 1;
}

Point3DDouble Extents::GetCentre() const { return 0.5 * (_minimum + _maximum); }

double Extents::GetLongestSide() const {
  const Point3DDouble sides = _maximum - _minimum;
  return std::max({sides.x, sides.y, sides.z});
}

}  // namespace tarn
