// What the nodes that draw a point as a sphere do alike.
#include "nodes/points/SphereShape.h"

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoTranslation.h>

#include "tests/nodes/points/PointNodeCases.h"
#include "tests/support/SignalCount.h"

#include <limits>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <typename Case>
class SphereShapeTest : public PointNodeTest<Case> {
protected:
  static SbVec3f spherePlaceOf(const SoGroup& built) {
    return childOf<SoTranslation>(built).translation.getValue();
  }
  static float radiusOf(const SoGroup& built) { return childOf<SoSphere>(built).radius.getValue(); }
};

using EverySphere = ::testing::Types<ImportedPointCase, AffineObjectCase>;
TYPED_TEST_SUITE(SphereShapeTest, EverySphere, PointNodeNames);

TYPED_TEST(SphereShapeTest, ASizeOfZeroOrLessOrNoneKeepsThePoint) {
  for (const float size : {0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
    const auto fresh = makeNode<typename TypeParam::Node>();
    fresh->SetSphereSize(size);
    TypeParam::set(*fresh, &this->object, &this->dictionary);
    EXPECT_THAT(childTypes(*fresh), ElementsAre("Coordinate3", "PointSet")) << size;
  }
}

TYPED_TEST(SphereShapeTest, ASphereIsATranslationAndASphereOfThatRadius) {
  this->node->SetSphereSize(0.5F);
  this->set(&this->object);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Translation", "Sphere"));
  EXPECT_EQ(this->radiusOf(*this->node), 0.5F);
}

TYPED_TEST(SphereShapeTest, TheSphereStandsInTheViewerFrame) {
  this->node->SetSphereSize(0.5F);
  this->set(&this->object);
  EXPECT_EQ(this->spherePlaceOf(*this->node), this->objectsPlace);
}

TYPED_TEST(SphereShapeTest, TheSizeTakesEffectWithTheNextBindingOnly) {
  this->set(&this->object);
  this->node->SetSphereSize(0.5F);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "PointSet"));
  this->set(&this->object);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Translation", "Sphere"));
  this->node->SetSphereSize(2.0F);
  EXPECT_EQ(this->radiusOf(*this->node), 0.5F);
  this->set(&this->object);
  EXPECT_EQ(this->radiusOf(*this->node), 2.0F);
}

TYPED_TEST(SphereShapeTest, BindingAgainRebuildsTheSphereFromNothing) {
  this->node->SetSphereSize(0.5F);
  this->set(&this->object);
  auto material = makeNode<SoMaterial>();
  this->node->Highlight(material.get(), 1);
  const NodeRef<SoTranslation> former(&childOf<SoTranslation>(*this->node));
  this->set(&this->other);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Translation", "Sphere"));
  EXPECT_NE(&childOf<SoTranslation>(*this->node), former.get());
  EXPECT_EQ(former->getRefCount(), 1) << "nothing of the former children is kept";
  EXPECT_EQ(this->spherePlaceOf(*this->node), this->othersPlace);
}

TYPED_TEST(SphereShapeTest, ASphereForgetsThePointThatItWas) {
  this->set(&this->object);
  const NodeRef<SoCoordinate3> coordinate(&childOf<SoCoordinate3>(*this->node));
  const NodeRef<SoPointSet> shape(&childOf<SoPointSet>(*this->node));
  this->node->SetSphereSize(0.5F);
  this->set(&this->object);
  EXPECT_EQ(coordinate->getRefCount(), 1);
  EXPECT_EQ(shape->getRefCount(), 1);
}

TYPED_TEST(SphereShapeTest, RebuildingIsSignalledOnce) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(this->node.get());
  this->set(&this->object);
  this->node->SetSphereSize(0.5F);
  SignalCount signals(parent.get());
  this->set(&this->object);
  EXPECT_EQ(signals.count(), 1);
}

TYPED_TEST(SphereShapeTest, ASphereAskedToBeAPointAgainIsReportedAndStays) {
  this->node->SetSphereSize(0.5F);
  this->set(&this->object);
  this->node->SetSphereSize(0.0F);
  this->set(&this->other);
  EXPECT_THAT(this->takeAssertions(), ElementsAre(IsAssertion("pointPos", TypeParam::className)));
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Translation", "Sphere"));
  EXPECT_EQ(this->spherePlaceOf(*this->node), this->objectsPlace);
}

TYPED_TEST(SphereShapeTest, NullUnbindsAndKeepsTheSphere) {
  this->node->SetSphereSize(0.5F);
  this->set(&this->object);
  this->set(nullptr);
  EXPECT_EQ(this->node->GetTarnObject(), nullptr);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Translation", "Sphere"));
}

TYPED_TEST(SphereShapeTest, CopiesOfEveryKindKeepTheSize) {
  using Node = typename TypeParam::Node;
  this->node->SetSphereSize(0.5F);
  this->set(&this->object);
  const NodeRef<Node> copy = this->copied(*this->node);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Translation", "Sphere"));
  const NodeRef<Node> constructed = makeNode<Node>(*this->node);
  const NodeRef<Node> assigned = makeNode<Node>();
  *assigned = *this->node;
  for (const NodeRef<Node>& each : {copy, constructed, assigned}) {
    TypeParam::set(*each, &this->other, &this->dictionary);
    EXPECT_THAT(childTypes(*each), ElementsAre("Translation", "Sphere"));
    EXPECT_EQ(this->radiusOf(*each), 0.5F);
    EXPECT_EQ(this->spherePlaceOf(*each), this->othersPlace);
  }
  EXPECT_EQ(this->spherePlaceOf(*this->node), this->objectsPlace);
}
