#include "nodes/framework/FrontRectangle.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIOrthographicCamera.h"
#include "nodes/framework/TarnOIPerspectiveCamera.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

/// Draws one point of three pixels, through one of the cameras that look through a rectangle.
template <typename Camera>
class RectangleCameraGLTest : public TarnTest {
protected:
  RectangleCameraGLTest() {
    camera->viewportMapping.setValue(SoCamera::LEAVE_ALONE);
    camera->nearDistance.setValue(1);
    camera->farDistance.setValue(100);
    camera->SetLLF(0, -1, 2);
    camera->SetLRF(4, -1, 2);
    camera->SetULF(0, 1, 2);
    root->addChild(camera);
    auto* light = new SoLightModel;
    light->model = SoLightModel::BASE_COLOR;
    root->addChild(light);
    auto* style = new SoDrawStyle;
    style->pointSize.setValue(3);
    root->addChild(style);
    root->addChild(point);
    root->addChild(new SoPointSet);
  }

  /// Expects a point of the scene to be seen at a pixel, and nothing else.
  void expectSeen(const SbVec3f& place, int x, int y) {
    point->point.set1Value(0, place);
    const Picture picture = renderer.render(root.get());
    int drawn = 0;
    for (std::size_t i = 0; i < picture.bytes.size(); i += 3) drawn += picture.bytes[i] > 0;
    EXPECT_EQ(drawn, 9);
    EXPECT_GT(picture.at(x, y)[0], 0);
  }

  OffscreenRenderer renderer{100, 80};
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  Camera* camera = new Camera;               // the scene's, as is
  SoCoordinate3* point = new SoCoordinate3;  // this one
};

using TarnOIPerspectiveCameraGLTest = RectangleCameraGLTest<TarnOIPerspectiveCamera>;
using TarnOIOrthographicCameraGLTest = RectangleCameraGLTest<TarnOIOrthographicCamera>;

TEST_F(TarnOIPerspectiveCameraGLTest, DrawsWhatIsSeenThroughTheRectangle) {
  camera->position.setValue(0, 0, 0);
  // A quarter to the right and half up the rectangle, twice as far away.
  expectSeen(SbVec3f(2, 0, -4), 25, 40);
  camera->position.setValue(-2, -1, 0);
  expectSeen(SbVec3f(2, 0, -4), 50, 20);
}

TEST_F(TarnOIOrthographicCameraGLTest, DrawsWhatIsBehindTheRectangle) {
  expectSeen(SbVec3f(1, 0, -4), 25, 40);
  camera->position.setValue(-2, -1, 0);
  camera->orientation.setValue(SbVec3f(0, 1, 0), 2);
  expectSeen(SbVec3f(1, 0, -4), 25, 40);
}
