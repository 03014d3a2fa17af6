#include "host/model/Extents.h"

#include "tests/support/TarnTest.h"

#include <limits>

using tarn::Extents;
using tarn::Point3DDouble;

class ExtentsTest : public TarnTest {
protected:
  Point3DDouble minimum{7.0, 7.0, 7.0};
  Point3DDouble maximum{8.0, 8.0, 8.0};
};

TEST_F(ExtentsTest, AnEmptyBoxGivesNoCorners) {
  const Extents extents;
  EXPECT_TRUE(extents.IsEmpty());
  EXPECT_FALSE(extents.GetExtents(minimum, maximum));
  EXPECT_EQ(minimum, Point3DDouble(7.0, 7.0, 7.0));
  EXPECT_EQ(maximum, Point3DDouble(8.0, 8.0, 8.0));
  EXPECT_EQ(extents.GetCentre(), Point3DDouble());
  EXPECT_EQ(extents.GetLongestSide(), 0.0);
}

TEST_F(ExtentsTest, GrowsToHoldEveryPoint) {
  Extents extents;
  extents.Add({-1.0, 5.0, 2.0});
  extents.Add({3.0, -5.0, 2.0});
  extents.Add({0.0, 0.0, 9.0});
  ASSERT_TRUE(extents.GetExtents(minimum, maximum));
  EXPECT_EQ(minimum, Point3DDouble(-1.0, -5.0, 2.0));
  EXPECT_EQ(maximum, Point3DDouble(3.0, 5.0, 9.0));
  EXPECT_EQ(extents.GetCentre(), Point3DDouble(1.0, 0.0, 5.5));
  EXPECT_EQ(extents.GetLongestSide(), 10.0);
}

TEST_F(ExtentsTest, OnePointIsABoxWithoutSides) {
  Extents extents;
  extents.Add({1.0, 2.0, 3.0});
  EXPECT_FALSE(extents.IsEmpty());
  ASSERT_TRUE(extents.GetExtents(minimum, maximum));
  EXPECT_EQ(minimum, Point3DDouble(1.0, 2.0, 3.0));
  EXPECT_EQ(maximum, minimum);
}

TEST_F(ExtentsTest, IgnoresPointsThatAreNotFinite) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  Extents extents;
  extents.Add({nan, 0.0, 0.0});
  EXPECT_TRUE(extents.IsEmpty());
  extents.Add({1.0, 2.0, 3.0});
  extents.Add({0.0, infinity, 0.0});
  extents.Add({0.0, 0.0, -infinity});
  ASSERT_TRUE(extents.GetExtents(minimum, maximum));
  EXPECT_EQ(minimum, Point3DDouble(1.0, 2.0, 3.0));
  EXPECT_EQ(maximum, Point3DDouble(1.0, 2.0, 3.0));
}

TEST_F(ExtentsTest, TwoCornersMayComeInAnyOrder) {
  const Extents extents({3.0, -1.0, 9.0}, {1.0, 4.0, 2.0});
  ASSERT_TRUE(extents.GetExtents(minimum, maximum));
  EXPECT_EQ(minimum, Point3DDouble(1.0, -1.0, 2.0));
  EXPECT_EQ(maximum, Point3DDouble(3.0, 4.0, 9.0));
}
