#include "nodes/framework/TarnOISeparator.h"

#include <Inventor/SbName.h>
#include <Inventor/SbViewportRegion.h>
#include <Inventor/SoPath.h>
#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoGetMatrixAction.h>
#include <Inventor/actions/SoPickAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/actions/SoSubAction.h>
#include <Inventor/elements/SoDrawStyleElement.h>
#include <Inventor/elements/SoLinePatternElement.h>
#include <Inventor/elements/SoLineWidthElement.h>
#include <Inventor/elements/SoPointSizeElement.h>
#include <Inventor/lists/SoEnabledElementsList.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/nodes/SoCallback.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoTransform.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/model/BasicAffine.h"
#include "host/model/Material.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIDrawStyle.h"
#include "nodes/framework/TarnOIMaterial.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "tests/support/BoundNode.h"
#include "tests/support/TarnTest.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Change = RecordingDictionary::Change;

class TarnOISeparatorTest : public TarnTest {
protected:
  static void SetUpTestSuite() { BoundNode::initClass(); }
  static void TearDownTestSuite() { BoundNode::CleanUpInitClass(); }

  tarn::VObject object;
  tarn::VObject other;
  RecordingDictionary otherDictionary;
};

// ---- binding

using TarnOISeparatorBinding = TarnOISeparatorTest;

TEST_F(TarnOISeparatorBinding, ANewNodeIsUnbound) {
  auto node = makeNode<BoundNode>();
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(node->dictionary(), nullptr);
}

TEST_F(TarnOISeparatorBinding, BindingEntersTheNodeUnderItsObject) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  EXPECT_EQ(node->GetTarnObject(), &object);
  EXPECT_EQ(node->dictionary(), &dictionary);
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::ePut, &object, node.get()}));
  EXPECT_EQ(dictionary.atKey(&object), node.get());
}

TEST_F(TarnOISeparatorBinding, BindingTheSameObjectAgainTouchesNoDictionary) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  dictionary.takeChanges();
  node->SetTarnObject(&object, &dictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_EQ(dictionary.size(), 1);
}

TEST_F(TarnOISeparatorBinding, BindingTheSameObjectWithAnotherDictionaryKeepsTheFirst) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  dictionary.takeChanges();
  node->SetTarnObject(&object, &otherDictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_THAT(otherDictionary.takeChanges(), IsEmpty());
  EXPECT_EQ(node->dictionary(), &dictionary);
}

TEST_F(TarnOISeparatorBinding, RebindingRemovesTheOldKeyBeforeItEntersTheNew) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  dictionary.takeChanges();
  node->SetTarnObject(&other, &dictionary);
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &object, nullptr},
                                                    Change{Change::ePut, &other, node.get()}));
}

TEST_F(TarnOISeparatorBinding, RebindingRemovesTheOldKeyFromTheDictionaryPassedIn) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  dictionary.takeChanges();
  node->SetTarnObject(&other, &otherDictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_EQ(dictionary.atKey(&object), node.get());
  EXPECT_THAT(otherDictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &object, nullptr},
                                                         Change{Change::ePut, &other, node.get()}));
  EXPECT_EQ(node->dictionary(), &otherDictionary);
}

TEST_F(TarnOISeparatorBinding, NullUnbindsAndKeepsTheDictionary) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  dictionary.takeChanges();
  node->SetTarnObject(nullptr, &otherDictionary);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(node->dictionary(), &dictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_THAT(otherDictionary.takeChanges(),
              ElementsAre(Change{Change::eRemove, &object, nullptr}));
}

TEST_F(TarnOISeparatorBinding, NullOnAnUnboundNodeDoesNothing) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(nullptr, &dictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_EQ(node->dictionary(), nullptr);
}

TEST_F(TarnOISeparatorBinding, ANullDictionaryBindsWithoutAnEntry) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, nullptr);
  EXPECT_EQ(node->GetTarnObject(), &object);
  node->SetTarnObject(&other, nullptr);
  EXPECT_EQ(node->GetTarnObject(), &other);
  node.reset();
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}

TEST_F(TarnOISeparatorBinding, ASecondNodeTakesTheEntryOver) {
  auto first = makeNode<BoundNode>();
  auto second = makeNode<BoundNode>();
  first->SetTarnObject(&object, &dictionary);
  second->SetTarnObject(&object, &dictionary);
  EXPECT_EQ(dictionary.size(), 1);
  EXPECT_EQ(dictionary.atKey(&object), second.get());
}

TEST_F(TarnOISeparatorBinding, DestructionRemovesTheKey) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  dictionary.takeChanges();
  node.reset();
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &object, nullptr}));
}

TEST_F(TarnOISeparatorBinding, DestructionRemovesAKeyThatAnotherNodeHasTakenOver) {
  auto first = makeNode<BoundNode>();
  auto second = makeNode<BoundNode>();
  first->SetTarnObject(&object, &dictionary);
  second->SetTarnObject(&object, &dictionary);
  first.reset();
  EXPECT_EQ(dictionary.size(), 0);
}

TEST_F(TarnOISeparatorBinding, DestructionOfAnUnboundNodeTouchesNoDictionary) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  node->SetTarnObject(nullptr, &dictionary);
  dictionary.takeChanges();
  node.reset();
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}

