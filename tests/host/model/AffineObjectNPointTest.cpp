#include "host/model/AffineObjectNPoint.h"

#include "tests/support/TarnTest.h"

class AffineObjectNPointTest : public TarnTest {
protected:
  tarn::AffineObjectNPoint point;
};

TEST_F(AffineObjectNPointTest, ANewPointIsAtTheOriginWithoutAPosition) {
  EXPECT_FALSE(point.HasPosition());
  EXPECT_EQ(point.GetPosition(), tarn::Point3DDouble());
}

TEST_F(AffineObjectNPointTest, HasThePositionThatWasSet) {
  point.SetPosition({1.0, 2.0, 3.0});
  EXPECT_TRUE(point.HasPosition());
  EXPECT_EQ(point.GetPosition(), tarn::Point3DDouble(1.0, 2.0, 3.0));
}

TEST_F(AffineObjectNPointTest, IsAnAffineObjectAndAnAffineObjectIsNotOne) {
  const tarn::AffineObject object;
  EXPECT_TRUE(point.isA(tarn::AffineObjectCls));
  EXPECT_TRUE(point.isA(tarn::AffineObjectNPointCls));
  EXPECT_FALSE(object.isA(tarn::AffineObjectNPointCls));
}
