#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point3DDouble.h"
#include "host/model/PointMesh.h"

#include <span>
#include <vector>

namespace tarn {

/// Lines of equal height over the triangles of a mesh.
///
/// A corner exactly at a level counts as above it, as if the level were lower by less than
/// any number. So each triangle is crossed once or not at all, lines have neither gaps nor
/// doubles, and run through such a corner itself: around a flat part at the level along the
/// edge to what is lower, and along a ridge at the level there and back. A summit at the level
/// has no line.
namespace HeightContours {

/// A line of equal height, in the model frame.
struct Line {
  double height = 0.0;
  bool closed = false;  ///< it returns to its first point, which then is the last one again
  std::vector<Point3DDouble> points;  ///< at least two, no two alike side by side
};

/// The lines at which the triangles cross the levels, level by level in ascending order.
/// Heights are those of the model, with the mesh's local affine applied. Lines end at borders
/// of the mesh and at edges that more than two triangles share. Left out are triangles with a
/// corner twice, out of range or not finite, levels that are not finite, and levels that come
/// twice. Takes time in proportion to the triangles and the crossings.
TARN_HOST_EXPORT std::vector<Line> trace(const PointMesh& mesh,
                                         std::span<const PointMesh::Corners> triangles,
                                         std::span<const double> levels);

/// Adds such lines to the mesh's contours, of its own triangles or of those given (of a cloud
/// that has none, see PlanTriangulation).
TARN_HOST_EXPORT void addTo(PointMesh& mesh, std::span<const double> levels);
TARN_HOST_EXPORT void addTo(PointMesh& mesh, std::span<const PointMesh::Corners> triangles,
                            std::span<const double> levels);

}  // namespace HeightContours

}  // namespace tarn
