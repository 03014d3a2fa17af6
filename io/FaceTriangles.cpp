#include "io/FaceTriangles.h"

#include "host/general/VectorProducts.h"
#include "host/model/PolygonTriangulation.h"

namespace tarn {

void faceTriangles(const std::vector<Point3DDouble>& corners,
                   std::vector<std::array<int, 3>>& triangles) {
  const auto across = [&corners](std::size_t i) {
    return cross(corners[i - 1] - corners[0], corners[i] - corners[0]);
  };
  Point3DDouble normal;
  for (std::size_t i = 2; i < corners.size(); ++i) normal = normal + across(i);
  triangles.clear();
  bool turnsBack = false;
  for (std::size_t i = 2; i < corners.size(); ++i) {
    turnsBack = turnsBack || dot(normal, across(i)) < 0.0;
    triangles.push_back({0, static_cast<int>(i - 1), static_cast<int>(i)});
  }
  if (!turnsBack) return;
  const PolygonTriangulation cut = PolygonTriangulation::of(corners, {});
  if (!cut.triangles.empty()) triangles = cut.triangles;
}

}  // namespace tarn
