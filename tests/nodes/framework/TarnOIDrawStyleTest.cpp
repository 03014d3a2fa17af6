#include "nodes/framework/TarnOIDrawStyle.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoCallbackAction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/elements/SoDrawStyleElement.h>
#include <Inventor/elements/SoLinePatternElement.h>
#include <Inventor/elements/SoLineWidthElement.h>
#include <Inventor/elements/SoPointSizeElement.h>
#include <Inventor/nodes/SoCallback.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/BoundNode.h"
#include "tests/support/TarnTest.h"

class TarnOIDrawStyleTest : public TarnTest {
protected:
  static void SetUpTestSuite() { BoundNode::initClass(); }
  static void TearDownTestSuite() { BoundNode::CleanUpInitClass(); }

  // What the elements hold behind the draw style.
  struct Seen {
    int calls = 0;
    int style = -1;
    float lineWidth = -1;
    int linePattern = -1;
    float pointSize = -1;
  };

  TarnOIDrawStyleTest() {
    root->addChild(style);
    auto* probe = new SoCallback;
    probe->setCallback(
        [](void* data, SoAction* action) {
          auto& seen = *static_cast<Seen*>(data);
          SoState* state = action->getState();
          ++seen.calls;
          seen.style = SoDrawStyleElement::get(state);
          seen.lineWidth = SoLineWidthElement::get(state);
          seen.linePattern = SoLinePatternElement::get(state);
          seen.pointSize = SoPointSizeElement::get(state);
        },
        &seen);
    root->addChild(probe);
    style->style.setValue(SoDrawStyle::LINES);
    style->lineWidth.setValue(3);
    style->linePattern.setValue(0x0f0f);
    style->pointSize.setValue(5);
  }

  void expectSeen() const {
    EXPECT_GE(seen.calls, 1);
    EXPECT_EQ(seen.style, SoDrawStyleElement::LINES);
    EXPECT_EQ(seen.lineWidth, 3.0F);
    EXPECT_EQ(seen.linePattern, 0x0f0f);
    EXPECT_EQ(seen.pointSize, 5.0F);
  }

  const SbViewportRegion viewport{100, 100};
  Seen seen;
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  TarnOIDrawStyle* style = new TarnOIDrawStyle;
};

TEST_F(TarnOIDrawStyleTest, ActsOnBoundingBoxes) {
  SoGetBoundingBoxAction action(viewport);
  action.apply(root.get());
  expectSeen();
}

TEST_F(TarnOIDrawStyleTest, ActsOnRayPicks) {
  SoRayPickAction action(viewport);
  action.setRay(SbVec3f(1, 2, 3), SbVec3f(0, 0, -1));
  action.apply(root.get());
  expectSeen();
}

TEST_F(TarnOIDrawStyleTest, ActsOnCallbackActionsAsEveryDrawStyleDoes) {
  SoCallbackAction action(viewport);
  action.apply(root.get());
  expectSeen();
}

TEST_F(TarnOIDrawStyleTest, IgnoredFieldsDoNotAct) {
  style->style.setIgnored(TRUE);
  SoGetBoundingBoxAction action(viewport);
  action.apply(root.get());
  EXPECT_EQ(seen.style, SoDrawStyleElement::FILLED);
  EXPECT_EQ(seen.lineWidth, 3.0F);
}

TEST_F(TarnOIDrawStyleTest, HidesModelBoundNodesBehindItFromBoxesAndPicks) {
  auto* node = new BoundNode;
  node->addChild(new SoCube);
  root->addChild(node);
  for (const bool hidden : {true, false}) {
    style->style.setValue(hidden ? SoDrawStyle::INVISIBLE : SoDrawStyle::FILLED);
    SoGetBoundingBoxAction box(viewport);
    box.apply(root.get());
    EXPECT_EQ(static_cast<bool>(box.getBoundingBox().isEmpty()), hidden);
    SoRayPickAction pick(viewport);
    pick.setRay(SbVec3f(0.1F, 0.2F, 10), SbVec3f(0, 0, -1));
    pick.apply(root.get());
    EXPECT_EQ(pick.getPickedPoint() == nullptr, hidden);
  }
}

TEST_F(TarnOIDrawStyleTest, DoesNotReachOutOfItsSeparator) {
  auto outer = makeNode<SoSeparator>();
  auto* node = new BoundNode;
  node->addChild(new SoCube);
  style->style.setValue(SoDrawStyle::INVISIBLE);
  outer->addChild(root.get());
  outer->addChild(node);
  SoGetBoundingBoxAction box(viewport);
  box.apply(outer.get());
  EXPECT_FALSE(box.getBoundingBox().isEmpty());
}

TEST_F(TarnOIDrawStyleTest, ActsOnRayPicksAfterCleanUpAndRegistrationAgain) {
  root->removeChild(0);
  TarnOIDrawStyle::CleanUpInitClass();
  SoRayPickAction between(viewport);
  between.setRay(SbVec3f(1, 2, 3), SbVec3f(0, 0, -1));
  between.apply(root.get());
  EXPECT_EQ(seen.style, SoDrawStyleElement::FILLED);
  TarnOIDrawStyle::initClass();
  style = new TarnOIDrawStyle;
  style->style.setValue(SoDrawStyle::LINES);
  root->insertChild(style, 0);
  SoRayPickAction action(viewport);
  action.setRay(SbVec3f(1, 2, 3), SbVec3f(0, 0, -1));
  action.apply(root.get());
  EXPECT_EQ(seen.style, SoDrawStyleElement::LINES);
}
