#include "nodes/framework/TarnOISeparator.h"

#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoCallback.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoRotationXYZ.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoTranslation.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/BoundNode.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>

class TarnOISeparatorGLTest : public TarnTest {
protected:
  static void SetUpTestSuite() { BoundNode::initClass(); }
  static void TearDownTestSuite() { BoundNode::CleanUpInitClass(); }

  TarnOISeparatorGLTest() {
    auto* camera = new SoOrthographicCamera;
    camera->position.setValue(0, 0, 10);
    camera->nearDistance.setValue(1);
    camera->farDistance.setValue(20);
    camera->height.setValue(6);
    root->addChild(camera);
    auto* light = new SoDirectionalLight;
    light->direction.setValue(-0.3F, -0.5F, -1);
    root->addChild(light);
  }

  // Materials, transforms, a nested separator and something transparent.
  static void fill(SoGroup* group) {
    group->addChild(material(0.9F, 0.2F, 0.1F));
    group->addChild(translation(-1.5F, 0.25F));
    auto* turn = new SoRotationXYZ;
    turn->angle.setValue(0.5F);
    group->addChild(turn);
    group->addChild(new SoCube);
    auto* nested = new SoSeparator;
    nested->addChild(material(0.1F, 0.8F, 0.2F));
    nested->addChild(translation(2.5F, 0.5F));
    nested->addChild(new SoCone);
    group->addChild(nested);
    group->addChild(translation(1.25F, -0.75F));
    SoMaterial* glass = material(0.2F, 0.3F, 0.9F);
    glass->transparency.setValue(0.5F);
    group->addChild(glass);
    group->addChild(new SoSphere);
  }
  static SoMaterial* material(float red, float green, float blue) {
    auto* result = new SoMaterial;
    result->diffuseColor.setValue(red, green, blue);
    return result;
  }
  static SoTranslation* translation(float x, float y) {
    auto* result = new SoTranslation;
    result->translation.setValue(x, y, 0);
    return result;
  }

  Picture render() { return renderer.render(root.get()); }
  static bool isBlank(const Picture& picture) {
    return std::ranges::all_of(picture.bytes, [](auto byte) { return byte == 0; });
  }

  OffscreenRenderer renderer{160, 120};
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
};

TEST_F(TarnOISeparatorGLTest, DrawsWhatASeparatorDraws) {
  auto* bound = new BoundNode;
  auto* plain = new SoSeparator;
  fill(bound);
  fill(plain);
  root->addChild(plain);
  // What stands behind shows whether the state is restored.
  root->addChild(translation(0, 2));
  root->addChild(new SoSphere);
  const Picture expected = render();
  ASSERT_FALSE(isBlank(expected));
  root->replaceChild(plain, bound);
  EXPECT_EQ(render().bytes, expected.bytes);
}

TEST_F(TarnOISeparatorGLTest, DrawsTheSameInEveryFrameUnderASeparatorThatCaches) {
  auto* cached = new SoSeparator;
  cached->renderCaching.setValue(SoSeparator::ON);
  auto* bound = new BoundNode;
  auto* sphere = new SoSphere;
  bound->addChild(material(0.9F, 0.2F, 0.1F));
  bound->addChild(sphere);
  cached->addChild(bound);
  root->addChild(cached);
  const Picture expected = render();
  ASSERT_FALSE(isBlank(expected));
  for (int frame = 0; frame < 5; ++frame) EXPECT_EQ(render().bytes, expected.bytes) << frame;
}

TEST_F(TarnOISeparatorGLTest, ASeparatorAboveKeepsItsRenderCache) {
  auto* cached = new SoSeparator;
  cached->renderCaching.setValue(SoSeparator::ON);
  auto* bound = new BoundNode;
  int drawn = 0;
  auto* probe = new SoCallback;
  probe->setCallback(
      [](void* data, SoAction* action) {
        if (action->isOfType(SoGLRenderAction::getClassTypeId())) ++*static_cast<int*>(data);
      },
      &drawn);
  bound->addChild(probe);
  bound->addChild(new SoCube);
  cached->addChild(bound);
  root->addChild(cached);
  for (int frame = 0; frame < 5; ++frame) render();
  const int untilCached = drawn;
  for (int frame = 0; frame < 5; ++frame) render();
  EXPECT_EQ(drawn, untilCached);
}

