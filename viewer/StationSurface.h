#pragma once

namespace tarn {
class CameraStation;
class PhotoCollection;
class SurfaceGroup;
}  // namespace tarn

/// A surface over the object points that are marked on a station's photograph: the Delaunay
/// triangulation of their marks.
namespace StationSurface {

/// Triangles are left out that have an edge more than so many times as long as it looks from the
/// station, or than the median edge: they span a jump in depth or a gap. So are those whose corners
/// are not three different places.
constexpr double mostForeshortened = 4.0;
constexpr double longestEdge = 8.0;

/// Fills an empty group with triangles whose fronts the station sees. Its first triangle decides
/// which photograph is the group's best: it is one for which that is the station's own, the
/// largest such, where there is any; else one that any photograph shows. What the group's best
/// photograph does not show is left out.
/// Throws std::runtime_error that names the station where there are no triangles.
void fill(tarn::SurfaceGroup& group, const tarn::CameraStation& station,
          const tarn::PhotoCollection& photographs);

}  // namespace StationSurface
