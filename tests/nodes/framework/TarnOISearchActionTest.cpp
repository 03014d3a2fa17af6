#include "nodes/framework/TarnOISearchAction.h"

#include <Inventor/SoPath.h>
#include <Inventor/elements/SoComplexityElement.h>
#include <Inventor/lists/SoEnabledElementsList.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/classes/VPathString.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIDrawStyle.h"
#include "nodes/framework/TarnOIMaterial.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "nodes/framework/TarnOIText2.h"
#include "nodes/framework/TarnOITexture.h"
#include "tests/support/BoundNode.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;

namespace {
// Coin's lists are open to derived classes only.
struct SoSearchActionLists : SoSearchAction {
  static const SoEnabledElementsList* elements() { return getClassEnabledElements(); }
};
}  // namespace

class TarnOISearchActionTest : public TarnTest {
protected:
  static void SetUpTestSuite() { BoundNode::initClass(); }
  static void TearDownTestSuite() { BoundNode::CleanUpInitClass(); }

  // Methods stay in the list for good: a fresh one keeps a test's own to itself.
  static void renewClass() {
    TarnOISearchAction::CleanUpInitClass();
    TarnOISearchAction::initClass();
  }

  tarn::VObject object;
};

TEST_F(TarnOISearchActionTest, ANewActionSeeksNullAndTheFirst) {
  const TarnOISearchAction search;
  EXPECT_EQ(search.GetTarnObject(), nullptr);
  EXPECT_EQ(search.getInterest(), SoSearchAction::FIRST);
  EXPECT_EQ(search.getPath(), nullptr);
  EXPECT_EQ(search.getTypeId(), TarnOISearchAction::getClassTypeId());
  EXPECT_TRUE(search.isOfType(SoSearchAction::getClassTypeId()));
}

TEST_F(TarnOISearchActionTest, KeepsTheObjectSought) {
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  EXPECT_EQ(search.GetTarnObject(), &object);
  search.SetTarnObject(nullptr);
  EXPECT_EQ(search.GetTarnObject(), nullptr);
}

TEST_F(TarnOISearchActionTest, FindsNothingWhereNothingIsModelBound) {
  auto root = makeNode<SoSeparator>();
  root->addChild(new SoCube);
  TarnOISearchAction search;
  search.setInterest(SoSearchAction::ALL);
  search.apply(root.get());
  EXPECT_EQ(search.getPaths().getLength(), 0);
}

TEST_F(TarnOISearchActionTest, StillSearchesByNodeNameAndType) {
  auto root = makeNode<SoSeparator>();
  auto* cube = new SoCube;
  cube->setName("house");
  root->addChild(new SoGroup);
  root->addChild(cube);
  for (int condition = 0; condition < 3; ++condition) {
    TarnOISearchAction search;
    search.SetTarnObject(&object);
    if (condition == 0) search.setNode(cube);
    if (condition == 1) search.setName("house");
    if (condition == 2) search.setType(SoCube::getClassTypeId());
    search.apply(root.get());
    ASSERT_NE(search.getPath(), nullptr) << condition;
    EXPECT_EQ(search.getPath()->getTail(), cube);
  }
}

TEST_F(TarnOISearchActionTest, OnlyAnActionOfThisClassIsOne) {
  TarnOISearchAction ours;
  SoSearchAction plain;
  EXPECT_EQ(TarnOISearchAction::from(&ours), &ours);
  EXPECT_EQ(TarnOISearchAction::from(&plain), nullptr);
}

TEST_F(TarnOISearchActionTest, AnElementIsEnabledInThisClassOnly) {
  renewClass();
  const SoType element = SoComplexityElement::getClassTypeId();
  const auto enabled = [&] {
    return TarnOISearchAction().getEnabledElements().getElements().find(element) != -1;
  };
  ASSERT_FALSE(enabled());
  TarnOISearchAction::enableElement(element, SoComplexityElement::getClassStackIndex());
  EXPECT_TRUE(enabled());
  EXPECT_EQ(SoSearchActionLists::elements()->getElements().find(element), -1);
  EXPECT_EQ(&TarnOISearchAction().getEnabledElements(),
            TarnOISearchAction::getClassEnabledElements());
  renewClass();
  EXPECT_FALSE(enabled());
}

