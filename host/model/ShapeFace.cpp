#include "host/model/ShapeFace.h"

#include "host/model/PolygonTriangulation.h"
#include "host/model/ShapeVertex.h"

namespace tarn {

VClass ShapeFaceCls("ShapeFace", &TessellatedSurfaceCls,
                    []() -> VObject* { return new ShapeFace; });

int ShapeFace::GetNameUprightVectorPoints(Point3DDouble& first, Point3DDouble& second, int) const {
  if (!_nameUprightVector) return 0;
  first = _nameUprightVector->front();
  second = _nameUprightVector->back();
  return 1;
}

int ShapeFace::SetOutline(const std::vector<ShapeVertex*>& outline,
                          const std::vector<std::vector<ShapeVertex*>>& holes) {
  std::vector<ShapeVertex*> corners;  // of all contours
  PolygonTriangulation::Contour outlinePlaces;
  std::vector<PolygonTriangulation::Contour> holePlaces(holes.size());
  const auto take = [&corners](const std::vector<ShapeVertex*>& contour,
                               PolygonTriangulation::Contour& places) {
    Point3DRandom position;
    for (ShapeVertex* corner : contour) {
      if (!corner || !corner->GetApproximation(position)) return false;
      corners.push_back(corner);
      places.push_back(position.position());
    }
    return true;
  };
  if (!take(outline, outlinePlaces)) return 0;
  for (std::size_t i = 0; i < holes.size(); ++i) {
    if (!take(holes[i], holePlaces[i])) return 0;
  }
  const auto cut = PolygonTriangulation::of(outlinePlaces, holePlaces);
  if (cut.triangles.empty()) return 0;

  Clear();
  const int set = AddTriangleSet();
  const Point3DDouble& normal = AddNormal(cut.normal);
  for (const auto& triangle : cut.triangles) {
    const auto corner = [&](std::size_t k) {
      return corners[static_cast<std::size_t>(triangle[k])];
    };
    Triangle& added = AddTriangle(set, corner(0), corner(1), corner(2));
    for (int k = 0; k < 3; ++k) added.SetNormal(k, &normal);
  }
  return 1;
}

}  // namespace tarn
