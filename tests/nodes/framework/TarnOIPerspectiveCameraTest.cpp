#include "nodes/framework/TarnOIPerspectiveCamera.h"

#include "tests/nodes/framework/FrontRectangleFixture.h"

#include <cmath>

/// What is this camera's own; FrontRectangleTest has what both cameras do alike.
class TarnOIPerspectiveCameraTest : public FrontRectangleFixture<TarnOIPerspectiveCamera> {};

TEST_F(TarnOIPerspectiveCameraTest, LooksThroughTheRectangleFromItsPosition) {
  camera->SetLLF(-1, 0.5F, 2);
  camera->SetLRF(3, 0.5F, 2);
  camera->SetULF(-1, 1.5F, 2);
  const SbViewVolume volume = camera->getViewVolume();
  EXPECT_EQ(volume.getProjectionType(), SbViewVolume::PERSPECTIVE);
  expectNear(volume.getProjectionPoint(), SbVec3f(0, 0, 0));
  const SbVec3f place = seen(volume, SbVec3f(0, 2, -4));  // at (0, 1) on the rectangle
  EXPECT_FLOAT_EQ(place[0], 0.25F);
  EXPECT_FLOAT_EQ(place[1], 0.5F);
}

TEST_F(TarnOIPerspectiveCameraTest, TheNearDistanceIsTheLowerLeftCornersAndTheFarTheFields) {
  camera->nearDistance.setValue(7);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getNearDist(), 2);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getDepth(), 98);
}

TEST_F(TarnOIPerspectiveCameraTest, TheHeightAngleTakesNoPart) {
  camera->heightAngle.setValue(0.1F);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getHeight(), 2);
}

TEST_F(TarnOIPerspectiveCameraTest, MovesAndTurnsWithItsFields) {
  camera->position.setValue(10, 20, 30);
  // A quarter turn to the left: along -x.
  camera->orientation.setValue(SbVec3f(0, 1, 0), static_cast<float>(M_PI_2));
  const SbViewVolume volume = camera->getViewVolume();
  expectNear(volume.getProjectionPoint(), SbVec3f(10, 20, 30));
  expectNear(volume.getProjectionDirection(), SbVec3f(-1, 0, 0));
  const SbVec3f place = seen(volume, SbVec3f(6, 21, 29));  // 4 ahead, 1 up, 1 to the right
  EXPECT_NEAR(place[0], 0.75, 1e-5);
  EXPECT_NEAR(place[1], 0.75, 1e-5);
}
