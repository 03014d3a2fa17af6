#include "viewer/OffscreenRenderer.h"

#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoFaceSet.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

#include <stdexcept>

using ::testing::ElementsAre;

class OffscreenRendererGLTest : public TarnTest {
protected:
  // A red rectangle over the left half and the upper quarter of what the camera sees, which
  // is 4 units wide and 4 high.
  OffscreenRendererGLTest() : scene(makeNode<SoSeparator>()) {
    auto* camera = new SoOrthographicCamera;
    camera->viewportMapping = SoCamera::LEAVE_ALONE;
    camera->height = 4.0F;
    camera->position = SbVec3f(0.0F, 0.0F, 5.0F);
    camera->nearDistance = 1.0F;
    camera->farDistance = 10.0F;
    scene->addChild(camera);
    auto* light = new SoLightModel;
    light->model = SoLightModel::BASE_COLOR;
    scene->addChild(light);
    color->rgb = SbColor(1.0F, 0.0F, 0.0F);
    scene->addChild(color);
    auto* corners = new SoCoordinate3;
    const SbVec3f points[] = {{-2, 1, 0}, {0, 1, 0}, {0, 2, 0}, {-2, 2, 0}};
    corners->point.setValues(0, 4, points);
    scene->addChild(corners);
    scene->addChild(new SoFaceSet);
  }

  static std::vector<int> pixel(const Picture& picture, int x, int y) {
    const std::uint8_t* bytes = picture.at(x, y);
    return {bytes[0], bytes[1], bytes[2]};
  }

  SoBaseColor* color = new SoBaseColor;
  NodeRef<SoSeparator> scene;
};

TEST_F(OffscreenRendererGLTest, RowsComeFromTheTopDownAndPixelsAreExact) {
  OffscreenRenderer renderer(8, 8);
  const Picture picture = renderer.render(scene.get());
  ASSERT_EQ(picture.width, 8);
  ASSERT_EQ(picture.height, 8);
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) {
      const bool covered = x < 4 && y < 2;
      EXPECT_THAT(pixel(picture, x, y), ElementsAre(covered ? 255 : 0, 0, 0))
          << "at " << x << ", " << y;
    }
  }
}

TEST_F(OffscreenRendererGLTest, BackgroundHasTheGivenColor) {
  OffscreenRenderer renderer(4, 4);
  renderer.setBackgroundColor(SbColor(0.2F, 0.4F, 0.6F));
  EXPECT_THAT(pixel(renderer.render(scene.get()), 3, 3), ElementsAre(51, 102, 153));
}

TEST_F(OffscreenRendererGLTest, TransparentPictureShowsThroughWhereNothingIsDrawn) {
  OffscreenRenderer renderer(8, 8);
  renderer.setBackgroundColor(SbColor(0.2F, 0.4F, 0.6F));
  const Picture picture = renderer.renderTransparent(scene.get());
  ASSERT_EQ(picture.alpha.size(), 64U);
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) {
      const bool covered = x < 4 && y < 2;
      EXPECT_EQ(picture.alpha[static_cast<std::size_t>(8 * y + x)], covered ? 255 : 0);
      EXPECT_THAT(pixel(picture, x, y), ElementsAre(covered ? 255 : 0, 0, 0));
    }
  }
  // The colour that was asked for holds again.
  EXPECT_THAT(pixel(renderer.render(scene.get()), 7, 7), ElementsAre(51, 102, 153));
}

TEST_F(OffscreenRendererGLTest, TransparentPictureHasTheColoursOfTranslucentThingsUnmixed) {
  auto* material = new SoMaterial;
  material->diffuseColor = SbColor(0.8F, 0.4F, 0.2F);
  material->transparency = 0.5F;
  scene->replaceChild(color, material);
  OffscreenRenderer renderer(8, 8);
  const Picture picture = renderer.renderTransparent(scene.get());
  EXPECT_NEAR(picture.alpha[0], 128, 2);
  const std::uint8_t* drawn = picture.at(0, 0);
  EXPECT_NEAR(drawn[0], 204, 3);
  EXPECT_NEAR(drawn[1], 102, 3);
  EXPECT_NEAR(drawn[2], 51, 3);
  EXPECT_EQ(picture.alpha[63], 0);
}

TEST_F(OffscreenRendererGLTest, WidthThatIsNoMultipleOfFourIsReadBackWhole) {
  OffscreenRenderer renderer(7, 4);
  const Picture picture = renderer.render(scene.get());
  EXPECT_THAT(pixel(picture, 0, 0), ElementsAre(255, 0, 0));
  EXPECT_THAT(pixel(picture, 6, 0), ElementsAre(0, 0, 0));
  EXPECT_THAT(pixel(picture, 6, 3), ElementsAre(0, 0, 0));
}

TEST_F(OffscreenRendererGLTest, NextFrameShowsWhatWasChanged) {
  OffscreenRenderer renderer(4, 4);
  renderer.draw(scene.get());
  color->rgb = SbColor(0.0F, 1.0F, 0.0F);
  EXPECT_THAT(pixel(renderer.render(scene.get()), 0, 0), ElementsAre(0, 255, 0));
}

TEST_F(OffscreenRendererGLTest, TwoRenderersDrawInTurn) {
  OffscreenRenderer first(4, 4);
  OffscreenRenderer second(8, 8);
  EXPECT_THAT(pixel(first.render(scene.get()), 0, 0), ElementsAre(255, 0, 0));
  EXPECT_THAT(pixel(second.render(scene.get()), 3, 1), ElementsAre(255, 0, 0));
  EXPECT_THAT(pixel(first.render(scene.get()), 0, 0), ElementsAre(255, 0, 0));
}

TEST_F(OffscreenRendererGLTest, SizesOutOfRangeAreRefusedByName) {
  for (const auto& [width, height] : {std::pair(0, 4), {4, 0}, {-1, 4}, {16385, 4}, {4, 16385}}) {
    try {
      OffscreenRenderer renderer(width, height);
      ADD_FAILURE() << width << " x " << height << " was not refused";
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(error.what(), "a picture of " + std::to_string(width) + " x " +
                                  std::to_string(height) + " pixels cannot be drawn here");
    }
  }
}
