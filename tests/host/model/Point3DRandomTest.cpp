#include "host/model/Point3DRandom.h"

#include "host/model/MatrixDouble.h"
#include "host/model/VectorDouble.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>

using tarn::MatrixDouble;
using tarn::Point3DDouble;
using tarn::Point3DRandom;
using tarn::VectorDouble;

class Point3DRandomTest : public TarnTest {
protected:
  // E diag(values) E^T, element by element.
  static double composed(const MatrixDouble& vectors, const VectorDouble& values, int i, int j) {
    double sum = 0.0;
    for (int k = 1; k <= 3; ++k) sum += vectors(i, k) * values(k) * vectors(j, k);
    return sum;
  }

  static double determinant(const MatrixDouble& m) {
    return m(1, 1) * (m(2, 2) * m(3, 3) - m(2, 3) * m(3, 2)) -
           m(1, 2) * (m(2, 1) * m(3, 3) - m(2, 3) * m(3, 1)) +
           m(1, 3) * (m(2, 1) * m(3, 2) - m(2, 2) * m(3, 1));
  }

  MatrixDouble vectors;
  VectorDouble values;
};

TEST_F(Point3DRandomTest, APointWithoutCovarianceHasUnknownVariances) {
  const Point3DRandom point(Point3DDouble{1.0, 2.0, 3.0});
  EXPECT_EQ(point.position(), Point3DDouble(1.0, 2.0, 3.0));
  EXPECT_TRUE(point.X().varianceUnknown);
  EXPECT_TRUE(point.Y().varianceUnknown);
  EXPECT_TRUE(point.Z().varianceUnknown);
  EXPECT_FALSE(point.VariancesAreKnown());
  EXPECT_FALSE(point.EigenVectorValues(vectors, values));
  EXPECT_EQ(vectors.rows(), 0);
}

TEST_F(Point3DRandomTest, ANewPointIsTheOriginWithUnknownVariances) {
  EXPECT_EQ(Point3DRandom().position(), Point3DDouble());
  EXPECT_FALSE(Point3DRandom().VariancesAreKnown());
}

TEST_F(Point3DRandomTest, KeepsItsCovariance) {
  const Point3DRandom point({1.0, 2.0, 3.0}, 4.0, 5.0, 6.0, 0.1, 0.2, 0.3);
  EXPECT_TRUE(point.VariancesAreKnown());
  EXPECT_EQ(point.X().value, 1.0);
  EXPECT_EQ(point.X().variance, 4.0);
  EXPECT_EQ(point.Y().variance, 5.0);
  EXPECT_EQ(point.Z().variance, 6.0);
  EXPECT_EQ(point.covarianceXY(), 0.1);
  EXPECT_EQ(point.covarianceXZ(), 0.2);
  EXPECT_EQ(point.covarianceYZ(), 0.3);
}

TEST_F(Point3DRandomTest, PrincipalAxesOfAPlainCovarianceAreTheCoordinateAxes) {
  const Point3DRandom point({}, 9.0, 1.0, 4.0, 0.0, 0.0, 0.0);
  ASSERT_TRUE(point.EigenVectorValues(vectors, values));
  ASSERT_EQ(values.size(), 3);
  EXPECT_NEAR(values(1), 1.0, 1e-14);
  EXPECT_NEAR(values(2), 4.0, 1e-14);
  EXPECT_NEAR(values(3), 9.0, 1e-14);
  EXPECT_NEAR(std::abs(vectors(2, 1)), 1.0, 1e-14);
  EXPECT_NEAR(std::abs(vectors(3, 2)), 1.0, 1e-14);
  EXPECT_NEAR(std::abs(vectors(1, 3)), 1.0, 1e-14);
}

TEST_F(Point3DRandomTest, AxesAndValuesComposeTheCovariance) {
  const Point3DRandom point({5.0, 6.0, 7.0}, 4.0, 5.0, 6.0, 1.5, -0.5, 0.75);
  ASSERT_TRUE(point.EigenVectorValues(vectors, values));
  EXPECT_NEAR(composed(vectors, values, 1, 1), 4.0, 1e-13);
  EXPECT_NEAR(composed(vectors, values, 2, 2), 5.0, 1e-13);
  EXPECT_NEAR(composed(vectors, values, 3, 3), 6.0, 1e-13);
  EXPECT_NEAR(composed(vectors, values, 1, 2), 1.5, 1e-13);
  EXPECT_NEAR(composed(vectors, values, 1, 3), -0.5, 1e-13);
  EXPECT_NEAR(composed(vectors, values, 2, 3), 0.75, 1e-13);
  EXPECT_LE(values(1), values(2));
  EXPECT_LE(values(2), values(3));
}

TEST_F(Point3DRandomTest, TheAxesAreARotationNoReflection) {
  // Of these some come out left-handed from the solver.
  for (int i = 0; i < 20; ++i) {
    const Point3DRandom point({}, 4.0 + i, 5.0, 6.0 - 0.2 * i, 0.1 * i, -0.5, 0.05 * i);
    ASSERT_TRUE(point.EigenVectorValues(vectors, values));
    EXPECT_NEAR(determinant(vectors), 1.0, 1e-12) << i;
  }
}

TEST_F(Point3DRandomTest, AFlatCovarianceHasAZeroAxisNotANegativeOne) {
  // The outer product of (1, 2, 3) by itself: one axis only.
  const Point3DRandom line({}, 1.0, 4.0, 9.0, 2.0, 3.0, 6.0);
  ASSERT_TRUE(line.EigenVectorValues(vectors, values));
  EXPECT_GE(values(1), 0.0);
  EXPECT_NEAR(values(1), 0.0, 1e-12);
  EXPECT_NEAR(values(2), 0.0, 1e-12);
  EXPECT_NEAR(values(3), 14.0, 1e-12);
}

TEST_F(Point3DRandomTest, WhatIsNoCovarianceIsRefused) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(Point3DRandom({}, 1, 1, -1, 0, 0, 0).EigenVectorValues(vectors, values));
  EXPECT_FALSE(Point3DRandom({}, 1, 1, 1, 2, 0, 0).EigenVectorValues(vectors, values));
  EXPECT_FALSE(Point3DRandom({}, 1, nan, 1, 0, 0, 0).EigenVectorValues(vectors, values));
  EXPECT_FALSE(Point3DRandom({}, 1, 1, 1, 0, infinity, 0).EigenVectorValues(vectors, values));
}