TEST_F(TarnOISearchActionTest, AMethodOfTheHostIsCalledForItsType) {
  renewClass();
  static int called = 0;
  called = 0;
  TarnOISearchAction::addMethod(SoFont::getClassTypeId(), [](SoAction*, SoNode*) { ++called; });
  auto root = makeNode<SoSeparator>();
  root->addChild(new SoFont);
  auto* bound = new BoundNode;
  bound->SetTarnObject(&object, &dictionary);
  // Below a model-bound node too, where Coin's own leaves are passed over.
  bound->addChild(new SoFont);
  root->addChild(bound);
  TarnOISearchAction search;
  tarn::VObject nobody;
  search.SetTarnObject(&nobody);
  search.apply(root.get());
  EXPECT_EQ(called, 2);
  SoSearchAction plain;
  plain.setType(SoFont::getClassTypeId());
  plain.setInterest(SoSearchAction::ALL);
  plain.apply(root.get());
  EXPECT_EQ(called, 2);
  EXPECT_EQ(plain.getPaths().getLength(), 2);
  renewClass();
}

TEST_F(TarnOISearchActionTest, LeavesThatAnswerForNoObjectNeedNoVisit) {
  auto root = makeNode<SoGroup>();
  TarnOISearchAction search;
  const auto mayMatch = [&search](SoNode* node) {
    const NodeRef<SoNode> held(node);
    return search.mayMatch(*node);
  };
  // Nothing is known before the action is applied.
  EXPECT_TRUE(mayMatch(new SoCube));
  search.apply(root.get());
  EXPECT_FALSE(mayMatch(new SoCube));
  EXPECT_FALSE(mayMatch(new SoTranslation));
  EXPECT_FALSE(mayMatch(new SoMaterial));
  EXPECT_FALSE(mayMatch(new TarnOIText2));
  EXPECT_FALSE(mayMatch(new TarnOIMaterialWithPriority));
  EXPECT_FALSE(mayMatch(new TarnOIDrawStyle));
  EXPECT_TRUE(mayMatch(new SoGroup));
  EXPECT_TRUE(mayMatch(new TarnOIMaterial));
  auto* texture = new TarnOITexture;
  tarn::VPathString path;
  texture->SetFileName(&path, &dictionary);
  EXPECT_TRUE(mayMatch(texture));
}

TEST_F(TarnOISearchActionTest, UseBeforeTheRegistrationIsReported) {
  TarnOISearchAction::CleanUpInitClass();
  EXPECT_EQ(TarnOISearchAction::getClassTypeId(), SoType::badType());
  EXPECT_EQ(TarnOISearchAction::getClassEnabledElements(), nullptr);
  EXPECT_EQ(TarnOISearchAction::getClassActionMethods(), nullptr);
  TarnOISearchAction::addMethod(SoCube::getClassTypeId(), [](SoAction*, SoNode*) {});
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("TarnOISearchAction::methods", "TarnOISearchAction")));
  TarnOISearchAction::enableElement(SoComplexityElement::getClassTypeId(),
                                    SoComplexityElement::getClassStackIndex());
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("TarnOISearchAction::enabledElements",
                                                        "TarnOISearchAction")));
  {
    const TarnOISearchAction search;
    EXPECT_EQ(&search.getEnabledElements(), SoSearchActionLists::elements());
  }
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("TarnOISearchAction::enabledElements",
                                                        "TarnOISearchAction")));
  TarnOISearchAction::initClass();
  EXPECT_NE(TarnOISearchAction::getClassActionMethods(), nullptr);
}

TEST_F(TarnOISearchActionTest, CleanUpTwiceAndRegistrationAgainFindsObjects) {
  auto root = makeNode<SoSeparator>();
  auto* bound = new BoundNode;
  bound->SetTarnObject(&object, &dictionary);
  root->addChild(bound);
  for (int round = 0; round < 3; ++round) {
    TarnOISearchAction search;
    search.SetTarnObject(&object);
    search.apply(root.get());
    ASSERT_NE(search.getPath(), nullptr);
    EXPECT_EQ(search.getPath()->getTail(), bound);
    TarnOISearchAction::CleanUpInitClass();
    TarnOISearchAction::CleanUpInitClass();
    TarnOISearchAction::initClass();
  }
}

TEST_F(TarnOISearchActionTest, AnOrdinarySearchWorksWhileTheClassIsNotRegistered) {
  TarnOISearchAction::CleanUpInitClass();
  auto root = makeNode<SoSeparator>();
  auto* bound = new BoundNode;
  root->addChild(bound);
  SoSearchAction search;
  search.setType(BoundNode::getClassTypeId());
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), bound);
  TarnOISearchAction::initClass();
}