TEST_F(TarnOISeparatorGLTest, AHighlightUnderASeparatorThatCachesIsSeenInTheNextFrame) {
  auto* cached = new SoSeparator;
  cached->renderCaching.setValue(SoSeparator::ON);
  auto* bound = new BoundNode;
  bound->addChild(material(0.9F, 0.2F, 0.1F));
  bound->addChild(new SoSphere);
  cached->addChild(bound);
  root->addChild(cached);
  Picture before;
  for (int frame = 0; frame < 4; ++frame) before = render();
  const NodeRef<SoMaterial> highlight(material(0, 0, 1));
  bound->Highlight(highlight.get(), 1);
  const Picture highlighted = render();
  const std::uint8_t* pixel = highlighted.at(80, 60);
  EXPECT_LT(pixel[0], 20);  // ambient light only
  EXPECT_GT(pixel[2], 100);
  bound->Highlight(highlight.get(), 0);
  EXPECT_EQ(render().bytes, before.bytes);
}

TEST_F(TarnOISeparatorGLTest, AnAbortedFrameIsNotKeptByACacheAbove) {
  auto* cached = new SoSeparator;
  cached->renderCaching.setValue(SoSeparator::ON);
  auto* bound = new BoundNode;
  fill(bound);
  cached->addChild(bound);
  root->addChild(cached);
  // Stops before the bound node's fourth child, the first that draws something.
  struct Stop {
    const SoNode* before;
    static SoGLRenderAction::AbortCode ask(void* data) {
      auto& stop = *static_cast<Stop*>(data);
      const SoFullPath* path = static_cast<const SoFullPath*>(stop.action->getCurPath());
      return path->getTail() == stop.before ? SoGLRenderAction::ABORT : SoGLRenderAction::CONTINUE;
    }
    SoGLRenderAction* action;
  } stop{bound->getChild(3), &renderer.action()};
  renderer.action().setAbortCallback(&Stop::ask, &stop);
  EXPECT_TRUE(isBlank(render()));
  renderer.action().setAbortCallback(nullptr, nullptr);
  const Picture whole = render();
  EXPECT_FALSE(isBlank(whole));
  auto* plain = new SoSeparator;
  fill(plain);
  root->replaceChild(cached, plain);
  EXPECT_EQ(whole.bytes, render().bytes);
}

TEST_F(TarnOISeparatorGLTest, ANodeOutOfSightIsNotTraversedWhereCullingIsOn) {
  auto* bound = new BoundNode;
  int drawn = 0;
  auto* probe = new SoCallback;
  probe->setCallback(
      [](void* data, SoAction* action) {
        if (action->isOfType(SoGLRenderAction::getClassTypeId())) ++*static_cast<int*>(data);
      },
      &drawn);
  SoTranslation* place = translation(100, 0);
  bound->addChild(place);
  bound->addChild(probe);
  bound->addChild(new SoCube);
  root->addChild(bound);
  bound->renderCulling.setValue(SoSeparator::ON);
  const auto measured = [&] {
    SoGetBoundingBoxAction box(renderer.getViewportRegion());
    box.apply(root.get());
  };
  measured();
  render();
  EXPECT_EQ(drawn, 0);
  bound->renderCulling.setValue(SoSeparator::OFF);
  measured();
  render();
  EXPECT_EQ(drawn, 1);
  bound->renderCulling.setValue(SoSeparator::ON);
  place->translation.setValue(0, 0, 0);
  measured();
  render();
  EXPECT_EQ(drawn, 2);
}

TEST_F(TarnOISeparatorGLTest, AnInvisibleDrawStyleHidesItWhenDrawn) {
  auto* style = new SoDrawStyle;
  style->style.setValue(SoDrawStyle::INVISIBLE);
  root->addChild(style);
  auto* bound = new BoundNode;
  fill(bound);
  root->addChild(bound);
  EXPECT_TRUE(isBlank(render()));
}

TEST_F(TarnOISeparatorGLTest, KeepsNoCacheOfItsOwnThatWouldMissAChange) {
  // Also where the host asks the node itself to cache.
  auto* bound = new BoundNode;
  bound->renderCaching.setValue(SoSeparator::ON);
  SoMaterial* colour = material(1, 0, 0);
  bound->addChild(colour);
  bound->addChild(new SoCube);
  root->addChild(bound);
  for (int frame = 0; frame < 4; ++frame) render();
  colour->diffuseColor.setValue(0, 1, 0);
  const Picture changed = render();
  EXPECT_LT(changed.at(80, 60)[0], 20);  // ambient light only
  EXPECT_GT(changed.at(80, 60)[1], 100);
}
