#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/PointMesh.h"

#include <vector>

namespace tarn {

/// A surface over a point cloud: the Delaunay triangulation of its points in plan, seen from
/// above in the model frame. Ground and roofs come out; a wall or what overhangs does not.
///
/// The triangulation is the dual of the Voronoi diagram that Boost.Polygon computes. Its
/// coordinates are whole numbers: places in plan are taken to a fraction of 2^-29 or less of
/// the cloud's extent. That fraction is a power of two, so that a grid stays one.
struct TARN_HOST_EXPORT PlanTriangulation {
  struct Options {
    /// Triangles with an edge longer than this many times the typical one (in plan) are left
    /// out: gaps stay gaps. 0 keeps all.
    double longestEdge = 10.0;
    /// A cloud with more places is thinned. Memory and time follow this number: about 450
    /// bytes and 3 microseconds a point.
    int mostPoints = 1'000'000;
  };

  /// Corners are indexes of the mesh's points, counter-clockwise seen from above. Every circle
  /// through three corners of a triangle is free of other points that were used.
  std::vector<PointMesh::Corners> triangles;
  /// How many points were used. Of several at one place in plan the highest is; a point that
  /// is not finite never is. Where a cloud is thinned, one of each handful of neighbours is:
  /// that of median height.
  int usedPoints = 0;
  /// How many places in plan there are.
  int places = 0;
  /// The typical edge: the median length in plan.
  double typicalEdge = 0.0;

  /// Triangulates the points of the mesh, whether it has triangles of its own or not. Fewer
  /// than three places, or places on one line, have no triangles. Memory that there is not
  /// throws std::bad_alloc.
  static PlanTriangulation of(const PointMesh& mesh, const Options& options);
};

}  // namespace tarn
