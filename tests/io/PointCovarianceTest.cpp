#include "io/PointCovariance.h"

#include "host/model/Camera.h"
#include "host/model/MatrixDouble.h"
#include "tests/support/TarnTest.h"

namespace {

// Two stations side by side that look straight down at the point between them.
constexpr double focal = 2400.0;  // of a default camera: 24 mm on 36 mm and 3600 pixels
constexpr double height = 10.0;
constexpr double halfBase = 2.0;
const tarn::Point3DDouble point{3.0, -1.0, 0.5};
const tarn::Point3DDouble left{3.0 - halfBase, -1.0, 0.5 + height};
const tarn::Point3DDouble right{3.0 + halfBase, -1.0, 0.5 + height};

tarn::MatrixDouble rotated(double angle) {
  tarn::MatrixDouble rotation = tarn::MatrixDouble::Identity(3);
  rotation(1, 1) = rotation(3, 3) = std::cos(angle);
  rotation(1, 3) = -std::sin(angle);
  rotation(3, 1) = std::sin(angle);
  return rotation;
}

tarn::Point2DDouble projected(const tarn::Camera& camera, const tarn::MatrixDouble& rotation,
                              const tarn::Point3DDouble& position, const tarn::Point3DDouble& p) {
  const tarn::Point3DDouble ray = p - position;
  double inCamera[3];
  for (int row = 1; row <= 3; ++row) {
    inCamera[row - 1] =
        rotation(row, 1) * ray.x + rotation(row, 2) * ray.y + rotation(row, 3) * ray.z;
  }
  tarn::Point2DDouble pixel;
  EXPECT_TRUE(camera.Project(inCamera, pixel));
  return pixel;
}

}  // namespace

class PointCovarianceTest : public TarnTest {
protected:
  tarn::PointCovariance normal;
  tarn::Camera camera;
  tarn::MatrixDouble down = tarn::MatrixDouble::Identity(3);
};

TEST_F(PointCovarianceTest, OfTheNormalCaseIsThatOfTheTextbook) {
  EXPECT_TRUE(normal.AddRay(camera, down, left, point));
  EXPECT_TRUE(normal.AddRay(camera, down, right, point));
  EXPECT_EQ(normal.rays(), 2);
  ASSERT_TRUE(normal.IsDetermined());
  const double unitVariance = 0.25;
  const tarn::Point3DRandom result = normal.Result(point, unitVariance);
  // Lateral: scale number times the measurement's deviation, by the root of two rays;
  // in depth larger by the ratio of height to half the base.
  const double lateral = unitVariance * (height / focal) * (height / focal) / 2.0;
  EXPECT_EQ(result.position(), point);
  EXPECT_NEAR(result.X().variance, lateral, 1e-12 * lateral);
  EXPECT_NEAR(result.Y().variance, lateral, 1e-12 * lateral);
  const double depth = lateral * (height / halfBase) * (height / halfBase);
  EXPECT_NEAR(result.Z().variance, depth, 1e-12 * depth);
  EXPECT_NEAR(result.covarianceXY(), 0.0, 1e-12 * lateral);
  EXPECT_NEAR(result.covarianceXZ(), 0.0, 1e-12 * lateral);
  EXPECT_NEAR(result.covarianceYZ(), 0.0, 1e-12 * lateral);
}

