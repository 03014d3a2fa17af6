// What all nodes of a plain point do alike. The object point, whose shape may be a marker,
// has its own test.
#include "nodes/framework/PointShape.h"

#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoMaterial.h>

#include "nodes/framework/TarnOISearchAction.h"
#include "tests/nodes/points/PointNodeCases.h"
#include "tests/support/SignalCount.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <typename Case>
class PointShapeTest : public PointNodeTest<Case> {};

using EveryPlainPoint = ::testing::Types<OffsetPointCase, CheckPointCase, ThreeDPointCase,
                                         ImportedPointCase, AffineObjectCase>;
TYPED_TEST_SUITE(PointShapeTest, EveryPlainPoint, PointNodeNames);

TYPED_TEST(PointShapeTest, AFreshNodeHasNoChildren) {
  EXPECT_EQ(this->node->getNumChildren(), 0);
  EXPECT_EQ(this->node->GetTarnObject(), nullptr);
}

TYPED_TEST(PointShapeTest, ThePointIsACoordinateAndAPointSet) {
  this->set(&this->object);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(childOf<SoCoordinate3>(*this->node).point.getNum(), 1);
}

TYPED_TEST(PointShapeTest, ThePointStandsInTheViewerFrame) {
  this->set(&this->object);
  EXPECT_EQ(this->placeOf(*this->node), this->objectsPlace);
}

TYPED_TEST(PointShapeTest, ALargeCoordinateLosesNothingBeforeTheOffsetIsTakenOff) {
  tarn::gThreeDViewOffset = {4512345.0, 512345.0, 345.0};
  TypeParam::place(this->object, {4512345.123, 512346.456, 347.789});
  this->set(&this->object);
  EXPECT_EQ(this->placeOf(*this->node), SbVec3f(static_cast<float>(4512345.123 - 4512345.0),
                                                static_cast<float>(347.789 - 345.0),
                                                -static_cast<float>(512346.456 - 512345.0)));
}

TYPED_TEST(PointShapeTest, BuildingEntersTheNodeIntoTheDictionaryAndDestructionRemovesIt) {
  this->set(&this->object);
  EXPECT_EQ(this->node->GetTarnObject(), &this->object);
  EXPECT_EQ(this->dictionary.atKey(&this->object), static_cast<SoNode*>(this->node.get()));
  this->node.reset();
  EXPECT_EQ(this->dictionary.size(), 0);
}

TYPED_TEST(PointShapeTest, NullUnbindsAndKeepsTheChildren) {
  this->set(&this->object);
  const auto before = children(*this->node);
  this->set(nullptr);
  EXPECT_EQ(this->node->GetTarnObject(), nullptr);
  EXPECT_EQ(this->dictionary.size(), 0);
  EXPECT_EQ(children(*this->node), before);
}

TYPED_TEST(PointShapeTest, NullBuildsNothing) {
  this->set(nullptr);
  EXPECT_EQ(this->node->getNumChildren(), 0);
}

TYPED_TEST(PointShapeTest, BuildingAndBindingAgainAreSignalledOnceEach) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(this->node.get());
  SignalCount signals(parent.get());
  this->set(&this->object);
  EXPECT_EQ(signals.count(), 1);
  this->set(&this->other);
  EXPECT_EQ(signals.count(), 2);
}

TYPED_TEST(PointShapeTest, BindingAgainKeepsTheChildrenAndMovesTheCoordinate) {
  this->set(&this->object);
  const auto before = children(*this->node);
  this->dictionary.takeChanges();
  this->set(&this->other);
  EXPECT_EQ(children(*this->node), before);
  EXPECT_EQ(this->placeOf(*this->node), this->othersPlace);
  EXPECT_EQ(childOf<SoCoordinate3>(*this->node).point.getNum(), 1);
  using Change = RecordingDictionary::Change;
  EXPECT_THAT(
      this->dictionary.takeChanges(),
      ElementsAre(Change{Change::eRemove, &this->object, nullptr},
                  Change{Change::ePut, &this->other, static_cast<SoNode*>(this->node.get())}));
}

