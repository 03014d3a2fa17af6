#include "host/model/NURBSSurfaceCylinder.h"

#include "tests/support/SplineReference.h"
#include "tests/support/TarnTest.h"

#include <limits>

using SplineReference::vectorOf;
using tarn::Point3DDouble;

class NURBSSurfaceCylinderTest : public TarnTest {
protected:
  NURBSSurfaceCylinderTest() {
    surface.GetCylinder()->SetEndPoints(first, second);
    surface.GetCylinder()->SetRadius(2.5);
  }
  std::vector<const tarn::Triangle*> triangles() {
    std::vector<const tarn::Triangle*> result;
    for (int i = 0; i < surface.GetTriangles()->size(); ++i) {
      result.push_back(static_cast<const tarn::Triangle*>(surface.GetTriangles()->at(i)));
    }
    return result;
  }
  static Eigen::Vector3d cornerOf(const tarn::Triangle* triangle, int corner) {
    tarn::Point3DRandom position;
    EXPECT_TRUE(triangle->GetPoint(corner)->GetApproximation(position));
    return vectorOf(position.position());
  }

  const Point3DDouble first{1, 2, 3};
  const Point3DDouble second{4, -5, 30};
  tarn::NURBSSurfaceCylinder surface;
};

TEST_F(NURBSSurfaceCylinderTest, IsSeenFromBothSidesForItIsOpen) {
  EXPECT_TRUE(surface.IsDoubleSided());
  EXPECT_TRUE(surface.isA(tarn::NURBSSurfaceCls));
}

TEST_F(NURBSSurfaceCylinderTest, IsRoundAndItsNormalsPointOutwards) {
  ASSERT_TRUE(surface.Tessellate(0.01));
  const Eigen::Vector3d axis = (vectorOf(second) - vectorOf(first)).normalized();
  for (const tarn::Triangle* triangle : triangles()) {
    for (int k = 0; k < 3; ++k) {
      const Eigen::Vector3d from = cornerOf(triangle, k) - vectorOf(first);
      const Eigen::Vector3d out = from - axis.dot(from) * axis;
      EXPECT_NEAR(out.norm(), 2.5, 1e-13);
      ASSERT_NE(triangle->GetNormal(k), nullptr);
      EXPECT_NEAR((vectorOf(*triangle->GetNormal(k)) - out / 2.5).norm(), 0.0, 1e-13);
    }
    const Eigen::Vector3d a = cornerOf(triangle, 0);
    const Eigen::Vector3d across = (cornerOf(triangle, 1) - a).cross(cornerOf(triangle, 2) - a);
    EXPECT_GT(across.dot(vectorOf(*triangle->GetNormal(0))), 0.0);
  }
}

TEST_F(NURBSSurfaceCylinderTest, HasOneRowOfTrianglesFromEndToEnd) {
  for (const double tolerance : {0.1, 0.01, 0.0001}) {
    ASSERT_TRUE(surface.Tessellate(tolerance));
    const auto count = static_cast<double>(triangles().size());
    const double needed = 2 * M_PI / std::acos(1 - tolerance / 2.5);
    EXPECT_GE(count, needed);
    EXPECT_LE(count, 1.02 * needed + 10);
  }
  const double length = (second - first).length();
  const Eigen::Vector3d axis = (vectorOf(second) - vectorOf(first)) / length;
  for (const tarn::Triangle* triangle : triangles()) {
    for (int k = 0; k < 3; ++k) {
      const double along = axis.dot(cornerOf(triangle, k) - vectorOf(first));
      EXPECT_NEAR(along > length / 2 ? along - length : along, 0.0, 1e-13);
    }
  }
}

TEST_F(NURBSSurfaceCylinderTest, MeetsItselfWithoutAGap) {
  ASSERT_TRUE(surface.Tessellate(0.1));
  const auto all = triangles();
  // The first corner of the first triangle, and the second of the last but one, are where u
  // begins and ends.
  EXPECT_EQ(cornerOf(all.front(), 0), cornerOf(all[all.size() - 2], 1));
  EXPECT_EQ(cornerOf(all[1], 2), cornerOf(all.back(), 1));
}

TEST_F(NURBSSurfaceCylinderTest, FollowsTheCylinderWhenItIsTessellatedAgain) {
  ASSERT_TRUE(surface.Tessellate(0.1));
  surface.SetTextureFile(0, "bark.jpg");
  surface.GetCylinder()->SetRadius(7);
  ASSERT_TRUE(surface.Tessellate(0.1));
  EXPECT_NEAR((cornerOf(triangles().front(), 0) - vectorOf(first)).norm(), 7.0, 1e-13);
  EXPECT_STREQ(surface.GetTextureFile(0)->text(), "bark.jpg");
}

TEST_F(NURBSSurfaceCylinderTest, WithoutRadiusOrAxisOrToleranceNothingChanges) {
  ASSERT_TRUE(surface.Tessellate(0.1));
  const auto before = triangles();
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  for (const double wrong : {0.0, -1.0, notANumber, infinite}) {
    EXPECT_FALSE(surface.Tessellate(wrong)) << wrong;
    surface.GetCylinder()->SetRadius(wrong);
    EXPECT_FALSE(surface.Tessellate(0.1)) << wrong;
    surface.GetCylinder()->SetRadius(2.5);
  }
  surface.GetCylinder()->SetEndPoints(first, first);
  EXPECT_FALSE(surface.Tessellate(0.1));
  surface.GetCylinder()->SetEndPoints(first, {notANumber, 0, 0});
  EXPECT_FALSE(surface.Tessellate(0.1));
  EXPECT_EQ(triangles(), before);
}
