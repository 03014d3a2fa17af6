#pragma once

#include "host/general/Point3DDouble.h"
#include "host/model/Point3DRandom.h"
#include "io/TarnOIIOExport.h"

#include <array>

namespace tarn {

class Camera;
class MatrixDouble;

/// The covariance of a point from the rays that meet in it, the cameras held fixed: a
/// least squares intersection, Q = N^-1 with N the sum of J^T J over the rays, J how the
/// image point moves with the object point. Image coordinates all have the same weight.
///
/// Source: Luhmann, Robson, Kyle, Boehm, Close-Range Photogrammetry and 3D Imaging, 2nd
/// ed. (2014): least squares adjustment with the precision of its unknowns, and spatial
/// intersection from fixed orientations.
///
///   PointCovariance normal;
///   for (each ray) normal.AddRay(camera, rotation, position, point);
///   Point3DRandom withCovariance = normal.Result(point, varianceOfAnImageCoordinate);
class TARN_IO_EXPORT PointCovariance {
public:
  /// Adds the ray of a station with that camera, rotation (rows right, up, back) and
  /// projection centre, model coordinates. Returns 0, and adds nothing, when the point
  /// is not in front of the camera or the lens has no image of it.
  int AddRay(const Camera& camera, const MatrixDouble& rotation, const Point3DDouble& position,
             const Point3DDouble& point);

  int rays() const { return _rays; }

  /// Non-zero when the rays determine the point: two at least, not all in one line.
  int IsDetermined() const;

  /// The point with its covariance, `unitVariance` (that of one image coordinate, in
  /// squared pixels) times N^-1; with unknown variances when it is not determined.
  Point3DRandom Result(const Point3DDouble& point, double unitVariance) const;

private:
  int _rays = 0;
  std::array<double, 9> _normal{};
};

}  // namespace tarn
