#include "host/model/Point3DRandom.h"

#include <Eigen/Dense>

#include "host/model/MatrixDouble.h"
#include "host/model/VectorDouble.h"

#include <algorithm>

namespace tarn {

Point3DRandom::Point3DRandom(const Point3DDouble& position)
    : _x{position.x, 0.0, 1}, _y{position.y, 0.0, 1}, _z{position.z, 0.0, 1} {}

Point3DRandom::Point3DRandom(const Point3DDouble& position, double xx, double yy, double zz,
                             double xy, double xz, double yz)
    : _x{position.x, xx, 0},
      _y{position.y, yy, 0},
      _z{position.z, zz, 0},
      _xy(xy),
      _xz(xz),
      _yz(yz) {}

int Point3DRandom::EigenVectorValues(MatrixDouble& vectors, VectorDouble& values) const {
  if (!VariancesAreKnown()) return 0;
  Eigen::Matrix3d covariance;
  covariance << _x.variance, _xy, _xz, _xy, _y.variance, _yz, _xz, _yz, _z.variance;
  if (!covariance.allFinite()) return 0;
  const Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver(covariance);
  if (solver.info() != Eigen::Success) return 0;
  const double rounding = 1e-12 * std::max(solver.eigenvalues()(2), 0.0);
  if (solver.eigenvalues()(0) < -rounding) return 0;
  Eigen::Matrix3d axes = solver.eigenvectors();
  if (axes.determinant() < 0.0) axes.col(2) = -axes.col(2);
  vectors = MatrixDouble(3, 3);
  values = VectorDouble(3);
  for (int i = 1; i <= 3; ++i) {
    values(i) = std::max(solver.eigenvalues()(i - 1), 0.0);
    for (int row = 1; row <= 3; ++row) vectors(row, i) = axes(row - 1, i - 1);
  }
  return 1;
}

}  // namespace tarn
