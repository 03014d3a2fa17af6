#include "host/model/ThreeDPointFromTarnObject.h"

#include "tests/support/TarnTest.h"

class ThreeDPointFromTarnObjectTest : public TarnTest {
protected:
  tarn::ThreeDPointFromTarnObject point;
};

TEST_F(ThreeDPointFromTarnObjectTest, NamesTheObjectThatItIsDerivedFrom) {
  tarn::VObject object;
  EXPECT_EQ(point.GetTarnObject(), nullptr);
  point.SetTarnObject(&object);
  EXPECT_EQ(point.GetTarnObject(), &object);
}

TEST_F(ThreeDPointFromTarnObjectTest, HasThePositionThatWasComputed) {
  tarn::Point3DRandom found;
  EXPECT_FALSE(point.GetApproximation(found));
  point.SetApproximation(tarn::Point3DRandom(tarn::Point3DDouble{1.0, 2.0, 3.0}));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), tarn::Point3DDouble(1.0, 2.0, 3.0));
}

TEST_F(ThreeDPointFromTarnObjectTest, IsAThreeDPoint) {
  EXPECT_EQ(point.iam(), &tarn::ThreeDPointFromTarnObjectCls);
  EXPECT_TRUE(point.isA(tarn::ThreeDPointCls));
}
