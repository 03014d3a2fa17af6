#include "host/model/Triangle.h"

#include "host/model/ThreeDPoint.h"

namespace tarn {

VClass TriangleCls("Triangle", &FeatureCls, []() -> VObject* { return new Triangle; });

namespace {
bool isCorner(int number) { return number >= 0 && number < 3; }
}  // namespace

ThreeDPoint* Triangle::GetPoint(int corner) const {
  return isCorner(corner) ? _points[corner] : nullptr;
}

const Point3DDouble* Triangle::GetNormal(int corner) const {
  return isCorner(corner) ? _normals[corner] : nullptr;
}

void Triangle::SetPoint(int corner, ThreeDPoint* point) {
  if (isCorner(corner)) _points[corner] = point;
}

void Triangle::SetNormal(int corner, const Point3DDouble* normal) {
  if (isCorner(corner)) _normals[corner] = normal;
}

}  // namespace tarn