TEST_F(TarnOISeparatorBinding, CopyConstructionTakesTheMembersWithoutAnEntry) {
  auto node = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  dictionary.takeChanges();
  auto copy = makeNode<BoundNode>(*node);
  EXPECT_EQ(copy->GetTarnObject(), &object);
  EXPECT_EQ(copy->dictionary(), &dictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_EQ(dictionary.atKey(&object), node.get());
  EXPECT_EQ(copy->getRefCount(), 1);
}

TEST_F(TarnOISeparatorBinding, AssignmentTakesTheMembersWithoutAnEntry) {
  auto node = makeNode<BoundNode>();
  auto assigned = makeNode<BoundNode>();
  node->SetTarnObject(&object, &dictionary);
  assigned->SetTarnObject(&other, &otherDictionary);
  dictionary.takeChanges();
  otherDictionary.takeChanges();
  *assigned = *node;
  EXPECT_EQ(assigned->GetTarnObject(), &object);
  EXPECT_EQ(assigned->dictionary(), &dictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_THAT(otherDictionary.takeChanges(), IsEmpty());
}

TEST_F(TarnOISeparatorBinding, ANodeCopyTakesTheEntryAndTheChildren) {
  auto node = makeNode<BoundNode>();
  node->addChild(new SoCube);
  node->SetTarnObject(&object, &dictionary);
  dictionary.takeChanges();
  const NodeRef<SoNode> copy(node->copy());
  auto* bound = static_cast<BoundNode*>(copy.get());
  EXPECT_EQ(bound->GetTarnObject(), &object);
  EXPECT_EQ(bound->dictionary(), &dictionary);
  EXPECT_EQ(bound->getNumChildren(), 1);
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::ePut, &object, bound}));
}

TEST_F(TarnOISeparatorBinding, ANodeBelowACopiedGroupComesOutUnbound) {
  auto group = makeNode<SoGroup>();
  auto* node = new BoundNode;
  group->addChild(node);
  node->SetTarnObject(&object, &dictionary);
  const NodeRef<SoNode> copy(group->copy());
  auto* nested = static_cast<BoundNode*>(static_cast<SoGroup*>(copy.get())->getChild(0));
  EXPECT_EQ(nested->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.atKey(&object), node);
}

// ---- elements

namespace {
// The lists of enabled elements are open to derived classes only.
struct BoxElements : SoGetBoundingBoxAction {
  static const SoEnabledElementsList& list() { return *getClassEnabledElements(); }
};
struct PickElements : SoRayPickAction {
  static const SoEnabledElementsList& list() { return *getClassEnabledElements(); }
};

bool enables(const SoEnabledElementsList& list, SoType type) {
  return list.getElements().find(type) != -1;
}
}  // namespace

TEST_F(TarnOISeparatorTest, RegistrationEnablesTheDrawStyleElementsInBothActions) {
  for (const SoEnabledElementsList* list : {&BoxElements::list(), &PickElements::list()}) {
    EXPECT_TRUE(enables(*list, SoDrawStyleElement::getClassTypeId()));
    EXPECT_TRUE(enables(*list, SoLinePatternElement::getClassTypeId()));
    EXPECT_TRUE(enables(*list, SoLineWidthElement::getClassTypeId()));
    EXPECT_TRUE(enables(*list, SoPointSizeElement::getClassTypeId()));
  }
}

// ---- invisible nodes

class TarnOISeparatorInvisible : public TarnOISeparatorTest {
protected:
  TarnOISeparatorInvisible() {
    root->addChild(style);
    root->addChild(node);
    auto* move = new SoTranslation;
    move->translation.setValue(1, 2, 3);
    node->addChild(move);
    node->addChild(new SoCube);
  }

  SbBox3f box() {
    SoGetBoundingBoxAction action(viewport);
    action.apply(root.get());
    return action.getBoundingBox();
  }
  bool isPicked() {
    SoRayPickAction action(viewport);
    action.setRay(SbVec3f(1.25F, 2.125F, 20), SbVec3f(0, 0, -1));
    action.apply(root.get());
    return action.getPickedPoint() != nullptr;
  }

  const SbViewportRegion viewport{100, 100};
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  TarnOIDrawStyle* style = new TarnOIDrawStyle;
  BoundNode* node = new BoundNode;
};

TEST_F(TarnOISeparatorInvisible, AVisibleNodeIsMeasuredAndPicked) {
  EXPECT_EQ(box().getCenter(), SbVec3f(1, 2, 3));
  EXPECT_TRUE(isPicked());
}

TEST_F(TarnOISeparatorInvisible, AnInvisibleNodeHasNoBoundingBox) {
  style->style.setValue(SoDrawStyle::INVISIBLE);
  EXPECT_TRUE(box().isEmpty());
}

TEST_F(TarnOISeparatorInvisible, AnInvisibleNodeIsNotPicked) {
  style->style.setValue(SoDrawStyle::INVISIBLE);
  EXPECT_FALSE(isPicked());
}

TEST_F(TarnOISeparatorInvisible, NodesDrawnAsLinesOrPointsAreMeasuredAndPicked) {
  for (const auto drawn : {SoDrawStyle::LINES, SoDrawStyle::POINTS}) {
    style->style.setValue(drawn);
    EXPECT_FALSE(box().isEmpty());
    EXPECT_TRUE(isPicked());
  }
}

