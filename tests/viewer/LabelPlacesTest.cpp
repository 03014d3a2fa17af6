#include "viewer/LabelPlaces.h"

#include <Inventor/nodes/SoOrthographicCamera.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

class LabelPlacesTest : public TarnTest {
protected:
  // One scene unit is one pixel; the middle of the picture is at (0, 0).
  LabelPlacesTest() : camera(makeNode<SoOrthographicCamera>()) {
    camera->viewportMapping = SoCamera::LEAVE_ALONE;
    camera->aspectRatio = 2.0F;
    camera->height = 200.0F;
    camera->position = SbVec3f(0.0F, 0.0F, 5.0F);
  }

  NodeRef<SoOrthographicCamera> camera;
  SbViewportRegion viewport{400, 200};
};

TEST_F(LabelPlacesTest, LabelThatWouldCoverAnotherIsRefused) {
  LabelPlaces places(*camera, viewport);
  EXPECT_TRUE(places.take(SbVec3f(0.0F, 0.0F, 0.0F), "1234"));
  EXPECT_FALSE(places.take(SbVec3f(16.0F, 4.0F, 0.0F), "5"));
  EXPECT_FALSE(places.take(SbVec3f(-24.0F, -8.0F, 0.0F), "12345"));
}

TEST_F(LabelPlacesTest, LabelsSideBySideBothHaveRoom) {
  LabelPlaces places(*camera, viewport);
  EXPECT_TRUE(places.take(SbVec3f(0.0F, 0.0F, 0.0F), "1234"));
  EXPECT_TRUE(places.take(SbVec3f(56.0F, 0.0F, 0.0F), "5"));
  EXPECT_TRUE(places.take(SbVec3f(0.0F, 28.0F, 0.0F), "6"));
}

TEST_F(LabelPlacesTest, LabelThatLeavesThePictureIsRefused) {
  LabelPlaces places(*camera, viewport);
  EXPECT_FALSE(places.take(SbVec3f(-210.0F, 0.0F, 0.0F), "1"));
  EXPECT_FALSE(places.take(SbVec3f(0.0F, 110.0F, 0.0F), "1"));
  EXPECT_FALSE(places.take(SbVec3f(190.0F, 0.0F, 0.0F), "12345"));
  EXPECT_FALSE(places.take(SbVec3f(1e30F, 0.0F, 0.0F), "1"));
}
