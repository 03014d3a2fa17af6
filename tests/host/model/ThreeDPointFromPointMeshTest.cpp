#include "host/model/ThreeDPointFromPointMesh.h"

#include "host/model/PointMesh.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <initializer_list>

using tarn::Point3DDouble;
using tarn::ThreeDPointFromPointMesh;

class ThreeDPointFromPointMeshTest : public TarnTest {
protected:
  ThreeDPointFromPointMeshTest() {
    mesh.Allocate(2, 0);
    std::ranges::copy(std::initializer_list<float>{1.5F, 2.5F, 3.5F, -4.5F, 5.5F, -6.5F},
                      mesh.GetPointStorage().begin());
  }

  void shiftMesh() {
    tarn::BasicAffine affine;
    affine.SetTranslation({}, {5000000.0, 300.0, 10.0});
    mesh.SetLocalAffine(affine);
  }

  tarn::PointMesh mesh;
  tarn::Point3DRandom found;
  Point3DDouble stored;
};

TEST_F(ThreeDPointFromPointMeshTest, AnswersThePointOfItsMesh) {
  const ThreeDPointFromPointMesh point(&mesh, 1);
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(-4.5, 5.5, -6.5));
  EXPECT_FALSE(found.VariancesAreKnown());
  EXPECT_EQ(point.GetPointMesh(), &mesh);
  EXPECT_EQ(point.GetIndex(), 1);
  EXPECT_EQ(point.IsProcessed(), 0);
}

TEST_F(ThreeDPointFromPointMeshTest, AppliesTheLocalAffineOnlyWhereItIsAskedFor) {
  shiftMesh();
  const ThreeDPointFromPointMesh point(&mesh, 0);
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(5000001.5, 302.5, 13.5));
  ASSERT_TRUE(point.GetApproximationNoLocalAffine(stored));
  EXPECT_EQ(stored, Point3DDouble(1.5, 2.5, 3.5));
}

TEST_F(ThreeDPointFromPointMeshTest, ThroughTheBaseClassToo) {
  shiftMesh();
  const ThreeDPointFromPointMesh point(&mesh, 0);
  const tarn::ThreeDPoint& base = point;
  ASSERT_TRUE(base.GetApproximationNoLocalAffine(stored));
  EXPECT_EQ(stored, Point3DDouble(1.5, 2.5, 3.5));
  EXPECT_TRUE(base.isA(tarn::ThreeDPointCls));
  EXPECT_EQ(base.iam(), tarn::VClass::find("ThreeDPointFromPointMesh"));
}

TEST_F(ThreeDPointFromPointMeshTest, WithoutSuchAPointItHasNoPositionAndChangesNothing) {
  found = tarn::Point3DRandom(Point3DDouble{7, 8, 9});
  stored = {7, 8, 9};
  for (const ThreeDPointFromPointMesh& point :
       {ThreeDPointFromPointMesh(), ThreeDPointFromPointMesh(&mesh, -1),
        ThreeDPointFromPointMesh(&mesh, 2)}) {
    EXPECT_FALSE(point.GetApproximation(found));
    EXPECT_FALSE(point.GetApproximationNoLocalAffine(stored));
  }
  EXPECT_EQ(found.position(), Point3DDouble(7, 8, 9));
  EXPECT_EQ(stored, Point3DDouble(7, 8, 9));
}
