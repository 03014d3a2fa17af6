// What the labels of offset and imported points do alike. The object point, whose report
// has another text, has its own test.
#include "nodes/points/PointLabel.h"

#include "tests/nodes/points/PointNodeCases.h"

using ::testing::ElementsAre;

template <typename Case>
class PointLabelTest : public PointNodeTest<Case> {
protected:
  PointLabelTest() {
    Case::number(this->object, from, 4);
    Case::number(this->other, othersFrom, 5);
  }

  static SoTransform& transformOf(const SoGroup& node) { return childOf<SoTransform>(node); }
  static std::string textOf(const SoGroup& node) {
    const SoMFString& text = childOf<TarnOIText2>(node).string;
    return text.getNum() == 1 ? text[0].getString() : "";
  }

  tarn::ObjectPoint from;
  tarn::ObjectPoint othersFrom;
};

using EveryLabel = ::testing::Types<OffsetPointCase, ImportedPointCase>;
TYPED_TEST_SUITE(PointLabelTest, EveryLabel, PointNodeNames);

TYPED_TEST(PointLabelTest, ALabelIsAppendedBehindItsTransform) {
  this->set(&this->object);
  this->node->UpdateTextLable(1, 0);
  EXPECT_THAT(childTypes(*this->node),
              ElementsAre("Coordinate3", "PointSet", "Transform", "TarnOIText2"));
  EXPECT_EQ(this->transformOf(*this->node).scaleFactor.getValue(), SbVec3f(5, 1, 1));
  EXPECT_EQ(this->transformOf(*this->node).translation.getValue(), this->objectsPlace);
  EXPECT_EQ(this->textOf(*this->node), TypeParam::label(4));
}

TYPED_TEST(PointLabelTest, ALabelThatChangesKeepsItsNodes) {
  this->set(&this->object);
  this->node->UpdateTextLable(1, 0);
  const auto before = children(*this->node);
  this->transformOf(*this->node).scaleFactor.setValue(7, 7, 7);
  this->set(&this->other);
  EXPECT_EQ(this->textOf(*this->node), TypeParam::label(4)) << "it waits for its own update";
  this->node->UpdateTextLable(1, 0);
  EXPECT_EQ(children(*this->node), before);
  EXPECT_EQ(this->textOf(*this->node), TypeParam::label(5));
  EXPECT_EQ(this->transformOf(*this->node).translation.getValue(), this->othersPlace);
  EXPECT_EQ(this->transformOf(*this->node).scaleFactor.getValue(), SbVec3f(7, 7, 7))
      << "set on first use only";
}

TYPED_TEST(PointLabelTest, WithoutANumberThereIsNoLabelAndMarkTSaysNothing) {
  this->set(&this->object);
  this->node->UpdateTextLable(0, 1);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "PointSet"));
  this->node->UpdateTextLable(1, 1);
  EXPECT_EQ(this->textOf(*this->node), TypeParam::label(4));
}

TYPED_TEST(PointLabelTest, AnEmptyLabelTakesBothNodesOutAndTheNextMakesNewOnes) {
  this->set(&this->object);
  this->node->UpdateTextLable(1, 0);
  const NodeRef<TarnOIText2> former(&childOf<TarnOIText2>(*this->node));
  this->node->UpdateTextLable(0, 0);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(former->getRefCount(), 1) << "the node keeps it no longer";
  this->node->UpdateTextLable(0, 0);
  this->node->UpdateTextLable(1, 0);
  EXPECT_NE(&childOf<TarnOIText2>(*this->node), former.get());
}

TYPED_TEST(PointLabelTest, NodesOfALabelThatAreNoChildrenAreNotRemoved) {
  this->set(&this->object);
  this->node->UpdateTextLable(1, 0);
  const NodeRef<SoTransform> transform(&this->transformOf(*this->node));
  this->node->removeChild(transform.get());
  this->node->UpdateTextLable(0, 0);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "PointSet"));
}

TYPED_TEST(PointLabelTest, ALabelWithoutItsTransformIsReportedAndItsTextSet) {
  this->set(&this->object);
  this->node->UpdateTextLable(1, 0);
  this->node->removeChild(&this->transformOf(*this->node));
  const auto copy = this->copied(*this->node);  // has nothing that stands for the transform
  TypeParam::number(this->object, this->from, 6);
  copy->UpdateTextLable(1, 0);
  EXPECT_THAT(this->takeAssertions(), ElementsAre(IsAssertion("textTrans", TypeParam::className)));
  EXPECT_EQ(this->textOf(*copy), TypeParam::label(6));
}

TYPED_TEST(PointLabelTest, ALabelWhoseNodesWereDroppedIsMadeAnew) {
  this->set(&this->object);
  this->node->UpdateTextLable(1, 0);
  this->node->removeAllChildren();
  this->set(&this->object);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "PointSet"));
  this->node->UpdateTextLable(1, 0);
  EXPECT_THAT(childTypes(*this->node),
              ElementsAre("Coordinate3", "PointSet", "Transform", "TarnOIText2"));
}

TYPED_TEST(PointLabelTest, AnUnboundNodeGetsNoLabel) {
  this->node->UpdateTextLable(1, 1);
  EXPECT_EQ(this->node->getNumChildren(), 0);
}

TYPED_TEST(PointLabelTest, ANullPointHasNoText) {
  EXPECT_STREQ(TypeParam::Node::GetTextLable(1, 1, nullptr).text(), "");
}

TYPED_TEST(PointLabelTest, ACopyHasALabelOfItsOwn) {
  this->set(&this->object);
  this->node->UpdateTextLable(1, 0);
  const auto before = children(*this->node);
  const auto copy = this->copied(*this->node);
  copy->UpdateTextLable(0, 0);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(children(*this->node), before);
}