TYPED_TEST(PointShapeTest, BindingAgainWritesIntoTheLastCoordinateChild) {
  this->set(&this->object);
  auto* later = new SoCoordinate3;
  this->node->addChild(later);
  this->set(&this->other);
  EXPECT_EQ(later->point[0], this->othersPlace);
  EXPECT_EQ(this->placeOf(*this->node), this->objectsPlace) << "the first one is left alone";
}

TYPED_TEST(PointShapeTest, BindingAgainWithoutCoordinatesIsReportedAndAddsNothing) {
  this->node->addChild(new SoCube);
  this->set(&this->object);
  EXPECT_THAT(this->takeAssertions(), ElementsAre(IsAssertion("pointPos", TypeParam::className)));
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Cube"));
}

TYPED_TEST(PointShapeTest, ANodeWhoseChildrenWereDroppedIsBuiltAnew) {
  this->set(&this->object);
  this->node->removeAllChildren();
  this->set(&this->other);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(this->placeOf(*this->node), this->othersPlace);
}

TYPED_TEST(PointShapeTest, AHighlightGoesAheadOfThePoint) {
  this->set(&this->object);
  auto material = makeNode<SoMaterial>();
  this->node->Highlight(material.get(), 1);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Material", "Coordinate3", "PointSet"));
}

TYPED_TEST(PointShapeTest, ACopyShowsTheSameObjectAndTakesTheEntryOver) {
  this->set(&this->object);
  const auto copy = this->copied(*this->node);
  EXPECT_EQ(copy->GetTarnObject(), &this->object);
  EXPECT_EQ(this->dictionary.atKey(&this->object), static_cast<SoNode*>(copy.get()));
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(this->placeOf(*copy), this->objectsPlace);
}

TYPED_TEST(PointShapeTest, ACopyIsMovedByItself) {
  this->set(&this->object);
  const auto copy = this->copied(*this->node);
  TypeParam::set(*copy, &this->other, &this->dictionary);
  EXPECT_EQ(this->placeOf(*copy), this->othersPlace);
  EXPECT_EQ(this->placeOf(*this->node), this->objectsPlace);
}

TYPED_TEST(PointShapeTest, ACopyInAParentIsUnboundAndCanBeBound) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(this->node.get());
  this->set(&this->object);
  const NodeRef<SoSeparator> parentCopy(static_cast<SoSeparator*>(parent->copy()));
  auto* copy = static_cast<typename TypeParam::Node*>(parentCopy->getChild(0));
  EXPECT_EQ(copy->GetTarnObject(), nullptr);
  EXPECT_EQ(this->dictionary.atKey(&this->object), static_cast<SoNode*>(this->node.get()));
  TypeParam::set(*copy, &this->other, &this->dictionary);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(this->placeOf(*copy), this->othersPlace);
}

TYPED_TEST(PointShapeTest, CopyConstructionAndAssignmentCopyTheMembersAndMakeNoEntry) {
  using Node = typename TypeParam::Node;
  this->set(&this->object);
  this->dictionary.takeChanges();
  const NodeRef<Node> constructed = makeNode<Node>(*this->node);
  const NodeRef<Node> assigned = makeNode<Node>();
  *assigned = *this->node;
  for (const NodeRef<Node>& copy : {constructed, assigned}) {
    EXPECT_EQ(copy->GetTarnObject(), &this->object);
    EXPECT_EQ(copy->getNumChildren(), 0);
  }
  EXPECT_THAT(this->dictionary.takeChanges(), IsEmpty());
}

