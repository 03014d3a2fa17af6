#include "host/model/Triangle.h"

#include "host/model/ThreeDPoint.h"
#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;
using tarn::Triangle;

class TriangleTest : public TarnTest {
protected:
  tarn::ThreeDPoint points[3];
};

TEST_F(TriangleTest, ANewTriangleHasNeitherPointsNorNormals) {
  const Triangle triangle;
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(triangle.GetPoint(k), nullptr);
    EXPECT_EQ(triangle.GetNormal(k), nullptr);
  }
}

TEST_F(TriangleTest, GivesItsPointsInOrderAsAFeatureToo) {
  const Triangle triangle(&points[0], &points[1], &points[2]);
  const tarn::Feature& feature = triangle;
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(triangle.GetPoint(k), &points[k]);
    EXPECT_EQ(feature.GetThreeDPoint(k), &points[k]);
  }
}

TEST_F(TriangleTest, PointsAndNormalsAreSetOneByOne) {
  const Point3DDouble normal{0.0, 0.6, 0.8};
  Triangle triangle;
  triangle.SetPoint(1, &points[2]);
  triangle.SetNormal(2, &normal);
  EXPECT_EQ(triangle.GetPoint(0), nullptr);
  EXPECT_EQ(triangle.GetPoint(1), &points[2]);
  EXPECT_EQ(triangle.GetNormal(1), nullptr);
  EXPECT_EQ(triangle.GetNormal(2), &normal);
}

TEST_F(TriangleTest, OtherNumbersThanThoseOfCornersArePassedOver) {
  const Point3DDouble normal;
  Triangle triangle;
  for (const int corner : {-1, 3}) {
    triangle.SetPoint(corner, &points[0]);
    triangle.SetNormal(corner, &normal);
    EXPECT_EQ(triangle.GetPoint(corner), nullptr);
    EXPECT_EQ(triangle.GetThreeDPoint(corner), nullptr);
    EXPECT_EQ(triangle.GetNormal(corner), nullptr);
  }
  for (int k = 0; k < 3; ++k) EXPECT_EQ(triangle.GetPoint(k), nullptr);
}

TEST_F(TriangleTest, IsAFeatureToTheClassSystem) {
  EXPECT_TRUE(Triangle().isA(tarn::FeatureCls));
  EXPECT_EQ(tarn::VClass::find("Triangle"), &tarn::TriangleCls);
}
