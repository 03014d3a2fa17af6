#include "nodes/framework/ChildNodes.h"

#include <Inventor/nodes/SoInfo.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "tests/support/TarnTest.h"

class ChildNodesTest : public TarnTest {
protected:
  ChildNodesTest() {
    group->addChild(first.get());
    group->addChild(second.get());
  }

  NodeRef<SoSeparator> group = makeNode<SoSeparator>();
  NodeRef<SoInfo> first = makeNode<SoInfo>();
  NodeRef<SoMaterial> second = makeNode<SoMaterial>();
};

TEST_F(ChildNodesTest, RemovesAChild) {
  ChildNodes::remove(*group, first.get());
  ASSERT_EQ(group->getNumChildren(), 1);
  EXPECT_EQ(group->getChild(0), second.get());
}

TEST_F(ChildNodesTest, PassesOverNullAndStrangers) {
  const auto stranger = makeNode<SoMaterial>();
  ChildNodes::remove(*group, stranger.get());
  ChildNodes::remove(*group, nullptr);
  EXPECT_EQ(group->getNumChildren(), 2);
}

TEST_F(ChildNodesTest, ForgetsAMemberWhetherItWasAChildOrNot) {
  NodeRef<SoMaterial> child = second;
  NodeRef<SoMaterial> stranger = makeNode<SoMaterial>();
  ChildNodes::removeAndForget(*group, child);
  ChildNodes::removeAndForget(*group, stranger);
  EXPECT_FALSE(child);
  EXPECT_FALSE(stranger);
  EXPECT_EQ(group->getNumChildren(), 1);
}

TEST_F(ChildNodesTest, TheCounterpartOfAChildStandsAtItsPlaceInTheCopy) {
  const NodeRef<SoSeparator> copy(static_cast<SoSeparator*>(group->copy()));
  EXPECT_EQ(ChildNodes::counterpart(*copy, *group, second).get(), copy->getChild(1));
}

TEST_F(ChildNodesTest, AStrangerAndNullHaveNoCounterpart) {
  const NodeRef<SoSeparator> copy(static_cast<SoSeparator*>(group->copy()));
  EXPECT_FALSE(ChildNodes::counterpart(*copy, *group, makeNode<SoMaterial>()));
  EXPECT_FALSE(ChildNodes::counterpart(*copy, *group, NodeRef<SoInfo>()));
}

TEST_F(ChildNodesTest, TheLastOfATypeIsTheLastChildThatIsOfItOrDerived) {
  EXPECT_EQ(ChildNodes::last<SoMaterial>(*group), second.get());
  const auto later = makeNode<TarnOIMaterialWithPriority>();
  group->addChild(later.get());
  group->addChild(new SoInfo);
  EXPECT_EQ(ChildNodes::last<SoMaterial>(*group), later.get());
  group->removeAllChildren();
  EXPECT_EQ(ChildNodes::last<SoMaterial>(*group), nullptr);
}
