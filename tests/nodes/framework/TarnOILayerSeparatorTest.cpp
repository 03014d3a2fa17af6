#include "nodes/framework/TarnOILayerSeparator.h"

#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoCube.h>

#include "host/model/ObjectName.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/framework/TarnOISwitch.h"
#include "tests/support/BoundNode.h"
#include "tests/support/TarnTest.h"

#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Change = RecordingDictionary::Change;

class TarnOILayerSeparatorTest : public TarnTest {
protected:
  static void SetUpTestSuite() { BoundNode::initClass(); }
  static void TearDownTestSuite() { BoundNode::CleanUpInitClass(); }

  static std::vector<SoNode*> foundAll(SoNode* root, tarn::VObject* sought) {
    TarnOISearchAction search;
    search.SetTarnObject(sought);
    search.setInterest(SoSearchAction::ALL);
    search.apply(root);
    std::vector<SoNode*> tails;
    for (int i = 0; i < search.getPaths().getLength(); ++i) {
      tails.push_back(search.getPaths()[i]->getTail());
    }
    return tails;
  }

  tarn::ObjectName layer{"Walls"};
  tarn::ObjectName roof{"Roof"};
  RecordingDictionary otherDictionary;
};

TEST_F(TarnOILayerSeparatorTest, ANewSeparatorHasNoLayer) {
  auto separator = makeNode<TarnOILayerSeparator>();
  EXPECT_EQ(separator->GetLayer(), nullptr);
  EXPECT_EQ(separator->GetTarnObject(), nullptr);
  separator->SetLayer(&layer, &dictionary);
}

TEST_F(TarnOILayerSeparatorTest, DestroyedWithoutDictionaryIsReported) {
  makeNode<TarnOILayerSeparator>().reset();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOILayerSeparator")));
}

TEST_F(TarnOILayerSeparatorTest, ANullDictionaryBindsWithoutAnEntryAndIsReportedAtTheEnd) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, nullptr);
  EXPECT_EQ(separator->GetLayer(), &layer);
  separator.reset();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOILayerSeparator")));
}

TEST_F(TarnOILayerSeparatorTest, SetLayerEntersItUnderTheLayer) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, &dictionary);
  EXPECT_EQ(separator->GetLayer(), &layer);
  EXPECT_EQ(separator->GetTarnObject(), nullptr);
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::ePut, &layer, separator.get()}));
}

TEST_F(TarnOILayerSeparatorTest, TheSameLayerAgainTouchesNoDictionary) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, &dictionary);
  dictionary.takeChanges();
  separator->SetLayer(&layer, &otherDictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_THAT(otherDictionary.takeChanges(), IsEmpty());
}

TEST_F(TarnOILayerSeparatorTest, AnotherLayerRemovesTheOldKeyFromTheDictionaryPassedIn) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, &dictionary);
  dictionary.takeChanges();
  separator->SetLayer(&roof, &otherDictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_THAT(otherDictionary.takeChanges(),
              ElementsAre(Change{Change::eRemove, &layer, nullptr},
                          Change{Change::ePut, &roof, separator.get()}));
  separator.reset();
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_THAT(otherDictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &roof, nullptr}));
}

TEST_F(TarnOILayerSeparatorTest, NullKeepsTheDictionaryForTheEnd) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, &dictionary);
  dictionary.takeChanges();
  separator->SetLayer(nullptr, &otherDictionary);
  EXPECT_EQ(separator->GetLayer(), nullptr);
  EXPECT_THAT(otherDictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &layer, nullptr}));
  separator.reset();
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}

TEST_F(TarnOILayerSeparatorTest, DestructionRemovesTheKey) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, &dictionary);
  dictionary.takeChanges();
  separator.reset();
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &layer, nullptr}));
}

TEST_F(TarnOILayerSeparatorTest, VisibilityTurnsTheSwitch) {
  auto layerSwitch = makeNode<TarnOISwitch>();
  auto* separator = new TarnOILayerSeparator;
  layerSwitch->addChild(separator);
  separator->SetLayer(&layer, &dictionary);
  separator->SetLayerSwitch(layerSwitch.get());
  separator->SetVisibility(1);
  EXPECT_EQ(layerSwitch->whichChild.getValue(), -3);
  separator->SetVisibility(0);
  EXPECT_EQ(layerSwitch->whichChild.getValue(), -1);
  separator->SetVisibility(-5);
  EXPECT_EQ(layerSwitch->whichChild.getValue(), -3);
}

TEST_F(TarnOILayerSeparatorTest, VisibilityBeforeTheSwitchIsReported) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, &dictionary);
  separator->SetVisibility(1);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("layerSwitch", "TarnOILayerSeparator")));
}

