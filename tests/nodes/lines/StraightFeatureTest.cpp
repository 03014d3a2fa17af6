// What the nodes of lines and of edges do alike.
#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>

#include "host/model/Edge.h"
#include "host/model/Line.h"
#include "host/model/ThreeDPoint.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/lines/TarnOIEdgeSeparator.h"
#include "nodes/lines/TarnOILineSeparator.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>

using tarn::Point3DDouble;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace {

// A model line with its node, whose members are open.
struct LineFeature {
  static constexpr const char* className = "TarnOILineSeparator";
  static constexpr const char* setName = "lineExtensionSet";

  using Base = TarnOILineSeparator;
  static void show(Base& node, tarn::Line* line, tarn::VDictionary* dict) {
    node.SetLine(line, dict);
  }
  struct Node : TarnOILineSeparator {
    using TarnOILineSeparator::lineExtensionPos;
    using TarnOILineSeparator::lineExtensionSet;
    NodeRef<SoCoordinate3>& extensionPos() { return lineExtensionPos; }
    NodeRef<SoLineSet>& extensionSet() { return lineExtensionSet; }
  };
  struct Object : tarn::Line {
    tarn::ThreeDPoint first;
    tarn::ThreeDPoint second;
    void setEnds(const Point3DDouble& p0, const Point3DDouble& p1) {
      first.SetApproximation(tarn::Point3DRandom(p0));
      second.SetApproximation(tarn::Point3DRandom(p1));
      SetThreeDPoints(&first, &second);
    }
  };
};

struct EdgeFeature {
  static constexpr const char* className = "TarnOIEdgeSeparator";
  static constexpr const char* setName = "edgeExtensionSet";

  using Base = TarnOIEdgeSeparator;
  static void show(Base& node, tarn::Edge* edge, tarn::VDictionary* dict) {
    node.SetEdge(edge, dict);
  }
  struct Node : TarnOIEdgeSeparator {
    using TarnOIEdgeSeparator::edgeExtensionPos;
    using TarnOIEdgeSeparator::edgeExtensionSet;
    NodeRef<SoCoordinate3>& extensionPos() { return edgeExtensionPos; }
    NodeRef<SoLineSet>& extensionSet() { return edgeExtensionSet; }
  };
  struct Object : tarn::Edge {
    void setEnds(const Point3DDouble& p0, const Point3DDouble& p1) { SetPointsForm(p0, p1); }
  };
};

struct FeatureNames {
  template <typename Feature>
  static std::string GetName(int) {
    return Feature::className;
  }
};

constexpr const char* noCoordinates =
    "node->getTypeId().isDerivedFrom(SoCoordinate3::getClassTypeId() )";

}  // namespace

template <typename Feature>
class StraightFeatureTest : public TarnTest {
protected:
  using Node = typename Feature::Node;

  StraightFeatureTest() { object.setEnds(first, second); }

  /// Shows the object prolonged by the factor, and again when it is shown already.
  void show(double factor) {
    object.SetThreeDExtenstionFactor(factor);
    show();
  }
  void show() { Feature::show(*node, &object, &dictionary); }

  std::vector<SbVec3f> ends(int child) const { return coordinates(*node, child); }

  // With the fixture's view offset (10.5, -20.25, 30.125); x rises, y falls, z rises.
  static constexpr Point3DDouble first{1, 20, 3};
  static constexpr Point3DDouble second{5, 4, 35};
  const std::vector<SbVec3f> measured{{-9.5F, -27.125F, -40.25F}, {-5.5F, 4.875F, -24.25F}};
  const std::vector<SbVec3f> longerByHalf{{-10.5F, -35.125F, -44.25F}, {-4.5F, 12.875F, -20.25F}};

  typename Feature::Object object;
  NodeRef<Node> node = makeNode<Node>();
};

using Features = ::testing::Types<LineFeature, EdgeFeature>;
TYPED_TEST_SUITE(StraightFeatureTest, Features, FeatureNames);

// --- Building

TYPED_TEST(StraightFeatureTest, AFreshNodeShowsNothing) {
  EXPECT_EQ(this->node->getNumChildren(), 0);
  EXPECT_FALSE(this->node->extensionPos());
  EXPECT_FALSE(this->node->extensionSet());
}

TYPED_TEST(StraightFeatureTest, CoordinatesAndALineOfTwoVerticesAreBuilt) {
  this->show();
  ASSERT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "LineSet"));
  EXPECT_EQ(this->ends(0), this->measured);
  const auto* lines = static_cast<SoLineSet*>(this->node->getChild(1));
  ASSERT_EQ(lines->numVertices.getNum(), 1);
  EXPECT_EQ(lines->numVertices[0], 2);
}

