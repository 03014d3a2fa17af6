#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point3DDouble.h"
#include "host/model/RandomVariable.h"

namespace tarn {

class MatrixDouble;
class VectorDouble;

/// A model point with its covariance, in project units and their squares.
class TARN_HOST_EXPORT Point3DRandom {
public:
  Point3DRandom() = default;
  /// A point whose variances are not known.
  explicit Point3DRandom(const Point3DDouble& position);
  /// A point with a symmetric covariance: the variances and xy, xz, yz.
  Point3DRandom(const Point3DDouble& position, double xx, double yy, double zz, double xy,
                double xz, double yz);
  /// A point of three coordinates, each with its own variance, known or not.
  Point3DRandom(const RandomVariable& x, const RandomVariable& y, const RandomVariable& z,
                double xy, double xz, double yz)
      : _x(x), _y(y), _z(z), _xy(xy), _xz(xz), _yz(yz) {}

  const RandomVariable& X() const { return _x; }
  const RandomVariable& Y() const { return _y; }
  const RandomVariable& Z() const { return _z; }
  Point3DDouble position() const { return {_x.value, _y.value, _z.value}; }

  /// Non-zero when all three variances are known.
  int VariancesAreKnown() const {
    return !_x.varianceUnknown && !_y.varianceUnknown && !_z.varianceUnknown;
  }

  double covarianceXY() const { return _xy; }
  double covarianceXZ() const { return _xz; }
  double covarianceYZ() const { return _yz; }

  /// The principal axes of the covariance: `vectors` becomes 3x3 with the unit
  /// eigenvectors as columns, which form a right-handed system (a rotation, no
  /// reflection), `values` the three eigenvalues in ascending order.
  /// Returns 0 when a variance is unknown or the covariance is no covariance (not
  /// finite, or with an eigenvalue below zero by more than rounding).
  int EigenVectorValues(MatrixDouble& vectors, VectorDouble& values) const;

private:
  RandomVariable _x, _y, _z;
  double _xy = 0.0;
  double _xz = 0.0;
  double _yz = 0.0;
};

}  // namespace tarn
