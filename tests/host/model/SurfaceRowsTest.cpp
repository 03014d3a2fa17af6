#include "host/model/SurfaceRows.h"

#include "host/model/ControlPoints.h"
#include "tests/support/SplineSurfaces.h"
#include "tests/support/TarnTest.h"

using SplineReference::vectorOf;

class SurfaceRowsTest : public TarnTest, public ::testing::WithParamInterface<NamedSurface> {
protected:
  const SurfaceData data = GetParam().make();
  const tarn::KnotVector knotsU = tarn::KnotVector::make(data.degreeU, data.knotsU).value();
  const tarn::KnotVector knotsV = tarn::KnotVector::make(data.degreeV, data.knotsV).value();
  const std::vector<tarn::HomogeneousPoint> weighted = tarn::ControlPoints::weighted(
      data.points, tarn::ControlPoints::weightsOrOnes(data.points, data.weights), {});
  const tarn::SurfaceSpline surface{knotsU, knotsV, weighted};

  static std::vector<double> between(const tarn::KnotVector& knots) {
    std::vector<double> result;
    for (const double share : {0.05, 0.3, 0.62, 0.9}) {
      result.push_back(knots.begin() + share * (knots.end() - knots.begin()));
    }
    return result;
  }
};

TEST_P(SurfaceRowsTest, PointsAndDerivativesAreTheSurfacesOwn) {
  const auto u = between(knotsU);
  const auto v = between(knotsV);
  const double size = vectorOf(data.points.front()).norm() + 1.0;
  constexpr double step = 1e-5;
  tarn::SurfaceRows rows(surface, u, v);
  for (std::size_t j = 0; j < v.size(); ++j) {
    const auto& row = rows.row(static_cast<int>(j));
    ASSERT_EQ(row.size(), u.size());
    for (std::size_t i = 0; i < u.size(); ++i) {
      const auto around =
          data.at({u[i] - step, u[i], u[i] + step}, {v[j] - step, v[j], v[j] + step});
      EXPECT_NEAR((vectorOf(row[i].point) - around[4]).norm(), 0.0, 1e-14 * size);
      const Eigen::Vector3d alongU = (around[5] - around[3]) / (2 * step);
      const Eigen::Vector3d alongV = (around[7] - around[1]) / (2 * step);
      EXPECT_NEAR((vectorOf(row[i].alongU) - alongU).norm(), 0.0, 1e-7 + 1e-10 * size);
      EXPECT_NEAR((vectorOf(row[i].alongV) - alongV).norm(), 0.0, 1e-7 + 1e-10 * size);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(SurfaceRowsTest, SurfaceRowsTest, ::testing::ValuesIn(namedSurfaces));
