#include "host/model/ThreeDPoint.h"

#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;
using tarn::Point3DRandom;

class ThreeDPointTest : public TarnTest {
protected:
  tarn::ThreeDPoint point;
  Point3DRandom found{Point3DDouble{7.0, 8.0, 9.0}};
};

TEST_F(ThreeDPointTest, ANewPointHasNoPosition) {
  EXPECT_FALSE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(7.0, 8.0, 9.0));
  EXPECT_FALSE(point.IsProcessed());
}

TEST_F(ThreeDPointTest, GivesBackThePositionWithItsWholeCovariance) {
  point.SetApproximation(Point3DRandom({1.0, 2.0, 3.0}, 4.0, 5.0, 6.0, 0.1, 0.2, 0.3));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(1.0, 2.0, 3.0));
  EXPECT_TRUE(found.VariancesAreKnown());
  EXPECT_EQ(found.X().variance, 4.0);
  EXPECT_EQ(found.Y().variance, 5.0);
  EXPECT_EQ(found.Z().variance, 6.0);
  EXPECT_EQ(found.covarianceXY(), 0.1);
  EXPECT_EQ(found.covarianceXZ(), 0.2);
  EXPECT_EQ(found.covarianceYZ(), 0.3);
}

TEST_F(ThreeDPointTest, VariancesThatAreNotKnownStayUnknown) {
  point.SetApproximation(Point3DRandom({1.0, 2.0, 3.0}, 4.0, 5.0, 6.0, 0.1, 0.2, 0.3));
  point.SetApproximation(Point3DRandom(Point3DDouble{4.0, 5.0, 6.0}));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(4.0, 5.0, 6.0));
  EXPECT_FALSE(found.VariancesAreKnown());
}

TEST_F(ThreeDPointTest, AnyNonZeroFlagMeansProcessed) {
  point.SetProcessed(256);
  EXPECT_TRUE(point.IsProcessed());
  point.SetProcessed(0);
  EXPECT_FALSE(point.IsProcessed());
}
TEST_F(ThreeDPointTest, WithoutAMeshThePositionWithoutItsLocalAffineIsThePosition) {
  Point3DDouble stored{7.0, 8.0, 9.0};
  EXPECT_FALSE(point.GetApproximationNoLocalAffine(stored));
  EXPECT_EQ(stored, Point3DDouble(7.0, 8.0, 9.0));
  point.SetApproximation(Point3DRandom(Point3DDouble{1.0, 2.0, 3.0}));
  ASSERT_TRUE(point.GetApproximationNoLocalAffine(stored));
  EXPECT_EQ(stored, Point3DDouble(1.0, 2.0, 3.0));
}
