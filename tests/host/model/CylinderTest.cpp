#include "host/model/Cylinder.h"

#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;

class CylinderTest : public TarnTest {};

TEST_F(CylinderTest, ANewOneIsAPointThatIsNotProlonged) {
  const tarn::Cylinder cylinder;
  Point3DDouble ends[2] = {{1, 2, 3}, {4, 5, 6}};
  cylinder.GetEndPoints(ends);
  EXPECT_EQ(ends[0], Point3DDouble());
  EXPECT_EQ(ends[1], Point3DDouble());
  EXPECT_EQ(cylinder.GetRadius(), 0.0);
  EXPECT_EQ(cylinder.GetThreeDExtenstionFactor(), 1.0);
}

TEST_F(CylinderTest, TellsWhatItWasSetTo) {
  tarn::Cylinder cylinder;
  cylinder.SetEndPoints({1, 2, 3}, {4, 5, 6});
  cylinder.SetRadius(2.5);
  cylinder.SetThreeDExtenstionFactor(1.75);
  Point3DDouble ends[2];
  cylinder.GetEndPoints(ends);
  EXPECT_EQ(ends[0], Point3DDouble(1, 2, 3));
  EXPECT_EQ(ends[1], Point3DDouble(4, 5, 6));
  EXPECT_EQ(cylinder.GetRadius(), 2.5);
  EXPECT_EQ(cylinder.GetThreeDExtenstionFactor(), 1.75);
}
