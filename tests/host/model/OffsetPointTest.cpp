#include "host/model/OffsetPoint.h"

#include "host/model/ObjectPoint.h"
#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;
using tarn::Point3DRandom;

class OffsetPointTest : public TarnTest {
protected:
  tarn::ObjectPoint from;
  tarn::OffsetPoint point;
  Point3DRandom found;
};

TEST_F(OffsetPointTest, ANewPointHasNeitherObjectPointNorPosition) {
  EXPECT_EQ(point.GetObjectPoint(), nullptr);
  EXPECT_EQ(point.GetOffset(), Point3DDouble());
  EXPECT_FALSE(point.GetApproximation(found));
  EXPECT_FALSE(point.IsProcessed());
}

TEST_F(OffsetPointTest, StandsAtTheOffsetFromItsObjectPointAndFollowsIt) {
  point.SetOffset(&from, {10.0, 20.0, 30.0});
  EXPECT_EQ(point.GetObjectPoint(), &from);
  EXPECT_EQ(point.GetOffset(), Point3DDouble(10.0, 20.0, 30.0));
  EXPECT_FALSE(point.GetApproximation(found)) << "the object point has no position yet";
  from.SetApproximation(Point3DRandom(Point3DDouble{1.0, 2.0, 3.0}));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(11.0, 22.0, 33.0));
  from.SetApproximation(Point3DRandom(Point3DDouble{-1.0, -2.0, -3.0}));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(9.0, 18.0, 27.0));
}

TEST_F(OffsetPointTest, IsAsPreciseAsItsObjectPoint) {
  from.SetApproximation(Point3DRandom({1.0, 2.0, 3.0}, 4.0, 5.0, 6.0, 0.1, 0.2, 0.3));
  point.SetOffset(&from, {10.0, 20.0, 30.0});
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.X().variance, 4.0);
  EXPECT_EQ(found.Y().variance, 5.0);
  EXPECT_EQ(found.Z().variance, 6.0);
  EXPECT_EQ(found.covarianceXY(), 0.1);
  EXPECT_EQ(found.covarianceXZ(), 0.2);
  EXPECT_EQ(found.covarianceYZ(), 0.3);
  EXPECT_TRUE(found.VariancesAreKnown());
  from.SetApproximation(Point3DRandom(Point3DDouble{1.0, 2.0, 3.0}));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_FALSE(found.VariancesAreKnown());
}

TEST_F(OffsetPointTest, APositionOfItsOwnGoesBeforeTheOffset) {
  from.SetApproximation(Point3DRandom(Point3DDouble{1.0, 2.0, 3.0}));
  point.SetOffset(&from, {10.0, 20.0, 30.0});
  point.SetApproximation(Point3DRandom(Point3DDouble{7.0, 8.0, 9.0}));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(7.0, 8.0, 9.0));
}

TEST_F(OffsetPointTest, IsProcessedWithItsObjectPointOrByItself) {
  point.SetOffset(&from, {});
  EXPECT_FALSE(point.IsProcessed());
  from.SetProcessed(1);
  EXPECT_TRUE(point.IsProcessed());
  from.SetProcessed(0);
  point.SetProcessed(1);
  EXPECT_TRUE(point.IsProcessed());
}

TEST_F(OffsetPointTest, IsAThreeDPoint) {
  EXPECT_EQ(point.iam(), &tarn::OffsetPointCls);
  EXPECT_TRUE(point.isA(tarn::ThreeDPointCls));
}