TEST_F(TarnOISeparatorInvisible, APlainDrawStyleDoesNotHideFromBoxesAndPicks) {
  auto* plain = new SoDrawStyle;
  plain->style.setValue(SoDrawStyle::INVISIBLE);
  root->replaceChild(style, plain);
  EXPECT_FALSE(box().isEmpty());
  EXPECT_TRUE(isPicked());
}

TEST_F(TarnOISeparatorInvisible, ANodeThatIsNotModelBoundIsMeasuredAndPickedAllTheSame) {
  style->style.setValue(SoDrawStyle::INVISIBLE);
  auto* plain = new SoSeparator;
  plain->addChild(node->getChild(0));
  plain->addChild(node->getChild(1));
  root->replaceChild(node, plain);
  EXPECT_FALSE(box().isEmpty());
  EXPECT_TRUE(isPicked());
}

TEST_F(TarnOISeparatorInvisible, BoundingBoxCachesAboveFollowTheDrawStyle) {
  // The style stands outside of the separator that keeps the cache.
  auto* cached = new SoSeparator;
  cached->boundingBoxCaching.setValue(SoSeparator::ON);
  cached->addChild(node);
  root->replaceChild(node, cached);
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(box().isEmpty());
  style->style.setValue(SoDrawStyle::INVISIBLE);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(box().isEmpty());
  style->style.setValue(SoDrawStyle::FILLED);
  EXPECT_FALSE(box().isEmpty());
}

TEST_F(TarnOISeparatorInvisible, PickIsHandedToTheChildrenOfAVisibleNodeOnly) {
  // Coin's ray pick calls rayPick; pick is called by hand from within a traversal.
  int reached = 0;
  auto* probe = new SoCallback;
  probe->setCallback([](void* data, SoAction*) { ++*static_cast<int*>(data); }, &reached);
  node->addChild(probe);
  auto* caller = new SoCallback;
  caller->setCallback(
      [](void* data, SoAction* action) {
        if (action->isOfType(SoPickAction::getClassTypeId())) {
          static_cast<BoundNode*>(data)->pick(static_cast<SoPickAction*>(action));
        }
      },
      node);
  const NodeRef<BoundNode> held(node);
  root->replaceChild(node, caller);
  SoRayPickAction action(viewport);
  action.setRay(SbVec3f(100, 200, 20), SbVec3f(0, 0, -1));
  action.apply(root.get());
  EXPECT_EQ(reached, 1);
  style->style.setValue(SoDrawStyle::INVISIBLE);
  action.apply(root.get());
  EXPECT_EQ(reached, 1);
}

// A pick action of an application, that enables no draw style.
class PlainPickAction : public SoPickAction {
  SO_ACTION_HEADER(PlainPickAction);

public:
  static void initClass() { SO_ACTION_INIT_CLASS(PlainPickAction, SoPickAction); }
  explicit PlainPickAction(const SbViewportRegion& region) : SoPickAction(region) {
    SO_ACTION_CONSTRUCTOR(PlainPickAction);
  }

protected:
  void beginTraversal(SoNode* node) override { traverse(node); }
};
SO_ACTION_SOURCE(PlainPickAction);

TEST_F(TarnOISeparatorInvisible, APickActionWithoutDrawStylesPicksTheNode) {
  static const bool registered = [] {
    PlainPickAction::initClass();
    PlainPickAction::addMethod(SoNode::getClassTypeId(), [](SoAction*, SoNode*) {});
    PlainPickAction::addMethod(SoGroup::getClassTypeId(), SoNode::pickS);
    PlainPickAction::addMethod(SoCallback::getClassTypeId(), SoNode::pickS);
    return true;
  }();
  ASSERT_TRUE(registered);
  int reached = 0;
  auto* probe = new SoCallback;
  probe->setCallback([](void* data, SoAction*) { ++*static_cast<int*>(data); }, &reached);
  node->addChild(probe);
  PlainPickAction action(viewport);
  action.apply(root.get());
  EXPECT_EQ(reached, 1);
}

// ---- search

class TarnOISeparatorSearch : public TarnOISeparatorTest {
protected:
  // root [ a [ a1, a2 ], b ]
  TarnOISeparatorSearch() {
    root->addChild(a);
    a->addChild(a1);
    a->addChild(a2);
    root->addChild(b);
    // Nothing is left unbound, so that a search for null finds nothing by chance.
    for (BoundNode* node : {a, a1, a2, b}) node->SetTarnObject(&other, &dictionary);
  }

  std::vector<SoNode*> foundAll(TarnOISearchAction& search) {
    search.setInterest(SoSearchAction::ALL);
    search.apply(root.get());
    std::vector<SoNode*> tails;
    for (int i = 0; i < search.getPaths().getLength(); ++i) {
      tails.push_back(search.getPaths()[i]->getTail());
    }
    return tails;
  }
  std::vector<SoNode*> foundAll(tarn::VObject* sought) {
    TarnOISearchAction search;
    search.SetTarnObject(sought);
    return foundAll(search);
  }

  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  BoundNode* a = new BoundNode;
  BoundNode* a1 = new BoundNode;
  BoundNode* a2 = new BoundNode;
  BoundNode* b = new BoundNode;
};

