#include "host/model/CheckPoint.h"

#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;

class CheckPointTest : public TarnTest {
protected:
  tarn::CheckPoint point;
};

TEST_F(CheckPointTest, ANewPointIsAtTheOriginAndHasNoApproximation) {
  tarn::Point3DRandom found;
  EXPECT_EQ(point.GetPosition(), Point3DDouble());
  EXPECT_FALSE(point.GetApproximation(found));
}

TEST_F(CheckPointTest, ItsPositionIsTheKnownOne) {
  point.SetApproximation(tarn::Point3DRandom({1.0, 2.0, 3.0}, 4.0, 5.0, 6.0, 0.0, 0.0, 0.0));
  EXPECT_EQ(point.GetPosition(), Point3DDouble(1.0, 2.0, 3.0));
}

TEST_F(CheckPointTest, IsAThreeDPoint) {
  EXPECT_EQ(point.iam(), &tarn::CheckPointCls);
  EXPECT_TRUE(point.isA(tarn::ThreeDPointCls));
}
