#include "host/general/VectorProducts.h"

#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;

class VectorProductsTest : public TarnTest {
protected:
  const Point3DDouble a{1, 2, 3};
  const Point3DDouble b{-4, 5, 7};
};

TEST_F(VectorProductsTest, TheScalarProductIsTheSumOfTheProducts) { EXPECT_EQ(dot(a, b), 27.0); }

TEST_F(VectorProductsTest, TheVectorProductFollowsTheRightHand) {
  EXPECT_EQ(cross(a, b), Point3DDouble(-1, -19, 13));
  EXPECT_EQ(cross(b, a), Point3DDouble(1, 19, -13));
  EXPECT_EQ(tarn::cross({1, 0, 0}, {0, 1, 0}), Point3DDouble(0, 0, 1));
}