TEST_F(TarnOISeparatorSearch, FirstStopsAtTheFirstMatch) {
  a2->SetTarnObject(&object, &dictionary);
  b->SetTarnObject(&object, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_TRUE(search.isFound());
  EXPECT_EQ(search.getPath()->getLength(), 3);
  EXPECT_EQ(search.getPath()->getNode(1), a);
  EXPECT_EQ(search.getPath()->getTail(), a2);
}

TEST_F(TarnOISeparatorSearch, FirstDoesNotVisitTheChildrenOfTheMatch) {
  a->SetTarnObject(&object, &dictionary);
  a1->SetTarnObject(&object, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), a);
}

TEST_F(TarnOISeparatorSearch, LastKeepsTheLastMatch) {
  for (BoundNode* node : {a, a1, b}) node->SetTarnObject(&object, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  search.setInterest(SoSearchAction::LAST);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), b);
}

TEST_F(TarnOISeparatorSearch, AllCollectsMatchesAboveAndBelowOneAnother) {
  for (BoundNode* node : {a, a2, b}) node->SetTarnObject(&object, &dictionary);
  EXPECT_THAT(foundAll(&object), ElementsAre(a, a2, b));
}

TEST_F(TarnOISeparatorSearch, ANodeUnderSeveralParentsYieldsAPathForEach) {
  b->SetTarnObject(&object, &dictionary);
  auto* second = new SoGroup;
  second->addChild(b);
  root->addChild(second);
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  EXPECT_THAT(foundAll(search), ElementsAre(b, b));
  EXPECT_EQ(search.getPaths()[0]->getLength(), 2);
  EXPECT_EQ(search.getPaths()[1]->getLength(), 3);
  EXPECT_EQ(search.getPaths()[1]->getNode(1), second);
}

