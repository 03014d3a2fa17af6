#include "nodes/framework/TarnOIOverlaySeparator.h"

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <array>

/// Draws a red cube of the scene, and a green one on the screen: a quarter of the viewport wide
/// and half of it high.
class TarnOIOverlaySeparatorGLTest : public TarnTest {
protected:
  TarnOIOverlaySeparatorGLTest() {
    camera->position.setValue(0, 0, 8);
    camera->farDistance.setValue(100);
    root->addChild(camera);
    auto* light = new SoLightModel;
    light->model = SoLightModel::BASE_COLOR;
    root->addChild(light);
    add(*root, SbColor(1, 0, 0), 2, 2);
    auto* overlay = new TarnOIOverlaySeparator(0.75F, 0.0F, 5.0F);
    root->addChild(overlay);
    add(*overlay, SbColor(0, 1, 0), 0.5F, 1);
  }
  static void add(SoGroup& group, const SbColor& color, float width, float height) {
    auto* material = new SoMaterial;
    material->diffuseColor.setValue(color);
    group.addChild(material);
    auto* cube = new SoCube;
    cube->width.setValue(width);
    cube->height.setValue(height);
    group.addChild(cube);
  }
  // The box around all pixels in which a component of colour is full: left, right, top, bottom.
  static std::array<int, 4> boxOf(const Picture& picture, int component) {
    std::array box = {picture.width, -1, picture.height, -1};
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        if (picture.at(x, y)[component] != 255) continue;
        box = {std::min(box[0], x), std::max(box[1], x), std::min(box[2], y), std::max(box[3], y)};
      }
    }
    return box;
  }

  OffscreenRenderer renderer{160, 80};
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  SoPerspectiveCamera* camera = new SoPerspectiveCamera;  // the scene's
};

TEST_F(TarnOIOverlaySeparatorGLTest, WhatItHoldsStaysWhereTheSceneMoves) {
  using ::testing::ElementsAre;
  const Picture before = renderer.render(root.get());
  // The cube's middle is 0.75 to the left of the camera, of which the viewport shows 1.
  EXPECT_THAT(boxOf(before, 1), ElementsAre(0, 39, 20, 59));
  const std::array sceneBefore = boxOf(before, 0);
  EXPECT_GT(sceneBefore[1], 0);
  camera->position.setValue(1, 0, 12);
  const Picture after = renderer.render(root.get());
  EXPECT_THAT(boxOf(after, 1), ElementsAre(0, 39, 20, 59));
  EXPECT_NE(boxOf(after, 0), sceneBefore);
}