TEST_F(PointCovarianceTest, AgreesWithDifferencesOfTheProjectionForEveryLens) {
  using Kind = tarn::LensDistortion;
  const std::pair<Kind::Kind, Kind::Parameters> lenses[] = {
      {Kind::eNone, {}},
      {Kind::eRadial, {-0.2, 0.05}},
      {Kind::eOpenCV, {-0.2, 0.05, 0.01, -0.02}},
      {Kind::eFullOpenCV, {-0.2, 0.05, 0.01, -0.02, 0.01, 0.1, 0.02, 0.003}},
      {Kind::eFieldOfView, {0.9}},
      {Kind::eFisheye, {0.05, -0.01, 0.002, 0.001}},
      {Kind::eThinPrismFisheye, {0.05, -0.01, 0.002, 0.001, 0.01, 0.001, 0.003, 0.004}},
      {Kind::eRadTanThinPrismFisheye,
       {0.05, -0.01, 0.002, 0.001, 0.01, 0.001, 0.003, 0.004, 0.001, 0.002, 0.003, 0.004}},
      {Kind::eDivision, {-0.1}},
      {Kind::eEnhancedUnified, {0.6, 1.1}}};
  for (const auto& [kind, parameters] : lenses) {
    camera.SetLensDistortion(tarn::LensDistortion(kind, parameters));
    tarn::PointCovariance sum;
    tarn::MatrixDouble expected(3, 3);
    const std::pair<tarn::MatrixDouble, tarn::Point3DDouble> stations[] = {
        {rotated(0.3), left}, {rotated(-0.2), right}, {rotated(0.1), {3.5, 1.0, 9.0}}};
    for (const auto& [rotation, position] : stations) {
      ASSERT_TRUE(sum.AddRay(camera, rotation, position, point));
      double jacobian[2][3];
      for (int k = 0; k < 3; ++k) {
        constexpr double step = 1e-4;
        const tarn::Point3DDouble move{k == 0 ? step : 0, k == 1 ? step : 0, k == 2 ? step : 0};
        const auto after = projected(camera, rotation, position, point + move);
        const auto before = projected(camera, rotation, position, point - move);
        jacobian[0][k] = (after.x - before.x) / (2 * step);
        jacobian[1][k] = (after.y - before.y) / (2 * step);
      }
      for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
          expected(i + 1, j + 1) +=
              jacobian[0][i] * jacobian[0][j] + jacobian[1][i] * jacobian[1][j];
        }
      }
    }
    ASSERT_TRUE(expected.invert());
    const tarn::Point3DRandom result = sum.Result(point, 2.0);
    const double close = 1e-6 * expected(3, 3);
    EXPECT_NEAR(result.X().variance, 2.0 * expected(1, 1), close) << kind;
    EXPECT_NEAR(result.Y().variance, 2.0 * expected(2, 2), close) << kind;
    EXPECT_NEAR(result.Z().variance, 2.0 * expected(3, 3), 4 * close) << kind;
    EXPECT_NEAR(result.covarianceXY(), 2.0 * expected(1, 2), close) << kind;
    EXPECT_NEAR(result.covarianceXZ(), 2.0 * expected(1, 3), close) << kind;
    EXPECT_NEAR(result.covarianceYZ(), 2.0 * expected(2, 3), close) << kind;
  }
}

TEST_F(PointCovarianceTest, OfOneRayIsUnknown) {
  normal.AddRay(camera, down, left, point);
  EXPECT_FALSE(normal.IsDetermined());
  const tarn::Point3DRandom result = normal.Result(point, 1.0);
  EXPECT_EQ(result.position(), point);
  EXPECT_TRUE(result.X().varianceUnknown);
  EXPECT_TRUE(result.Y().varianceUnknown);
  EXPECT_TRUE(result.Z().varianceUnknown);
}

TEST_F(PointCovarianceTest, OfRaysInOneLineIsUnknown) {
  normal.AddRay(camera, rotated(0.2), left, point);
  normal.AddRay(camera, rotated(-0.1), left, point);
  normal.AddRay(camera, down, point + 2.0 * (left - point), point);
  EXPECT_EQ(normal.rays(), 3);
  EXPECT_FALSE(normal.IsDetermined());
  EXPECT_TRUE(normal.Result(point, 1.0).Z().varianceUnknown);
}

TEST_F(PointCovarianceTest, DoesNotDependOnTheUnits) {
  for (const double unit : {1e-9, 1e9}) {
    tarn::PointCovariance scaled;
    scaled.AddRay(camera, down, unit * left, unit * point);
    scaled.AddRay(camera, down, unit * right, unit * point);
    const tarn::Point3DRandom result = scaled.Result(unit * point, 1.0);
    const double lateral = unit * unit * (height / focal) * (height / focal) / 2.0;
    EXPECT_NEAR(result.X().variance, lateral, 1e-6 * lateral);
  }
}

TEST_F(PointCovarianceTest, LeavesOutARayToAPointBehindTheCamera) {
  EXPECT_FALSE(normal.AddRay(camera, down, {1.0, 2.0, -5.0}, point));
  EXPECT_FALSE(normal.AddRay(camera, down, point, point));
  EXPECT_EQ(normal.rays(), 0);
}

TEST_F(PointCovarianceTest, LeavesOutARayOfWhichTheLensHasNoImage) {
  camera.SetLensDistortion(tarn::LensDistortion(tarn::LensDistortion::eDivision, {8.0}));
  EXPECT_FALSE(normal.AddRay(camera, down, {3.0 + 9.0, -1.0, 10.5}, point));
  EXPECT_EQ(normal.rays(), 0);
}

TEST_F(PointCovarianceTest, IsUnknownWithoutAUnitVariance) {
  normal.AddRay(camera, down, left, point);
  normal.AddRay(camera, down, right, point);
  EXPECT_TRUE(normal.Result(point, std::nan("")).X().varianceUnknown);
}