TYPED_TEST(StraightFeatureTest, TheNodeIsBoundUnderTheDictionary) {
  this->show();
  EXPECT_EQ(this->node->GetTarnObject(), &this->object);
  EXPECT_EQ(this->dictionary.atKey(&this->object), static_cast<SoNode*>(this->node.get()));
}

TYPED_TEST(StraightFeatureTest, NullOnlyUnbinds) {
  this->show(1.5);
  const auto before = children(*this->node);
  TypeParam::show(*this->node, nullptr, &this->dictionary);
  EXPECT_EQ(this->node->GetTarnObject(), nullptr);
  EXPECT_EQ(this->dictionary.atKey(&this->object), nullptr);
  EXPECT_THAT(children(*this->node), ElementsAreArray(before));
}

TYPED_TEST(StraightFeatureTest, ANullDictionaryIsPassedOver) {
  TypeParam::show(*this->node, &this->object, nullptr);
  EXPECT_EQ(this->ends(0), this->measured);
}

TYPED_TEST(StraightFeatureTest, FarFromTheOriginTheOffsetIsTakenOffBeforeNarrowing) {
  tarn::gThreeDViewOffset = {4512345.0, 5512345.0, 345.0};
  this->object.setEnds({4512345.125, 5512347.25, 348.5}, {4512349.125, 5512343.25, 356.5});
  this->show(1.5);
  EXPECT_THAT(this->ends(0),
              ElementsAre(SbVec3f(0.125F, 3.5F, -2.25F), SbVec3f(4.125F, 11.5F, 1.75F)));
  EXPECT_THAT(this->ends(2),
              ElementsAre(SbVec3f(-0.875F, 1.5F, -3.25F), SbVec3f(5.125F, 13.5F, 2.75F)));
}

// --- The extension

TYPED_TEST(StraightFeatureTest, AFactorAboveOneAddsADashedLine) {
  this->show(1.5);
  ASSERT_THAT(childTypes(*this->node),
              ElementsAre("Coordinate3", "LineSet", "Coordinate3", "DrawStyle", "LineSet"));
  EXPECT_EQ(this->ends(0), this->measured);
  EXPECT_EQ(this->node->getChild(2), this->node->extensionPos().get());
  EXPECT_EQ(this->ends(2), this->longerByHalf);
  EXPECT_EQ(static_cast<SoDrawStyle*>(this->node->getChild(3))->linePattern.getValue(), 0xf0f0);
  EXPECT_EQ(this->node->getChild(4), this->node->extensionSet().get());
  EXPECT_EQ(this->node->extensionSet()->numVertices[0], 2);
}

TYPED_TEST(StraightFeatureTest, AFactorOfExactlyOneShowsNoExtension) {
  this->show(1.0);
  EXPECT_EQ(this->node->getNumChildren(), 2);
  EXPECT_FALSE(this->node->extensionPos());
  EXPECT_FALSE(this->node->extensionSet());
}

TYPED_TEST(StraightFeatureTest, AFactorJustAboveOneShowsAnExtensionOnTheLineItself) {
  this->show(std::nextafter(1.0, 2.0));
  EXPECT_EQ(this->node->getNumChildren(), 5);
  EXPECT_EQ(this->ends(2), this->measured) << "the margin is below what a float holds";
}

TYPED_TEST(StraightFeatureTest, AFactorBelowOneOrNoNumberShowsNoExtension) {
  for (const double factor : {0.5, 0.0, -2.0, std::numeric_limits<double>::quiet_NaN()}) {
    this->show(factor);
    EXPECT_EQ(this->node->getNumChildren(), 2) << factor;
  }
}

TYPED_TEST(StraightFeatureTest, AFeatureAlongAnAxisIsProlongedAlongThatAxisOnly) {
  this->object.setEnds({1.1, 2.2, 3.0}, {1.1, 2.2, -5.0});
  this->show(2.0);
  const auto ends = this->ends(2);
  ASSERT_EQ(ends.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(ends[i][0], this->ends(0)[i][0]);
    EXPECT_EQ(ends[i][2], this->ends(0)[i][2]);
  }
  EXPECT_EQ(ends[0][1], 7.0F - 30.125F);
  EXPECT_EQ(ends[1][1], -9.0F - 30.125F);
}

