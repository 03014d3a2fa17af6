#include "nodes/lines/TarnOIAxisSeparator.h"

#include <Inventor/nodes/SoPerspectiveCamera.h>

#include "tests/support/Baseline.h"
#include "tests/support/FrontView.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <array>

using tarn::Point3DDouble;

/// Draws the axes without lights, 200 x 200 pixels.
class TarnOIAxisSeparatorGLTest : public TarnTest {
protected:
  Picture render() {
    scene->addChild(node);
    return renderer.render(scene.get());
  }
  // Whether a pixel, or one of its neighbours, has that colour alone.
  static bool isDrawn(const Picture& picture, int x, int y, const std::array<int, 3>& color) {
    for (int dy = -1; dy <= 1; ++dy) {
      for (int dx = -1; dx <= 1; ++dx) {
        const std::uint8_t* pixel = picture.at(x + dx, y + dy);
        if (pixel[0] == color[0] && pixel[1] == color[1] && pixel[2] == color[2]) return true;
      }
    }
    return false;
  }

  static constexpr std::array red{255, 0, 0};
  static constexpr std::array green{0, 255, 0};
  static constexpr std::array blue{0, 0, 255};

  OffscreenRenderer renderer{200, 200};
  NodeRef<SoSeparator> scene = frontView(20.0F);        // ten pixels a unit
  TarnOIAxisSeparator* node = new TarnOIAxisSeparator;  // the scene's
};

TEST_F(TarnOIAxisSeparatorGLTest, TheCrossStandsAtItsOriginInItsScale) {
  node->SetScale(6.0);
  node->SetOrigin(viewOffset + Point3DDouble(-4, 0, -3));
  const Picture picture = render();
  // The origin is at (60, 130), X runs to the right, Z up and Y away from the eye.
  EXPECT_TRUE(isDrawn(picture, 65, 130, red));
  EXPECT_TRUE(isDrawn(picture, 115, 130, red));
  EXPECT_FALSE(isDrawn(picture, 55, 130, red));
  EXPECT_TRUE(isDrawn(picture, 60, 125, blue));
  EXPECT_TRUE(isDrawn(picture, 60, 75, blue));
  EXPECT_FALSE(isDrawn(picture, 60, 135, blue));
}

TEST_F(TarnOIAxisSeparatorGLTest, AxesRunFromAnyOriginToAnyEnds) {
  Point3DDouble origin = viewOffset + Point3DDouble(-4, 0, -3);
  Point3DDouble xEnd = viewOffset + Point3DDouble(8, 0, -3);
  Point3DDouble yEnd = viewOffset + Point3DDouble(-4, 7, 2);
  Point3DDouble zEnd = viewOffset + Point3DDouble(-9, 0, -3);
  node->UpdateCoordinates(origin, xEnd, yEnd, zEnd);
  const Picture picture = render();
  EXPECT_TRUE(isDrawn(picture, 170, 130, red));
  EXPECT_TRUE(isDrawn(picture, 60, 90, green));
  EXPECT_TRUE(isDrawn(picture, 20, 130, blue));
}

TEST_F(TarnOIAxisSeparatorGLTest, EachAxisHasItsColourAndLetter) {
  auto* camera = new SoPerspectiveCamera;
  camera->position.setValue(3, 2.5F, 4);
  camera->pointAt(SbVec3f(0.35F, 0.4F, -0.35F), SbVec3f(0, 1, 0));
  camera->heightAngle.setValue(0.5F);
  scene->replaceChild(0, camera);
  node->SetScale(1.0);
  // Another renderer may draw a line one pixel further.
  Baseline::expectMatch(render(), "axes", {255, 0.5});
}
