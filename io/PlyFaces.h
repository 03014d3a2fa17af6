#pragma once

#include "host/model/PointMesh.h"
#include "io/PlyHeader.h"
#include "io/PlySource.h"
#include "io/ReadProgress.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarn {

/// The faces of a PLY file as triangles. A polygon becomes a fan around its first corner; a
/// triangle strip ("tristrips") its triangles, all with the orientation of the first, where -1
/// begins another strip.
class PlyFaces {
public:
  /// Whether an element holds faces.
  static bool areIn(const PlyElement& element);

  /// Of a mesh with that many vertices, which the file may hold ahead of the faces or behind.
  explicit PlyFaces(std::uint64_t vertices) : _vertices(static_cast<std::int64_t>(vertices)) {}

  /// Adds the faces of an element, which the source has begun. Refuses corners that are no
  /// vertices, and polygons of fewer than three.
  void read(const PlyElement& element, PlySource& source, ReadProgress& progress);

  /// Gives each corner its new index and drops the triangles with a corner that has none (-1).
  /// Returns how many were dropped.
  std::size_t renumber(const std::vector<int>& newIndexes);

  bool empty() const { return _triangles.empty(); }
  /// The triangles are moved out.
  std::vector<PointMesh::Corners> takeTriangles() { return std::move(_triangles); }

private:
  void readPolygon(const PlyProperty& corners, PlySource& source);
  void readStrips(const PlyProperty& corners, PlySource& source);

  std::int64_t _vertices;
  std::vector<PointMesh::Corners> _triangles;
};

}  // namespace tarn
