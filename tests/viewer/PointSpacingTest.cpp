#include "viewer/PointSpacing.h"

#include "host/model/Project.h"
#include "tests/support/TarnTest.h"

#include <cmath>

class PointSpacingTest : public TarnTest {
protected:
  // A square grid, `times` points in each place.
  void addGrid(int side, float spacing, int times = 1) {
    tarn::PointMesh& mesh = project.AddPointMesh();
    mesh.Allocate(side * side * times, 0);
    for (int i = 0; i < side * side * times; ++i) {
      const int place = i / times;
      mesh.GetPoints()[i][0] = spacing * static_cast<float>(place % side);
      mesh.GetPoints()[i][1] = spacing * static_cast<float>(place / side);
      mesh.GetPoints()[i][2] = 5.0F;
    }
  }

  tarn::Project project;
};

TEST_F(PointSpacingTest, OfAGridIsItsSpacing) {
  addGrid(60, 0.25F);
  EXPECT_EQ(PointSpacing::of(project), 0.25);
}

TEST_F(PointSpacingTest, PointsInTheSamePlaceAreNoNeighbours) {
  addGrid(20, 0.5F, 3);
  EXPECT_EQ(PointSpacing::of(project), 0.5);
}

TEST_F(PointSpacingTest, TheMeshWithMostPointsDecides) {
  addGrid(10, 8.0F);
  addGrid(100, 0.125F);
  EXPECT_EQ(PointSpacing::of(project), 0.125);
}

TEST_F(PointSpacingTest, FewPointsOutOfOrderDoNotMatter) {
  addGrid(60, 0.25F);
  tarn::PointMesh& far = project.AddPointMesh();
  far.Allocate(2, 0);
  for (int i = 0; i < 2; ++i) {
    for (int k = 0; k < 3; ++k) far.GetPoints()[i][k] = 1000.0F * static_cast<float>(i);
  }
  EXPECT_EQ(PointSpacing::of(project), 0.25);
}

TEST_F(PointSpacingTest, IsThatOfTheModelWhereTheMeshIsScaled) {
  addGrid(20, 0.5F);
  tarn::BasicAffine model_from_stored;
  model_from_stored.SetScale(10.0);
  static_cast<tarn::PointMesh*>(project.GetPointMeshes().at(0))->SetLocalAffine(model_from_stored);
  EXPECT_DOUBLE_EQ(PointSpacing::of(project), 5.0);
}

TEST_F(PointSpacingTest, WithoutTwoPlacesItIsZero) {
  EXPECT_EQ(PointSpacing::of(project), 0.0);
  project.AddPointMesh();
  EXPECT_EQ(PointSpacing::of(project), 0.0);
  addGrid(1, 1.0F, 4);
  EXPECT_EQ(PointSpacing::of(project), 0.0);
}
