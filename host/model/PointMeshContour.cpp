#include "host/model/PointMeshContour.h"

#include <cstddef>

namespace tarn {

VClass PointMeshContourCls("PointMeshContour", &VObjectCls,
                           []() -> VObject* { return new PointMeshContour; });

double** PointMeshContour::GetPoints(int) const {
  return _points.count() ? _points.rows() : nullptr;
}

void PointMeshContour::SetPoints(std::span<const Point3DDouble> points) {
  _points.allocate(static_cast<int>(points.size()));
  for (std::size_t i = 0; i < points.size(); ++i) {
    double* const row = _points.rows()[i];
    row[0] = points[i].x;
    row[1] = points[i].y;
    row[2] = points[i].z;
  }
}

}  // namespace tarn