TYPED_TEST(StraightFeatureTest, MarginsAreNarrowedBeforeTheyMoveTheEnds) {
  // The view offset at one end, so that a float tells what the margin's last bits are. With
  // margins in double x would be 0.1125835, y -0.2874463 and z -0.1810742.
  tarn::gThreeDViewOffset = {-3901, 10152, -9813};
  this->object.setEnds({1000.25, 7001.5, 512.125}, {15003.5, -2000.75, 30013.0});
  this->show(1.7);
  EXPECT_THAT(this->ends(2), ElementsAre(SbVec3f(0.112792969F, -0.180664062F, -0.287353516F),
                                         SbVec3f(23805.6367F, 50151.3047F, 15303.5371F)));
}

// --- Shown again

TYPED_TEST(StraightFeatureTest, ShownAgainBothSegmentsMoveInPlace) {
  this->show(2.5);
  const auto before = children(*this->node);
  this->object.setEnds({-2, 8, 0}, {2, 0, 16});
  this->show(1.5);
  EXPECT_THAT(children(*this->node), ElementsAreArray(before));
  EXPECT_THAT(this->ends(0),
              ElementsAre(SbVec3f(-12.5F, -30.125F, -28.25F), SbVec3f(-8.5F, -14.125F, -20.25F)));
  EXPECT_THAT(this->ends(2),
              ElementsAre(SbVec3f(-13.5F, -34.125F, -30.25F), SbVec3f(-7.5F, -10.125F, -18.25F)));
}

TYPED_TEST(StraightFeatureTest, TheDrawStyleStaysBehindEachTimeTheExtensionGoes) {
  this->show(1.5);
  this->show(1.0);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "LineSet", "DrawStyle"));
  EXPECT_FALSE(this->node->extensionPos());
  EXPECT_FALSE(this->node->extensionSet());
  this->show(1.5);
  EXPECT_THAT(childTypes(*this->node), ElementsAre("Coordinate3", "LineSet", "DrawStyle",
                                                   "Coordinate3", "DrawStyle", "LineSet"));
  EXPECT_EQ(this->ends(3), this->longerByHalf);
  this->show(0.5);
  EXPECT_THAT(childTypes(*this->node),
              ElementsAre("Coordinate3", "LineSet", "DrawStyle", "DrawStyle"));
}

TYPED_TEST(StraightFeatureTest, AHighlightStaysWhereItIs) {
  this->show(1.5);
  auto material = makeNode<SoMaterial>();
  this->node->Highlight(material.get(), 1);
  const auto before = children(*this->node);
  EXPECT_EQ(before.front(), material.get());
  this->object.setEnds(this->second, this->first);
  this->show(1.5);
  EXPECT_THAT(children(*this->node), ElementsAreArray(before));
  EXPECT_THAT(this->ends(1), ElementsAre(this->measured[1], this->measured[0]));
  EXPECT_THAT(this->ends(3), ElementsAre(this->longerByHalf[1], this->longerByHalf[0]));
}

TYPED_TEST(StraightFeatureTest, BindingToAnotherObjectMovesTheEntryAndKeepsTheChildren) {
  this->show(1.5);
  const auto before = children(*this->node);
  this->dictionary.takeChanges();
  typename TypeParam::Object other;
  other.setEnds(this->second, this->first);
  other.SetThreeDExtenstionFactor(1.5);
  TypeParam::show(*this->node, &other, &this->dictionary);
  EXPECT_THAT(children(*this->node), ElementsAreArray(before));
  EXPECT_THAT(this->ends(0), ElementsAre(this->measured[1], this->measured[0]));
  using Change = RecordingDictionary::Change;
  EXPECT_THAT(this->dictionary.takeChanges(),
              ElementsAre(Change{Change::eRemove, &this->object, nullptr},
                          Change{Change::ePut, &other, static_cast<SoNode*>(this->node.get())}));
  this->node.reset();
}

TYPED_TEST(StraightFeatureTest, ANodeWhoseChildrenWereDroppedIsBuiltAnew) {
  this->show(1.5);
  this->node->removeAllChildren();
  this->show(1.5);
  EXPECT_THAT(childTypes(*this->node),
              ElementsAre("Coordinate3", "LineSet", "Coordinate3", "DrawStyle", "LineSet"));
  EXPECT_EQ(this->ends(2), this->longerByHalf);
}

TYPED_TEST(StraightFeatureTest, EachShowingIsSignalledOnce) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(this->node.get());
  SignalCount signals(parent.get());
  this->show(1.5);
  EXPECT_EQ(signals.count(), 1);
  this->show(2.5);
  EXPECT_EQ(signals.count(), 2);
  this->show(1.0);
  EXPECT_EQ(signals.count(), 3);
}

