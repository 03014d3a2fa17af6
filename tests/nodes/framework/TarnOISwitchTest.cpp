#include "nodes/framework/TarnOISwitch.h"

#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/sensors/SoFieldSensor.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "tests/support/BoundNode.h"
#include "tests/support/TarnTest.h"

class TarnOISwitchTest : public TarnTest {
protected:
  static void SetUpTestSuite() { BoundNode::initClass(); }
  static void TearDownTestSuite() { BoundNode::CleanUpInitClass(); }

  TarnOISwitchTest() {
    for (BoundNode* node : {first, second}) {
      layers->addChild(node);
      node->SetTarnObject(node == first ? &firstObject : &secondObject, &dictionary);
    }
  }

  SoNode* found(tarn::VObject* object) {
    TarnOISearchAction search;
    search.SetTarnObject(object);
    search.apply(layers.get());
    return search.getPath() ? search.getPath()->getTail() : nullptr;
  }

  tarn::VObject firstObject;
  tarn::VObject secondObject;
  NodeRef<TarnOISwitch> layers = makeNode<TarnOISwitch>();
  BoundNode* first = new BoundNode;
  BoundNode* second = new BoundNode;
};

TEST_F(TarnOISwitchTest, IsClosedAtFirst) {
  EXPECT_EQ(layers->whichChild.getValue(), SO_SWITCH_NONE);
}

TEST_F(TarnOISwitchTest, ASearchForAnObjectReachesAllChildrenAndRestoresTheSwitch) {
  for (const int which : {SO_SWITCH_NONE, SO_SWITCH_INHERIT, SO_SWITCH_ALL, 0, 1, 7}) {
    layers->whichChild.setValue(which);
    EXPECT_EQ(found(&firstObject), first) << which;
    EXPECT_EQ(layers->whichChild.getValue(), which);
    EXPECT_EQ(found(&secondObject), second) << which;
    EXPECT_EQ(layers->whichChild.getValue(), which);
  }
}

TEST_F(TarnOISwitchTest, ASearchThatFindsNothingRestoresTheSwitchToo) {
  tarn::VObject nobody;
  layers->whichChild.setValue(1);
  EXPECT_EQ(found(&nobody), nullptr);
  EXPECT_EQ(layers->whichChild.getValue(), 1);
}

TEST_F(TarnOISwitchTest, AnOrdinarySearchRespectsTheSwitch) {
  SoSearchAction search;
  search.setNode(second);
  for (const int which : {SO_SWITCH_NONE, 0}) {
    layers->whichChild.setValue(which);
    search.apply(layers.get());
    EXPECT_EQ(search.getPath(), nullptr) << which;
    EXPECT_EQ(layers->whichChild.getValue(), which);
  }
  layers->whichChild.setValue(1);
  search.apply(layers.get());
  EXPECT_NE(search.getPath(), nullptr);
}

TEST_F(TarnOISwitchTest, ASearchNotifiesNobody) {
  int notified = 0;
  const auto count = [](void* data, SoSensor*) { ++*static_cast<int*>(data); };
  SoNodeSensor nodeSensor(count, &notified);
  nodeSensor.setPriority(0);
  nodeSensor.attach(layers.get());
  SoFieldSensor fieldSensor(count, &notified);
  fieldSensor.setPriority(0);
  fieldSensor.attach(&layers->whichChild);
  layers->whichChild.setValue(0);
  ASSERT_EQ(notified, 2);
  const SbUniqueId before = layers->getNodeId();
  EXPECT_EQ(found(&secondObject), second);
  EXPECT_EQ(notified, 2);
  EXPECT_EQ(layers->getNodeId(), before);
  // And afterwards the field tells of its changes again.
  layers->whichChild.setValue(1);
  EXPECT_EQ(notified, 4);
}

TEST_F(TarnOISwitchTest, ASearchLeavesNotificationOffWhereItWasOff) {
  layers->whichChild.enableNotify(FALSE);
  EXPECT_EQ(found(&firstObject), first);
  EXPECT_FALSE(layers->whichChild.isNotifyEnabled());
}

TEST_F(TarnOISwitchTest, ASearchLeavesAnUntouchedSwitchUntouched) {
  ASSERT_TRUE(layers->whichChild.isDefault());
  EXPECT_EQ(found(&firstObject), first);
  EXPECT_TRUE(layers->whichChild.isDefault());
  layers->whichChild.setValue(0);
  EXPECT_EQ(found(&firstObject), first);
  EXPECT_FALSE(layers->whichChild.isDefault());
}

TEST_F(TarnOISwitchTest, TheSwitchItselfIsFoundByNode) {
  TarnOISearchAction search;
  tarn::VObject nobody;
  search.SetTarnObject(&nobody);
  search.setNode(layers.get());
  search.apply(layers.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), layers.get());
}

TEST_F(TarnOISwitchTest, SwitchesWithinClosedSwitchesAreSearched) {
  auto outer = makeNode<TarnOISwitch>();
  outer->addChild(layers.get());
  TarnOISearchAction search;
  search.SetTarnObject(&secondObject);
  search.apply(outer.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getLength(), 3);
  EXPECT_EQ(outer->whichChild.getValue(), SO_SWITCH_NONE);
  EXPECT_EQ(layers->whichChild.getValue(), SO_SWITCH_NONE);
}
