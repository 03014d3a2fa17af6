#include "io/PointCovariance.h"

#include <Eigen/Eigenvalues>

#include "host/model/Camera.h"
#include "host/model/MatrixDouble.h"

#include <cmath>

namespace tarn {

namespace {

// How the distorted image point moves with the ideal one. By central differences, which
// serve all kinds of lenses; at this step they are good to ten digits.
Eigen::Matrix2d distortionJacobian(const LensDistortion& distortion, double u, double v) {
  if (distortion.kind() == LensDistortion::eNone) return Eigen::Matrix2d::Identity();
  constexpr double step = 1e-5;
  const Point2DDouble right = distortion.Distort({u + step, v});
  const Point2DDouble left = distortion.Distort({u - step, v});
  const Point2DDouble below = distortion.Distort({u, v + step});
  const Point2DDouble above = distortion.Distort({u, v - step});
  Eigen::Matrix2d jacobian;
  jacobian << right.x - left.x, below.x - above.x, right.y - left.y, below.y - above.y;
  return jacobian / (2.0 * step);
}

}  // namespace

int PointCovariance::AddRay(const Camera& camera, const MatrixDouble& rotation,
                            const Point3DDouble& position, const Point3DDouble& point) {
  Eigen::Matrix3d cameraFromModel;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      cameraFromModel(row, column) = rotation(row + 1, column + 1);
    }
  }
  const Point3DDouble ray = point - position;
  const Eigen::Vector3d inCamera = cameraFromModel * Eigen::Vector3d(ray.x, ray.y, ray.z);
  const double depth = -inCamera.z();
  if (!(depth > 0.0)) return 0;

  const double u = inCamera.x() / depth;
  const double v = -inCamera.y() / depth;
  Eigen::Matrix<double, 2, 3> perspective;
  perspective << 1.0, 0.0, u, 0.0, -1.0, v;
  const Point2DDouble focal = camera.focalLengthsInPixels();
  const Eigen::Matrix<double, 2, 3> jacobian =
      Eigen::DiagonalMatrix<double, 2>(focal.x, focal.y) *
      distortionJacobian(camera.GetLensDistortion(), u, v) * (perspective / depth) *
      cameraFromModel;
  if (!jacobian.allFinite()) return 0;

  Eigen::Map<Eigen::Matrix3d>(_normal.data()) += jacobian.transpose() * jacobian;
  ++_rays;
  return 1;
}

int PointCovariance::IsDetermined() const {
  if (_rays < 2) return 0;
  const Eigen::Map<const Eigen::Matrix3d> normal(_normal.data());
  Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
  solver.computeDirect(normal, Eigen::EigenvaluesOnly);
  // The eigenvalues go with the square of the angle between the rays. Below a millionth
  // of a radian it is rounding that separates them; the closed form is good to 1e-15 of
  // the largest.
  const Eigen::Vector3d& values = solver.eigenvalues();
  return values(2) > 0.0 && values(0) > 1e-12 * values(2);
}

Point3DRandom PointCovariance::Result(const Point3DDouble& point, double unitVariance) const {
  if (!IsDetermined() || !std::isfinite(unitVariance)) return Point3DRandom(point);
  const Eigen::Map<const Eigen::Matrix3d> normal(_normal.data());
  // Scaled to order one: in tiny or huge units the determinant would under- or overflow.
  const double scale = normal.diagonal().maxCoeff();
  const Eigen::Matrix3d cofactor =
      (normal / scale).llt().solve(Eigen::Matrix3d::Identity()) * (unitVariance / scale);
  if (!cofactor.allFinite()) return Point3DRandom(point);
  return Point3DRandom(point, cofactor(0, 0), cofactor(1, 1), cofactor(2, 2), cofactor(0, 1),
                       cofactor(0, 2), cofactor(1, 2));
}

}  // namespace tarn