TYPED_TEST(PointShapeTest, ASearchForTheObjectFindsItsNode) {
  auto root = makeNode<SoSeparator>();
  root->addChild(new typename TypeParam::Node);
  root->addChild(this->node.get());
  this->set(&this->object);
  TarnOISearchAction search;
  search.SetTarnObject(&this->object);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), this->node.get());
}

// Those that hand their point out.

template <typename Case>
class HandedOutPointTest : public PointNodeTest<Case> {
protected:
  using Pair = std::pair<SoCoordinate3*, SoPointSet*>;
  static Pair handedOutBy(const typename Case::Node& node) {
    Pair pair(reinterpret_cast<SoCoordinate3*>(1), reinterpret_cast<SoPointSet*>(1));
    node.GetPointSet(&pair.first, &pair.second);
    return pair;
  }
};

using WithGetPointSet = ::testing::Types<OffsetPointCase, ThreeDPointCase, ImportedPointCase>;
TYPED_TEST_SUITE(HandedOutPointTest, WithGetPointSet, PointNodeNames);

TYPED_TEST(HandedOutPointTest, AFreshNodeHandsOutNull) {
  const auto [coordinate, shape] = this->handedOutBy(*this->node);
  EXPECT_EQ(coordinate, nullptr);
  EXPECT_EQ(shape, nullptr);
}

TYPED_TEST(HandedOutPointTest, ABuiltNodeHandsOutItsChildren) {
  this->set(&this->object);
  const auto [coordinate, shape] = this->handedOutBy(*this->node);
  EXPECT_EQ(coordinate, this->node->getChild(0));
  EXPECT_EQ(shape, this->node->getChild(1));
  this->node->GetPointSet(nullptr, nullptr);
}

TYPED_TEST(HandedOutPointTest, ACopyHandsOutItsOwnChildren) {
  this->set(&this->object);
  const auto copy = this->copied(*this->node);
  const auto [coordinate, shape] = this->handedOutBy(*copy);
  EXPECT_EQ(coordinate, copy->getChild(0));
  EXPECT_EQ(shape, copy->getChild(1));
}

TYPED_TEST(HandedOutPointTest, CopyConstructionSharesTheChildren) {
  this->set(&this->object);
  const auto copy = makeNode<typename TypeParam::Node>(*this->node);
  EXPECT_EQ(this->handedOutBy(*copy), this->handedOutBy(*this->node));
}

TYPED_TEST(HandedOutPointTest, WhatIsHandedOutOutlivesTheChildList) {
  this->set(&this->object);
  this->node->removeAllChildren();
  const auto [coordinate, shape] = this->handedOutBy(*this->node);
  EXPECT_EQ(coordinate->getRefCount(), 1);
  EXPECT_EQ(shape->getRefCount(), 1);
}

// Those whose position may be missing.

template <typename Case>
class MissingPositionTest : public PointNodeTest<Case> {};

using WithAssertedPosition = ::testing::Types<OffsetPointCase, ThreeDPointCase>;
TYPED_TEST_SUITE(MissingPositionTest, WithAssertedPosition, PointNodeNames);

TYPED_TEST(MissingPositionTest, IsReportedAndThePointDrawnAtTheModelsOrigin) {
  typename TypeParam::Object nowhere;
  this->set(&nowhere);
  EXPECT_THAT(this->takeAssertions(),
              ElementsAre(IsAssertion("point->GetApproximation( pt )", TypeParam::className)));
  EXPECT_EQ(this->placeOf(*this->node), SbVec3f(-10.5F, -30.125F, -20.25F));
  this->set(nullptr);
}

TYPED_TEST(MissingPositionTest, IsReportedAfterAMissingCoordinate) {
  typename TypeParam::Object nowhere;
  this->node->addChild(new SoCube);
  this->set(&nowhere);
  EXPECT_THAT(this->takeAssertions(),
              ElementsAre(IsAssertion("pointPos", TypeParam::className),
                          IsAssertion("point->GetApproximation( pt )", TypeParam::className)));
  this->set(nullptr);
}