TEST_F(TarnOISeparatorSearch, ThePathsAreCopiesThatOutliveTheTraversal) {
  b->SetTarnObject(&object, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  search.apply(root.get());
  const NodeRef<SoPath> path(search.getPath());
  search.reset();
  search.SetTarnObject(&other);
  search.apply(root.get());
  EXPECT_EQ(path->getTail(), b);
}

TEST_F(TarnOISeparatorSearch, NullFindsTheUnboundNodesAndNoOthers) {
  EXPECT_THAT(foundAll(static_cast<tarn::VObject*>(nullptr)), IsEmpty());
  a1->SetTarnObject(nullptr, &dictionary);
  EXPECT_THAT(foundAll(static_cast<tarn::VObject*>(nullptr)), ElementsAre(a1));
}

TEST_F(TarnOISeparatorSearch, AnObjectThatNoNodeShowsIsNotFound) {
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  search.apply(root.get());
  EXPECT_EQ(search.getPath(), nullptr);
  EXPECT_FALSE(search.isFound());
}

TEST_F(TarnOISeparatorSearch, ANodeConditionMatchesBesidesTheObject) {
  auto* cube = new SoCube;
  a2->addChild(cube);
  b->SetTarnObject(&object, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  search.setNode(cube);
  EXPECT_THAT(foundAll(search), ElementsAre(cube, b));
}

TEST_F(TarnOISeparatorSearch, ANameConditionMatchesBesidesTheObject) {
  auto* cube = new SoCube;
  cube->setName("window");
  a1->addChild(cube);
  b->SetTarnObject(&object, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  search.setName("window");
  EXPECT_THAT(foundAll(search), ElementsAre(cube, b));
}

TEST_F(TarnOISeparatorSearch, ATypeConditionMatchesBesidesTheObject) {
  auto* sphere = new SoSphere;
  a1->addChild(sphere);
  b->SetTarnObject(&object, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  search.setType(SoSphere::getClassTypeId());
  EXPECT_THAT(foundAll(search), ElementsAre(sphere, b));
}

TEST_F(TarnOISeparatorSearch, ANodeThatMatchesByObjectAndByNameIsFoundForBoth) {
  b->SetTarnObject(&object, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&object);
  search.setName(SbName("bound"));
  b->setName("bound");
  EXPECT_THAT(foundAll(search), ElementsAre(b, b));
}

TEST_F(TarnOISeparatorSearch, AnOrdinarySearchKnowsNothingOfObjects) {
  SoSearchAction search;
  search.setType(BoundNode::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(root.get());
  EXPECT_EQ(search.getPaths().getLength(), 4);
}

TEST_F(TarnOISeparatorSearch, AMaterialBelowANodeIsFoundByItsHostMaterial) {
  tarn::Material hostMaterial;
  auto* material = new TarnOIMaterial;
  material->SetMaterial(&hostMaterial);
  b->addChild(new SoCoordinate3);
  b->addChild(material);
  EXPECT_THAT(foundAll(&hostMaterial), ElementsAre(material));
}

TEST_F(TarnOISeparatorSearch, AChildAddedWhileNotificationIsOffIsFoundToo) {
  tarn::Material hostMaterial;
  auto* material = new TarnOIMaterial;
  const NodeRef<SoNode> held(material);
  material->SetMaterial(&hostMaterial);
  b->addChild(new SoCoordinate3);
  EXPECT_THAT(foundAll(&hostMaterial), IsEmpty());
  b->enableNotify(FALSE);
  b->addChild(material);
  EXPECT_THAT(foundAll(&hostMaterial), ElementsAre(material));
  b->enableNotify(TRUE);
}

TEST_F(TarnOISeparatorSearch, AChildThatTookAnothersPlaceWhileNotificationIsOffIsFoundToo) {
  tarn::Material hostMaterial;
  const NodeRef<TarnOIMaterial> material = makeNode<TarnOIMaterial>();
  material->SetMaterial(&hostMaterial);
  auto* coordinates = new SoCoordinate3;
  b->addChild(coordinates);
  b->enableNotify(FALSE);
  EXPECT_THAT(foundAll(&hostMaterial), IsEmpty());
  b->replaceChild(coordinates, material.get());
  EXPECT_THAT(foundAll(&hostMaterial), ElementsAre(material.get()));
  b->removeChild(material.get());
  EXPECT_THAT(foundAll(&hostMaterial), IsEmpty());
  b->insertChild(material.get(), 0);
  EXPECT_THAT(foundAll(&hostMaterial), ElementsAre(material.get()));
  b->removeAllChildren();
  EXPECT_THAT(foundAll(&hostMaterial), IsEmpty());
  b->Highlight(material.get(), 1);
  EXPECT_THAT(foundAll(&hostMaterial), ElementsAre(material.get()));
  b->removeAllChildren();
  b->enableNotify(TRUE);
}

// A leaf of an application, that answers for an object of its own.
class AnsweringLeaf : public SoNode {
  TARNOI_NODE_HEADER(AnsweringLeaf);

public:
  AnsweringLeaf() { TARNOI_NODE_CONSTRUCTOR(); }
  tarn::VObject* answersFor = nullptr;
  void search(SoSearchAction* action) override {
    auto* objectSearch = TarnOISearchAction::from(action);
    if (objectSearch && objectSearch->GetTarnObject() == answersFor) objectSearch->addCurrentPath();
  }
};
TARNOI_NODE_SOURCE(AnsweringLeaf, SoNode);
void AnsweringLeaf::initClass() { registration.init(&AnsweringLeaf::atexit_cleanup); }

TEST_F(TarnOISeparatorSearch, ALeafOfAnApplicationIsAskedToo) {
  AnsweringLeaf::initClass();
  {
    auto* leaf = new AnsweringLeaf;
    leaf->answersFor = &object;
    b->addChild(leaf);
    EXPECT_THAT(foundAll(&object), ElementsAre(leaf));
    b->removeChild(leaf);
  }
  AnsweringLeaf::CleanUpInitClass();
}

// ---- highlight

class TarnOISeparatorHighlight : public TarnOISeparatorTest {
protected:
  static SoMaterial* plain() { return new SoMaterial; }
  static TarnOIMaterialWithPriority* withPriority(int priority) {
    auto* material = new TarnOIMaterialWithPriority;
    material->SetPriority(priority);
    return material;
  }
  void build(std::initializer_list<SoNode*> nodes) {
    for (SoNode* child : nodes) node->addChild(child);
  }
  std::vector<SoNode*> children() const {
    std::vector<SoNode*> result;
    for (int i = 0; i < node->getNumChildren(); ++i) result.push_back(node->getChild(i));
    return result;
  }

  NodeRef<BoundNode> node = makeNode<BoundNode>();
  SoCoordinate3* coordinates = new SoCoordinate3;
  SoCube* shape = new SoCube;
  // Owned beyond the nodes, as the host owns its highlight materials.
  NodeRef<SoMaterial> m{plain()};
  const NodeRef<SoNode> keepCoordinates{coordinates};
  const NodeRef<SoNode> keepShape{shape};
};

TEST_F(TarnOISeparatorHighlight, GoesDirectlyAfterTheLastMaterial) {
  SoMaterial* own = plain();
  build({own, coordinates, shape});
  node->Highlight(m.get(), 1);
  EXPECT_THAT(children(), ElementsAre(own, m.get(), coordinates, shape));
}

TEST_F(TarnOISeparatorHighlight, GoesAfterTheLastOfSeveralMaterials) {
  SoMaterial* first = plain();
  SoMaterial* second = plain();
  build({first, coordinates, second, shape});
  node->Highlight(m.get(), 1);
  EXPECT_THAT(children(), ElementsAre(first, coordinates, second, m.get(), shape));
}

TEST_F(TarnOISeparatorHighlight, GoesToTheFrontWhereThereIsNoMaterial) {
  build({coordinates, shape});
  node->Highlight(m.get(), 1);
  EXPECT_THAT(children(), ElementsAre(m.get(), coordinates, shape));
}

TEST_F(TarnOISeparatorHighlight, IsTheOnlyChildOfAnEmptyNode) {
  node->Highlight(m.get(), 1);
  EXPECT_THAT(children(), ElementsAre(m.get()));
}

TEST_F(TarnOISeparatorHighlight, TwiceInsertsOnce) {
  build({coordinates, shape});
  node->Highlight(m.get(), 1);
  node->Highlight(m.get(), 1);
  EXPECT_THAT(children(), ElementsAre(m.get(), coordinates, shape));
}

TEST_F(TarnOISeparatorHighlight, AMaterialThatIsAChildAlreadyStaysWhereItIs) {
  SoMaterial* last = plain();
  build({m.get(), coordinates, last, shape});
  node->Highlight(m.get(), 1);
  EXPECT_THAT(children(), ElementsAre(m.get(), coordinates, last, shape));
}

TEST_F(TarnOISeparatorHighlight, ZeroTakesTheMaterialOut) {
  SoMaterial* own = plain();
  build({own, coordinates, shape});
  node->Highlight(m.get(), 1);
  node->Highlight(m.get(), 0);
  EXPECT_THAT(children(), ElementsAre(own, coordinates, shape));
}

TEST_F(TarnOISeparatorHighlight, ZeroOnANodeWithoutTheMaterialDoesNothing) {
  SoMaterial* own = plain();
  build({own, shape});
  node->Highlight(m.get(), 0);
  EXPECT_THAT(children(), ElementsAre(own, shape));
}

TEST_F(TarnOISeparatorHighlight, AnyNonZeroFlagHighlights) {
  build({shape});
  node->Highlight(m.get(), -3);
  EXPECT_THAT(children(), ElementsAre(m.get(), shape));
}

TEST_F(TarnOISeparatorHighlight, NullIsIgnored) {
  build({shape});
  node->Highlight(nullptr, 1);
  node->Highlight(nullptr, 0);
  EXPECT_THAT(children(), ElementsAre(shape));
}

TEST_F(TarnOISeparatorHighlight, OneMaterialIsSharedByManyNodes) {
  auto second = makeNode<BoundNode>();
  node->Highlight(m.get(), 1);
  second->Highlight(m.get(), 1);
  EXPECT_EQ(m->getRefCount(), 3);
  node->Highlight(m.get(), 0);
  EXPECT_EQ(second->findChild(m.get()), 0);
}

TEST_F(TarnOISeparatorHighlight, AMiddlePriorityGoesBetween) {
  auto* p5 = withPriority(5);
  auto* p2 = withPriority(2);
  build({p5, p2, shape});
  auto* p3 = withPriority(3);
  node->Highlight(p3, 1);
  EXPECT_THAT(children(), ElementsAre(p5, p2, p3, shape));
}

TEST_F(TarnOISeparatorHighlight, TheLowestPriorityGoesToTheFront) {
  auto* p5 = withPriority(5);
  auto* p2 = withPriority(2);
  build({p5, p2, shape});
  auto* p1 = withPriority(1);
  node->Highlight(p1, 1);
  EXPECT_THAT(children(), ElementsAre(p1, p5, p2, shape));
}

TEST_F(TarnOISeparatorHighlight, TheHighestPriorityEndsLast) {
  auto* p1 = withPriority(1);
  auto* p2 = withPriority(2);
  auto* p3 = withPriority(3);
  build({shape});
  for (auto* material : {p2, p3, p1}) node->Highlight(material, 1);
  EXPECT_THAT(children(), ElementsAre(p1, p2, p3, shape));
}

TEST_F(TarnOISeparatorHighlight, OfEqualPrioritiesTheEarlierKeepsTheWinningPlace) {
  auto* own = plain();
  auto* earlier = withPriority(4);
  auto* later = withPriority(4);
  build({own, shape});
  node->Highlight(earlier, 1);
  node->Highlight(later, 1);
  EXPECT_THAT(children(), ElementsAre(own, later, earlier, shape));
}

TEST_F(TarnOISeparatorHighlight, PrioritiesMayBeNegative) {
  auto* zero = withPriority(0);
  auto* negative = withPriority(-2);
  build({shape});
  node->Highlight(zero, 1);
  node->Highlight(negative, 1);
  EXPECT_THAT(children(), ElementsAre(negative, zero, shape));
}

TEST_F(TarnOISeparatorHighlight, AMaterialWithPriorityStopsAtAPlainOne) {
  auto* p9 = withPriority(9);
  auto* own = plain();
  build({p9, own, shape});
  auto* p1 = withPriority(1);
  node->Highlight(p1, 1);
  EXPECT_THAT(children(), ElementsAre(p9, own, p1, shape));
}

TEST_F(TarnOISeparatorHighlight, AMaterialWithPriorityPassesHigherOnesDownToAPlainOne) {
  auto* own = plain();
  auto* p9 = withPriority(9);
  build({own, p9, shape});
  auto* p1 = withPriority(1);
  node->Highlight(p1, 1);
  EXPECT_THAT(children(), ElementsAre(own, p1, p9, shape));
}

TEST_F(TarnOISeparatorHighlight, APlainMaterialGoesAfterOneWithPriority) {
  auto* own = plain();
  auto* p9 = withPriority(9);
  build({own, p9, shape});
  node->Highlight(m.get(), 1);
  EXPECT_THAT(children(), ElementsAre(own, p9, m.get(), shape));
}

TEST_F(TarnOISeparatorHighlight, MaterialsInNestedGroupsDoNotCount) {
  auto* group = new SoGroup;
  group->addChild(plain());
  build({group, shape});
  node->Highlight(m.get(), 1);
  EXPECT_THAT(children(), ElementsAre(m.get(), group, shape));
}

// ---- affine to transform

namespace {

using Point = tarn::Point3DDouble;

Point rowTimes(const Point& p, const std::array<double, 9>& m) {
  return {p.x * m[0] + p.y * m[3] + p.z * m[6], p.x * m[1] + p.y * m[4] + p.z * m[7],
          p.x * m[2] + p.y * m[5] + p.z * m[8]};
}

// Rows right, up, back of a body turned about all three axes by different angles.
std::array<double, 9> turned() {
  const double a = 0.3;
  const double b = -0.5;
  const double c = 1.1;
  const double ca = std::cos(a), sa = std::sin(a);
  const double cb = std::cos(b), sb = std::sin(b);
  const double cc = std::cos(c), sc = std::sin(c);
  return {cb * cc,
          cb * sc,
          -sb,  //
          sa * sb * cc - ca * sc,
          sa * sb * sc + ca * cc,
          sa * cb,  //
          ca * sb * cc + sa * sc,
          ca * sb * sc - sa * cc,
          ca * cb};
}

std::array<double, 9> transposed(const std::array<double, 9>& m) {
  return {m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]};
}

}  // namespace

class TarnOISeparatorAffine : public TarnOISeparatorTest {
protected:
  static constexpr double scale = 2.5;
  static constexpr Point before{1.5, -2.0, 3.25};
  static constexpr Point after{-7.0, 11.0, 0.75};

  TarnOISeparatorAffine() {
    tarn::MatrixDouble matrix(3, 3);
    for (int row = 1; row <= 3; ++row) {
      for (int column = 1; column <= 3; ++column) {
        matrix(row, column) = rotation[static_cast<std::size_t>((row - 1) * 3 + column - 1)];
      }
    }
    affine.SetScale(scale);
    affine.SetTranslation(before, after);
    affine.SetRotation(matrix);
  }

  // Where the transform takes a point of the model, as a point of the model. The axes are
  // changed by hand: (x, y, z) of the model is (x, z, -y) of the viewer.
  Point throughTransform(const Point& p) const {
    SoGetMatrixAction action(SbViewportRegion(100, 100));
    action.apply(transform.get());
    SbVec3f shown;
    action.getMatrix().multVecMatrix(
        SbVec3f(static_cast<float>(p.x), static_cast<float>(p.z), static_cast<float>(-p.y)), shown);
    return {shown[0], -shown[2], shown[1]};
  }

  template <typename Expected>
  void expectOnPoints(Expected expected) {
    for (const Point& p : {Point{1, 2, 3}, Point{-4, 0.5, 7}, Point{0, 0, 0}, Point{10, -20, 5}}) {
      const Point actual = throughTransform(p);
      const Point wanted = expected(p);
      EXPECT_NEAR(actual.x, wanted.x, 2e-4);
      EXPECT_NEAR(actual.y, wanted.y, 2e-4);
      EXPECT_NEAR(actual.z, wanted.z, 2e-4);
    }
  }

  void convert(int applyScale, int applyTranslation, int applyViewOffset, int inverse) {
    TarnOISeparator::ConvertTarnAffineToSoTransform(&affine, transform.get(), applyScale,
                                                    applyTranslation, applyViewOffset, inverse);
  }

  // The forward and then the inverse transform, with all flags but the view offset's set.
  SbMatrix forwardTimesInverse(int applyViewOffset) {
    SoGetMatrixAction matrix(SbViewportRegion(100, 100));
    convert(1, 1, applyViewOffset, 0);
    matrix.apply(transform.get());
    SbMatrix product = matrix.getMatrix();
    convert(1, 1, applyViewOffset, 1);
    matrix.apply(transform.get());
    product.multRight(matrix.getMatrix());
    return product;
  }

  const std::array<double, 9> rotation = turned();
  tarn::BasicAffine affine;
  NodeRef<SoTransform> transform = makeNode<SoTransform>();
};

TEST_F(TarnOISeparatorAffine, ForwardScalesTranslatesRotatesTranslatesAndOffsets) {
  convert(1, 1, 1, 0);
  expectOnPoints(
      [&](const Point& p) { return rowTimes(scale * p + before, rotation) + after - viewOffset; });
}

TEST_F(TarnOISeparatorAffine, ForwardAgreesWithTheHostsOwnConversion) {
  convert(1, 1, 0, 0);
  expectOnPoints([&](Point p) {
    affine.ConvertPoint(p);
    return p;
  });
}

TEST_F(TarnOISeparatorAffine, ForwardWithoutScale) {
  convert(0, 1, 1, 0);
  expectOnPoints(
      [&](const Point& p) { return rowTimes(p + before, rotation) + after - viewOffset; });
}

TEST_F(TarnOISeparatorAffine, ForwardWithoutTranslation) {
  convert(1, 0, 1, 0);
  expectOnPoints([&](const Point& p) { return rowTimes(scale * p, rotation) - viewOffset; });
}

TEST_F(TarnOISeparatorAffine, ForwardWithoutViewOffset) {
  convert(1, 1, 0, 0);
  expectOnPoints([&](const Point& p) { return rowTimes(scale * p + before, rotation) + after; });
}

TEST_F(TarnOISeparatorAffine, RotationIsAppliedWhateverTheFlags) {
  convert(0, 0, 0, 0);
  expectOnPoints([&](const Point& p) { return rowTimes(p, rotation); });
}

TEST_F(TarnOISeparatorAffine, InverseUndoesTheChainFromItsEnd) {
  convert(1, 1, 0, 1);
  expectOnPoints([&](const Point& p) {
    return (1.0 / scale) * (rowTimes(p - after, transposed(rotation)) - before);
  });
}

TEST_F(TarnOISeparatorAffine, InverseWithoutScale) {
  convert(0, 1, 0, 1);
  expectOnPoints(
      [&](const Point& p) { return rowTimes(p - after, transposed(rotation)) - before; });
}

TEST_F(TarnOISeparatorAffine, InverseWithoutTranslation) {
  convert(1, 0, 0, 1);
  expectOnPoints([&](const Point& p) { return (1.0 / scale) * rowTimes(p, transposed(rotation)); });
}

TEST_F(TarnOISeparatorAffine, InverseOffsetsLastToo) {
  convert(1, 1, 1, 1);
  expectOnPoints([&](const Point& p) {
    return (1.0 / scale) * (rowTimes(p - after, transposed(rotation)) - before) - viewOffset;
  });
}

TEST_F(TarnOISeparatorAffine, ForwardAndInverseMultiplyToTheIdentity) {
  EXPECT_TRUE(forwardTimesInverse(0).equals(SbMatrix::identity(), 1e-5F));
}

TEST_F(TarnOISeparatorAffine, ForwardAndInverseWithAllFlagsMultiplyToTheIdentityAtZeroOffset) {
  tarn::gThreeDViewOffset = {};
  EXPECT_TRUE(forwardTimesInverse(1).equals(SbMatrix::identity(), 1e-5F));
}

TEST_F(TarnOISeparatorAffine, ForwardAndInverseWithAllFlagsTakeTheOffsetOffTwice) {
  // Once before the inverse, which turns and shrinks it, and once after.
  const Point expected =
      -1.0 * viewOffset + (-1.0 / scale) * rowTimes(viewOffset, transposed(rotation));
  SbMatrix wanted;
  wanted.setTranslate(SbVec3f(static_cast<float>(expected.x), static_cast<float>(expected.z),
                              static_cast<float>(-expected.y)));
  // Floats of a size of about 60 were added and subtracted.
  EXPECT_TRUE(forwardTimesInverse(1).equals(wanted, 1e-4F));
}

TEST_F(TarnOISeparatorAffine, InverseInvertsTheHostsMatrixInPlace) {
  tarn::MatrixDouble* matrix = nullptr;
  ASSERT_TRUE(affine.GetRotation(&matrix));
  const tarn::MatrixDouble original = *matrix;
  convert(1, 1, 1, 0);
  EXPECT_EQ(*matrix, original);
  convert(1, 1, 1, 1);
  const tarn::MatrixDouble product = original * *matrix;
  for (int row = 1; row <= 3; ++row) {
    for (int column = 1; column <= 3; ++column) {
      EXPECT_NEAR(product(row, column), row == column ? 1.0 : 0.0, 1e-12);
    }
  }
  EXPECT_NE(*matrix, original);
}

TEST_F(TarnOISeparatorAffine, ARotationThatCannotBeInvertedIsReportedAndUsedAsItIs) {
  affine.SetRotation(tarn::MatrixDouble(3, 3));
  convert(1, 1, 1, 1);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("r.invert()", "TarnOISeparator")));
}

TEST_F(TarnOISeparatorAffine, ARotationThatCannotBeInvertedIsNoMatterForward) {
  tarn::MatrixDouble flat = tarn::MatrixDouble::Identity(3);
  flat(3, 3) = 0.0;
  affine.SetRotation(flat);
  convert(0, 0, 0, 0);
  EXPECT_THAT(takeAssertions(), IsEmpty());
}

TEST_F(TarnOISeparatorAffine, WithoutAnAffineOnlyTheViewOffsetIsLeft) {
  for (const int inverse : {0, 1}) {
    TarnOISeparator::ConvertTarnAffineToSoTransform(nullptr, transform.get(), 1, 1, 1, inverse);
    EXPECT_EQ(transform->translation.getValue(),
              SbVec3f(static_cast<float>(-viewOffset.x), static_cast<float>(-viewOffset.z),
                      static_cast<float>(viewOffset.y)));
    expectOnPoints([&](const Point& p) { return p - viewOffset; });
  }
}

TEST_F(TarnOISeparatorAffine, WithoutAffineAndOffsetNothingIsLeft) {
  transform->translation.setValue(1, 2, 3);
  TarnOISeparator::ConvertTarnAffineToSoTransform(nullptr, transform.get(), 1, 1, 0, 0);
  expectOnPoints([](const Point& p) { return p; });
}

TEST_F(TarnOISeparatorAffine, PartsThatTheAffineLacksAreLeftOut) {
  affine = tarn::BasicAffine();
  convert(1, 1, 0, 0);
  expectOnPoints([](const Point& p) { return p; });
  convert(1, 1, 0, 1);
  expectOnPoints([](const Point& p) { return p; });
  affine.SetScale(scale);
  convert(1, 1, 0, 0);
  expectOnPoints([](const Point& p) { return scale * p; });
}

namespace {
// Says that it has every part, and gives none.
class RefusingAffine : public tarn::BasicAffine {
public:
  int HasScale() const override { return 1; }
  int HasTranslation() const override { return 1; }
  int HasRotation() const override { return 1; }
  int GetScale(double& scale) const override {
    scale = 7.0;
    return 0;
  }
  int GetTranslation(Point& before, Point& after) const override {
    before = after = {1, 2, 3};
    return 0;
  }
  int GetRotation(tarn::MatrixDouble**) override { return 0; }
};
}  // namespace

TEST_F(TarnOISeparatorAffine, PartsThatTheAffineCannotGiveAreLeftOut) {
  RefusingAffine refusing;
  for (const int inverse : {0, 1}) {
    TarnOISeparator::ConvertTarnAffineToSoTransform(&refusing, transform.get(), 1, 1, 0, inverse);
    expectOnPoints([](const Point& p) { return p; });
  }
}
