#include "host/model/Plane3D.h"

#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>

using tarn::Plane3D;
using tarn::Point3DDouble;

class Plane3DTest : public TarnTest {
protected:
  Plane3D plane;
  Point3DDouble normal;
  double distance = 0.0;

  void expectUnchanged() {
    plane.GetHessian(normal, distance);
    EXPECT_EQ(normal, Point3DDouble(0.0, 0.0, 1.0));
    EXPECT_EQ(distance, 0.0);
  }
};

TEST_F(Plane3DTest, ANewPlaneIsHorizontalThroughTheOrigin) { expectUnchanged(); }

TEST_F(Plane3DTest, TheThreePointsStandCounterClockwiseSeenFromTheNormalsSide) {
  ASSERT_TRUE(plane.SetThreePoints({4.0, 0.0, 0.0}, {4.0, 2.0, 0.0}, {4.0, 0.0, 3.0}));
  plane.GetHessian(normal, distance);
  EXPECT_EQ(normal, Point3DDouble(1.0, 0.0, 0.0));
  EXPECT_EQ(distance, 4.0);
  ASSERT_TRUE(plane.SetThreePoints({4.0, 0.0, 0.0}, {4.0, 0.0, 3.0}, {4.0, 2.0, 0.0}));
  plane.GetHessian(normal, distance);
  EXPECT_EQ(normal, Point3DDouble(-1.0, 0.0, 0.0));
  EXPECT_EQ(distance, -4.0);
}

TEST_F(Plane3DTest, PointsOfThePlaneFulfilTheHessianForm) {
  const Point3DDouble a{1.0, 2.0, 3.0};
  const Point3DDouble b{-4.0, 5.5, 6.25};
  const Point3DDouble c{7.0, -8.0, 0.5};
  ASSERT_TRUE(plane.SetThreePoints(a, b, c));
  plane.GetHessian(normal, distance);
  EXPECT_NEAR(normal.length(), 1.0, 1e-15);
  for (const Point3DDouble& p : {a, b, c, 0.3 * a + 0.2 * b + 0.5 * c}) {
    EXPECT_NEAR(normal.x * p.x + normal.y * p.y + normal.z * p.z, distance, 1e-14);
    EXPECT_NEAR(plane.GetSignedDistance(p), 0.0, 1e-14);
  }
}

TEST_F(Plane3DTest, DistancesArePositiveOnTheNormalsSide) {
  ASSERT_TRUE(plane.SetThreePoints({1.0, 0.0, 5.0}, {0.0, 1.0, 5.0}, {0.0, 0.0, 5.0}));
  EXPECT_DOUBLE_EQ(plane.GetSignedDistance({3.0, -7.0, 7.5}), 2.5);
  EXPECT_DOUBLE_EQ(plane.GetSignedDistance({3.0, -7.0, 4.0}), -1.0);
}

TEST_F(Plane3DTest, DistancesKeepTheirDigitsFarFromTheOrigin) {
  const Point3DDouble far{5e6, -4e6, 3e6};
  ASSERT_TRUE(plane.SetThreePoints(far, far + Point3DDouble(1.0, 1.0, 0.25),
                                   far + Point3DDouble(-1.0, 2.0, 0.5)));
  plane.GetHessian(normal, distance);
  EXPECT_NEAR(plane.GetSignedDistance(far + 0.125 * normal), 0.125, 1e-9);
}

TEST_F(Plane3DTest, ThreePointsOfWhichTwoAreTheSameAreRefused) {
  EXPECT_FALSE(plane.SetThreePoints({1.0, 2.0, 3.0}, {1.0, 2.0, 3.0}, {4.0, 5.0, 7.0}));
  EXPECT_FALSE(plane.SetThreePoints({1.0, 2.0, 3.0}, {4.0, 5.0, 7.0}, {1.0, 2.0, 3.0}));
  EXPECT_FALSE(plane.SetThreePoints({4.0, 5.0, 7.0}, {1.0, 2.0, 3.0}, {1.0, 2.0, 3.0}));
  expectUnchanged();
}

TEST_F(Plane3DTest, ThreePointsOnALineAreRefused) {
  EXPECT_FALSE(plane.SetThreePoints({1.0, 2.0, 3.0}, {2.0, 4.0, 6.0}, {-3.0, -6.0, -9.0}));
  expectUnchanged();
}

TEST_F(Plane3DTest, PointsThatAreNotFiniteAreRefused) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(plane.SetThreePoints({nan, 0.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}));
  EXPECT_FALSE(plane.SetThreePoints({0.0, 0.0, 0.0}, {1.0, infinite, 0.0}, {0.0, 1.0, 0.0}));
  EXPECT_FALSE(plane.SetThreePoints({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 1.0, nan}));
  expectUnchanged();
}

TEST_F(Plane3DTest, TinyAndHugeTrianglesDefineAPlane) {
  ASSERT_TRUE(plane.SetThreePoints({0.0, 0.0, 0.0}, {0.0, 1e-200, 0.0}, {0.0, 0.0, 1e-200}));
  plane.GetHessian(normal, distance);
  EXPECT_EQ(normal, Point3DDouble(1.0, 0.0, 0.0));
  ASSERT_TRUE(plane.SetThreePoints({0.0, 0.0, 0.0}, {0.0, 1e200, 0.0}, {0.0, 0.0, 1e200}));
  plane.GetHessian(normal, distance);
  EXPECT_EQ(normal, Point3DDouble(1.0, 0.0, 0.0));
}