// --- Reports

TYPED_TEST(StraightFeatureTest, ChildrenWithoutCoordinatesAreReportedAndTheExtensionIsShown) {
  this->node->addChild(new SoMaterial);
  this->node->addChild(new SoCube);
  this->show(1.5);
  EXPECT_THAT(this->takeAssertions(),
              ElementsAre(IsAssertion(noCoordinates, TypeParam::className)));
  EXPECT_THAT(childTypes(*this->node),
              ElementsAre("Material", "Cube", "Coordinate3", "DrawStyle", "LineSet"));
  EXPECT_EQ(this->ends(2), this->longerByHalf);
}

TYPED_TEST(StraightFeatureTest, AnExtensionWithoutItsLineSetIsReportedAndMoves) {
  this->show(2.5);
  this->node->extensionSet().reset();
  this->show(1.5);
  EXPECT_THAT(this->takeAssertions(),
              ElementsAre(IsAssertion(TypeParam::setName, TypeParam::className)));
  EXPECT_EQ(this->ends(2), this->longerByHalf);
}

// --- Copies

TYPED_TEST(StraightFeatureTest, ACopyIsUnboundAndHasChildrenOfItsOwn) {
  this->show(1.5);
  this->dictionary.takeChanges();
  using Base = typename TypeParam::Base;
  const NodeRef<Base> copy(static_cast<Base*>(this->node->copy()));
  EXPECT_EQ(copy->GetTarnObject(), nullptr);
  EXPECT_THAT(this->dictionary.takeChanges(), IsEmpty());
  EXPECT_EQ(childTypes(*copy), childTypes(*this->node));
  EXPECT_NE(copy->getChild(2), this->node->getChild(2));
  EXPECT_EQ(coordinates(*copy, 2), this->longerByHalf);
}

TYPED_TEST(StraightFeatureTest, ACopyIsUpdatedInPlaceAndLeavesTheOriginalAlone) {
  this->show(1.5);
  using Base = typename TypeParam::Base;
  const NodeRef<Base> copy(static_cast<Base*>(this->node->copy()));
  this->object.setEnds(this->second, this->first);
  TypeParam::show(*copy, &this->object, &this->dictionary);
  EXPECT_EQ(childTypes(*copy), childTypes(*this->node));
  EXPECT_THAT(coordinates(*copy, 2), ElementsAre(this->longerByHalf[1], this->longerByHalf[0]));
  EXPECT_EQ(this->ends(2), this->longerByHalf);
  this->object.SetThreeDExtenstionFactor(1.0);
  TypeParam::show(*copy, &this->object, &this->dictionary);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "LineSet", "DrawStyle"));
  EXPECT_EQ(this->node->getNumChildren(), 5);
}

TYPED_TEST(StraightFeatureTest, CopyConstructionCopiesTheMembersAndMakesNoEntry) {
  this->show(1.5);
  this->dictionary.takeChanges();
  const auto copy = makeNode<typename TypeParam::Node>(*this->node);
  EXPECT_EQ(copy->GetTarnObject(), &this->object);
  EXPECT_EQ(copy->getNumChildren(), 0);
  EXPECT_EQ(copy->extensionPos().get(), this->node->extensionPos().get());
  EXPECT_EQ(copy->extensionSet().get(), this->node->extensionSet().get());
  EXPECT_THAT(this->dictionary.takeChanges(), IsEmpty());
}

TYPED_TEST(StraightFeatureTest, AssignmentCopiesTheMembersAndMakesNoEntry) {
  this->show(1.5);
  this->dictionary.takeChanges();
  const auto other = makeNode<typename TypeParam::Node>();
  *other = *this->node;
  EXPECT_EQ(other->GetTarnObject(), &this->object);
  EXPECT_EQ(other->getNumChildren(), 0);
  EXPECT_EQ(other->extensionPos().get(), this->node->extensionPos().get());
  EXPECT_EQ(other->extensionSet().get(), this->node->extensionSet().get());
  EXPECT_THAT(this->dictionary.takeChanges(), IsEmpty());
}

// --- Finding

TYPED_TEST(StraightFeatureTest, ASearchForTheObjectFindsItsNode) {
  this->show();
  auto root = makeNode<SoSeparator>();
  root->addChild(new typename TypeParam::Node);
  root->addChild(this->node.get());
  TarnOISearchAction search;
  search.SetTarnObject(&this->object);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), this->node.get());
}
