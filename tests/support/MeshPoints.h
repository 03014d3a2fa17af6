#pragma once

#include "host/model/PointMesh.h"

#include <cstddef>
#include <vector>

/// Gives the mesh these points, narrowed to what it stores, and nothing else.
inline void setPoints(tarn::PointMesh& mesh, const std::vector<tarn::Point3DDouble>& points) {
  mesh.Allocate(static_cast<int>(points.size()), 0);
  float* stored = mesh.GetPointStorage().data();
  for (const tarn::Point3DDouble& point : points) {
    *stored++ = static_cast<float>(point.x);
    *stored++ = static_cast<float>(point.y);
    *stored++ = static_cast<float>(point.z);
  }
}
