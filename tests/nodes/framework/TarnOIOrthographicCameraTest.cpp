#include "nodes/framework/TarnOIOrthographicCamera.h"

#include "tests/nodes/framework/FrontRectangleFixture.h"

/// What is this camera's own; FrontRectangleTest has what both cameras do alike.
class TarnOIOrthographicCameraTest : public FrontRectangleFixture<TarnOIOrthographicCamera> {};

TEST_F(TarnOIOrthographicCameraTest, LooksThroughTheRectangleInParallel) {
  camera->SetLLF(-1, 0.5F, 2);
  camera->SetLRF(3, 0.5F, 2);
  camera->SetULF(-1, 1.5F, 2);
  const SbViewVolume volume = camera->getViewVolume();
  EXPECT_EQ(volume.getProjectionType(), SbViewVolume::ORTHOGRAPHIC);
  for (const float z : {-3.0F, -90.0F}) {
    const SbVec3f place = seen(volume, SbVec3f(0, 1, z));
    EXPECT_FLOAT_EQ(place[0], 0.25F);
    EXPECT_FLOAT_EQ(place[1], 0.5F);
  }
}

TEST_F(TarnOIOrthographicCameraTest, NearAndFarDistanceAreTheFields) {
  camera->nearDistance.setValue(3);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getNearDist(), 3);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getDepth(), 97);
}

TEST_F(TarnOIOrthographicCameraTest, PositionAndOrientationTakeNoPart) {
  camera->position.setValue(10, 20, 30);
  camera->orientation.setValue(SbVec3f(1, 2, 3), 0.75F);
  const SbViewVolume volume = camera->getViewVolume();
  expectNear(volume.getProjectionDirection(), SbVec3f(0, 0, -1));
  expectCorners(volume, SbVec3f(-1, -1, -2), SbVec3f(1, -1, -2), SbVec3f(-1, 1, -2));
}

TEST_F(TarnOIOrthographicCameraTest, TheHeightTakesNoPart) {
  camera->height.setValue(7);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getHeight(), 2);
}