TEST_F(TarnOILayerSeparatorTest, SearchReachesALayerThatIsSwitchedOffAndLeavesItOff) {
  auto root = makeNode<TarnOISwitch>();
  auto* separator = new TarnOILayerSeparator;
  root->addChild(separator);
  separator->SetLayer(&layer, &dictionary);
  separator->SetLayerSwitch(root.get());
  separator->SetVisibility(0);

  TarnOISearchAction search;
  search.SetTarnObject(&layer);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), separator);
  EXPECT_EQ(root->whichChild.getValue(), SO_SWITCH_NONE);
}

TEST_F(TarnOILayerSeparatorTest, AnObjectInAHiddenLayerIsFoundAndTheLayerStaysHidden) {
  tarn::VObject object;
  auto root = makeNode<SoSeparator>();
  auto* layerSwitch = new TarnOISwitch;
  auto* separator = new TarnOILayerSeparator;
  auto* node = new BoundNode;
  root->addChild(layerSwitch);
  layerSwitch->addChild(separator);
  separator->addChild(node);
  separator->SetLayer(&layer, &dictionary);
  separator->SetLayerSwitch(layerSwitch);
  node->SetTarnObject(&object, &dictionary);
  separator->SetVisibility(0);
  EXPECT_THAT(foundAll(root.get(), &object), ElementsAre(node));
  EXPECT_EQ(layerSwitch->whichChild.getValue(), -1);

  SoSearchAction byType;
  byType.setType(BoundNode::getClassTypeId());
  byType.apply(root.get());
  EXPECT_EQ(byType.getPath(), nullptr);
}

TEST_F(TarnOILayerSeparatorTest, FirstEndsAtTheLayerAndAllGoesOnBelowIt) {
  // A node that shows the layer itself, under it.
  auto separator = makeNode<TarnOILayerSeparator>();
  auto* node = new BoundNode;
  separator->addChild(node);
  separator->SetLayer(&layer, &dictionary);
  node->SetTarnObject(&layer, &otherDictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&layer);
  search.apply(separator.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), separator.get());
  EXPECT_THAT(foundAll(separator.get(), &layer), ElementsAre(separator.get(), node));
  search.reset();
}

TEST_F(TarnOILayerSeparatorTest, ASearchForNullFindsItByItsUnboundObject) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, &dictionary);
  EXPECT_THAT(foundAll(separator.get(), nullptr), ElementsAre(separator.get()));
  separator->SetLayer(nullptr, &dictionary);
  EXPECT_THAT(foundAll(separator.get(), nullptr), ElementsAre(separator.get(), separator.get()));
}

TEST_F(TarnOILayerSeparatorTest, AnotherLayerIsNotFound) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, &dictionary);
  EXPECT_THAT(foundAll(separator.get(), &roof), IsEmpty());
}

TEST_F(TarnOILayerSeparatorTest, ANodeCopyTakesTheEntryButNotTheSwitch) {
  auto layerSwitch = makeNode<TarnOISwitch>();
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->addChild(new SoCube);
  separator->SetLayer(&layer, &dictionary);
  separator->SetLayerSwitch(layerSwitch.get());
  dictionary.takeChanges();
  const NodeRef<SoNode> copied(separator->copy());
  auto* copy = static_cast<TarnOILayerSeparator*>(copied.get());
  EXPECT_EQ(copy->getTypeId(), TarnOILayerSeparator::getClassTypeId());
  EXPECT_EQ(copy->GetLayer(), &layer);
  EXPECT_EQ(copy->getNumChildren(), 1);
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::ePut, &layer, copy}));
  copy->SetVisibility(1);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("layerSwitch", "TarnOILayerSeparator")));
}

TEST_F(TarnOILayerSeparatorTest, ACopyOfASeparatorWithoutLayerHasNoDictionaryEither) {
  auto separator = makeNode<TarnOILayerSeparator>();
  NodeRef<SoNode> copy(separator->copy());
  copy.reset();
  separator.reset();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOILayerSeparator"),
                          IsAssertion("tarnoi_searchDict", "TarnOILayerSeparator")));
}

TEST_F(TarnOILayerSeparatorTest, CopyConstructionAndAssignmentTakeTheMembersWithoutAnEntry) {
  auto separator = makeNode<TarnOILayerSeparator>();
  separator->SetLayer(&layer, &dictionary);
  dictionary.takeChanges();
  auto copy = makeNode<TarnOILayerSeparator>(*separator);
  EXPECT_EQ(copy->GetLayer(), &layer);
  auto assigned = makeNode<TarnOILayerSeparator>();
  *assigned = *separator;
  EXPECT_EQ(assigned->GetLayer(), &layer);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}
