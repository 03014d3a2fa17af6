#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point2DDouble.h"

#include <array>

namespace tarn {

/// How a lens departs from the ideal pinhole camera. It maps between ideal and
/// distorted image points in the plane at distance 1 in front of the projection
/// centre (x right, y down, no units).
///
/// With r the distance from the centre, the radial forms multiply a point by a factor
/// of r; the tangential terms add 2 p1 x y + p2 (r^2 + 2 x^2) to x and
/// p1 (r^2 + 2 y^2) + 2 p2 x y to y. The fisheye forms first bring the point to
/// (x, y) theta / r, theta being the ray's angle with the axis, and apply their terms
/// there.
///
/// Sources: Brown, Decentering Distortion of Lenses (1966), for the radial and
/// tangential forms; Weng, Cohen, Herniou, Camera Calibration with Distortion Models
/// and Accuracy Evaluation (1992), for the thin prism; Kannala and Brandt, A Generic
/// Camera Model and Calibration Method (2006), for the fisheye forms; Devernay and
/// Faugeras, Straight Lines Have to Be Straight (2001), for the field of view;
/// Fitzgibbon, Simultaneous Linear Estimation of Multiple View Geometry and Lens
/// Distortion (2001), for the division; Khomutenko, Garcia, Martinet, An Enhanced
/// Unified Camera Model (2016), for the unified form.
class TARN_HOST_EXPORT LensDistortion {
public:
  enum Kind {
    eNone,
    eRadial,                  ///< k1, k2: times 1 + k1 r^2 + k2 r^4
    eOpenCV,                  ///< k1, k2, p1, p2: radial and tangential
    eFullOpenCV,              ///< k1, k2, p1, p2, k3, k4, k5, k6: the radial factor is rational,
                              ///< (1 + k1 r^2 + k2 r^4 + k3 r^6) / (1 + k4 r^2 + k5 r^4 + k6 r^6)
    eFieldOfView,             ///< omega: r becomes atan(2 r tan(omega / 2)) / omega
    eFisheye,                 ///< k1, k2, k3, k4 (all zero: the equidistant projection)
    eThinPrismFisheye,        ///< k1, k2, p1, p2, k3, k4, sx1, sy1: fisheye, tangential, and
                              ///< sx1 r^2 added to x, sy1 r^2 to y
    eRadTanThinPrismFisheye,  ///< k0 to k5, p0, p1, s0 to s3: six radial terms; after them the
                              ///< tangential ones (p1 = its p1, p2 = its p0) and s0 r^2 + s1 r^4
                              ///< added to x, s2 r^2 + s3 r^4 to y
    eDivision,                ///< k: ideal = distorted / (1 + k r^2), r of the distorted point
    eEnhancedUnified          ///< alpha, beta: divided by alpha sqrt(beta r^2 + 1) + 1 - alpha
  };
  static constexpr int maximumParameters = 12;
  using Parameters = std::array<double, maximumParameters>;

  LensDistortion() = default;
  LensDistortion(Kind kind, const Parameters& parameters);

  Kind kind() const { return _kind; }
  const Parameters& parameters() const { return _parameters; }

  /// The distorted image point of an ideal one. Both coordinates are NaN where the
  /// lens has no image (far out with a division of positive k). Beyond the range in
  /// which the picture grows with the ray's angle the formula is applied as it stands,
  /// although a picture folds over there.
  Point2DDouble Distort(const Point2DDouble& ideal) const;

  /// The ideal image point of a distorted one, exact to rounding. Returns 0, and leaves
  /// `ideal` as it was, when there is none: the ray is not in front of the camera, lies
  /// where the picture folds over, or is not found.
  int Undistort(const Point2DDouble& distorted, Point2DDouble& ideal) const;

private:
  double radius(double idealRadius) const;

  Kind _kind = eNone;
  Parameters _parameters{};
  // The radius (of a fisheye: the angle) up to which the radial part grows.
  double _range = 0.0;
};

}  // namespace tarn
