#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point3DDouble.h"

#include <array>
#include <vector>

namespace tarn {

/// A polygon of the model, which may be concave and have holes, cut into triangles between its
/// corners. The cutting is done by the tessellator of the OpenGL Utility Library (GLU).
struct TARN_HOST_EXPORT PolygonTriangulation {
  using Contour = std::vector<Point3DDouble>;

  /// Corners are indexes through all contours, the outline's first; counter-clockwise seen
  /// from the side to which the normal points. The largest triangle is the first.
  std::vector<std::array<int, 3>> triangles;
  /// Of length 1; seen from the side to which it points the outline is counter-clockwise.
  Point3DDouble normal;

  /// Triangulates what is inside the outline and outside the holes, whose directions do not
  /// matter. Corners need not lie in one plane: they are seen along the axis that is nearest
  /// to the normal, and the triangles join them where they are. The normal is that of Newell's
  /// method (I. E. Sutherland et al., A Characterization of Ten Hidden-Surface Algorithms,
  /// 1974).
  /// There are no triangles where the outline encloses no area, where contours cross
  /// themselves or each other, where a hole is not inside, and where a coordinate is not
  /// finite.
  static PolygonTriangulation of(const Contour& outline, const std::vector<Contour>& holes);
};

}  // namespace tarn
