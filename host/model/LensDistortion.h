#pragma once

#include <array>

#include "host/TarnOIHostExport.h"
#include "host/general/Point2DDouble.h"

namespace tarn {

/// How a lens departs from the ideal pinhole camera. It maps between ideal and
/// distorted image points in the plane at distance 1 in front of the projection
/// centre (x right, y down, no units).
///
/// Sources: Brown, Decentering Distortion of Lenses (1966), for the radial and
/// tangential forms; Kannala and Brandt, A Generic Camera Model and Calibration
/// Method (2006), for the fisheye forms; Devernay and Faugeras, Straight Lines Have
/// to Be Straight (2001), for the field-of-view form.
class TARN_HOST_EXPORT LensDistortion {
public:
  enum Kind {
    eNone,
    eRadial,            ///< k1, k2
    eOpenCV,            ///< k1, k2, p1, p2
    eFullOpenCV,        ///< k1, k2, p1, p2, k3, k4, k5, k6
    eFieldOfView,       ///< omega
    eFisheye,           ///< k1, k2, k3, k4 (all zero: the equidistant projection)
    eThinPrismFisheye,  ///< k1, k2, p1, p2, k3, k4, sx1, sy1
    eRadTanThinPrismFisheye,  ///< k0 to k5, p0, p1, s0 to s3
    eDivision                 ///< k: ideal = distorted / (1 + k r^2)
  };
  static constexpr int maximumParameters = 12;
  using Parameters = std::array<double, maximumParameters>;

  LensDistortion() = default;
  LensDistortion(Kind kind, const Parameters& parameters) : _kind(kind), _parameters(parameters) {}

  Kind kind() const { return _kind; }
  const Parameters& parameters() const { return _parameters; }

  /// The distorted image point of an ideal one.
  Point2DDouble Distort(const Point2DDouble& ideal) const;

  /// The ideal image point of a distorted one. Returns 0, and leaves `ideal` as it
  /// was, when there is none: the iteration does not converge, or the ray leaves
  /// the half space in front of the camera.
  int Undistort(const Point2DDouble& distorted, Point2DDouble& ideal) const;

private:
  Kind _kind = eNone;
  Parameters _parameters{};
};

}  // namespace tarn
