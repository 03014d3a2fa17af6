#include "nodes/surfaces/TarnOICylinderSeparator.h"

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/model/NURBSSurfaceCylinder.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace {

/// The node with its members open.
class OpenCylinderNode : public TarnOICylinderSeparator {
public:
  OpenCylinderNode() = default;
  explicit OpenCylinderNode(const TarnOICylinderSeparator& other)
      : TarnOICylinderSeparator(other) {}
  using TarnOICylinderSeparator::AddExtension;
  using TarnOICylinderSeparator::centreLineMode;
  using TarnOICylinderSeparator::cylinderExtensionPos;
  using TarnOICylinderSeparator::cylinderExtensionSet;
};

constexpr const char* noCoordinates =
    "node->getTypeId().isDerivedFrom(SoCoordinate3::getClassTypeId() )";

}  // namespace

class TarnOICylinderSeparatorTest : public TarnTest {
protected:
  TarnOICylinderSeparatorTest() {
    cylinder().SetEndPoints({1, 20, 3}, {5, 4, 35});
    const int set = surface.AddTriangleSet();
    surface.AddTriangle(set, &surface.AddPoint({1, 2, 3}), &surface.AddPoint({4, 5, 6}),
                        &surface.AddPoint({7, 9, 8}));
  }
  tarn::Cylinder& cylinder() { return *surface.GetCylinder(); }

  void show(int asCentreLine) {
    tarn::VOrdCollect* sets = surface.GetTriangleSets();
    node->SetNurbsSurface(&surface, &dictionary, singleSided.get(), doubleSided.get(), nullptr,
                          &sets, surface.GetUvMatrices(), asCentreLine);
  }
  void show(int asCentreLine, double factor) {
    cylinder().SetThreeDExtenstionFactor(factor);
    show(asCentreLine);
  }
  // The ends in the dashed line's separator, which is the child of that index.
  std::vector<SbVec3f> extension(int child) const {
    return coordinates(static_cast<const SoGroup&>(*node->getChild(child)), 0);
  }

  // With the fixture's view offset (10.5, -20.25, 30.125); x rises, y falls, z rises.
  const std::vector<SbVec3f> measured{{-9.5F, -27.125F, -40.25F}, {-5.5F, 4.875F, -24.25F}};
  const std::vector<SbVec3f> longerByHalf{{-10.5F, -35.125F, -44.25F}, {-4.5F, 12.875F, -20.25F}};
  const std::vector<std::string> asSurface{"ShapeHints", "Normal", "Coordinate3", "IndexedFaceSet"};
  const std::vector<std::string> asLine{"Coordinate3", "LineSet"};
  const std::vector<std::string> asProlongedSurface{"ShapeHints", "Normal", "Coordinate3",
                                                    "IndexedFaceSet", "Separator"};
  const std::vector<std::string> asProlongedLine{"Coordinate3", "LineSet", "Separator"};

  tarn::NURBSSurfaceCylinder surface;
  NodeRef<SoShapeHints> singleSided = makeNode<SoShapeHints>();
  NodeRef<SoShapeHints> doubleSided = makeNode<SoShapeHints>();
  NodeRef<OpenCylinderNode> node = makeNode<OpenCylinderNode>();
};

// --- Building

TEST_F(TarnOICylinderSeparatorTest, ANewNodeShowsNothing) {
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(node->centreLineMode, 0);
  EXPECT_FALSE(node->cylinderExtensionPos);
  EXPECT_FALSE(node->cylinderExtensionSet);
}

TEST_F(TarnOICylinderSeparatorTest, BindsTheSurface) {
  show(1);
  EXPECT_EQ(node->GetTarnObject(), &surface);
  EXPECT_EQ(dictionary.atKey(&surface), static_cast<SoNode*>(node.get()));
}

TEST_F(TarnOICylinderSeparatorTest, ASurfaceIsBuiltAsAnyOther) {
  surface.SetDoubleSided(1);
  show(0);
  EXPECT_EQ(childTypes(*node), asSurface);
  EXPECT_EQ(node->getChild(0), doubleSided.get());
  EXPECT_THAT(coordinates(*node, 2),
              ElementsAre(SbVec3f(-9.5F, -27.125F, -22.25F), SbVec3f(-6.5F, -24.125F, -25.25F),
                          SbVec3f(-3.5F, -22.125F, -29.25F)));
}

TEST_F(TarnOICylinderSeparatorTest, ACentreLineRunsBetweenTheEnds) {
  show(1);
  ASSERT_EQ(childTypes(*node), asLine);
  EXPECT_EQ(coordinates(*node, 0), measured);
  const SoMFInt32& counts = childOf<SoLineSet>(*node).numVertices;
  ASSERT_EQ(counts.getNum(), 1);
  EXPECT_EQ(counts[0], 2);
}

TEST_F(TarnOICylinderSeparatorTest, ACentreLineIsChangedInPlace) {
  show(1);
  const auto before = children(*node);
  cylinder().SetEndPoints({5, 4, 35}, {1, 20, 3});
  show(1);
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(measured[1], measured[0]));
}

TEST_F(TarnOICylinderSeparatorTest, TheFirstCoordinatesAreThoseOfTheCentreLine) {
  show(1);
  auto other = makeNode<SoCoordinate3>();
  node->addChild(other.get());
  cylinder().SetEndPoints({5, 4, 35}, {1, 20, 3});
  show(1);
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(measured[1], measured[0]));
  EXPECT_THAT(coordinates(*node, 2), ElementsAre(SbVec3f(0, 0, 0)));
}

TEST_F(TarnOICylinderSeparatorTest, ChildrenWithoutCoordinatesAreReportedAndTheExtensionIsShown) {
  show(1);
  node->removeAllChildren();
  node->addChild(new SoCube);
  show(1, 1.5);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt(noCoordinates, "TarnOICylinderSeparator", 169)));
  EXPECT_THAT(childTypes(*node), ElementsAre("Cube", "Separator"));
  EXPECT_EQ(extension(1), longerByHalf);
}

// --- The extension

TEST_F(TarnOICylinderSeparatorTest, AFactorAboveOneAddsADashedLineInASeparator) {
  show(1, 1.5);
  ASSERT_EQ(childTypes(*node), asProlongedLine);
  const auto& separator = static_cast<const SoGroup&>(*node->getChild(2));
  ASSERT_THAT(childTypes(separator), ElementsAre("Coordinate3", "DrawStyle", "LineSet"));
  EXPECT_EQ(separator.getChild(0), node->cylinderExtensionPos.get());
  EXPECT_EQ(static_cast<SoDrawStyle*>(separator.getChild(1))->linePattern.getValue(), 0xf0f0);
  EXPECT_EQ(separator.getChild(2), node->cylinderExtensionSet.get());
  EXPECT_EQ(node->cylinderExtensionSet->numVertices[0], 2);
  EXPECT_EQ(extension(2), longerByHalf);
  EXPECT_EQ(coordinates(*node, 0), measured);
}

TEST_F(TarnOICylinderSeparatorTest, TheExtensionOfASurfaceStandsBehindItsSets) {
  show(0, 1.5);
  ASSERT_EQ(childTypes(*node), asProlongedSurface);
  EXPECT_EQ(extension(4), longerByHalf);
}

TEST_F(TarnOICylinderSeparatorTest, AFactorOfExactlyOneShowsNoExtension) {
  show(1, 1.0);
  EXPECT_EQ(childTypes(*node), asLine);
  EXPECT_FALSE(node->cylinderExtensionPos);
  EXPECT_FALSE(node->cylinderExtensionSet);
}

TEST_F(TarnOICylinderSeparatorTest, AFactorJustAboveOneShowsAnExtension) {
  show(1, std::nextafter(1.0, 2.0));
  ASSERT_EQ(childTypes(*node), asProlongedLine);
  EXPECT_EQ(extension(2), measured) << "the margin is below what a float holds";
}

TEST_F(TarnOICylinderSeparatorTest, AFactorBelowOneOrNoNumberShowsNoExtension) {
  for (const double factor : {0.5, 0.0, -2.0, std::numeric_limits<double>::quiet_NaN()}) {
    show(1, factor);
    EXPECT_EQ(childTypes(*node), asLine) << factor;
  }
}

TEST_F(TarnOICylinderSeparatorTest, AnAxisAlongACoordinateAxisIsProlongedAlongThatOnly) {
  cylinder().SetEndPoints({1.5, 2.25, 3.0}, {1.5, 2.25, -5.0});
  show(1, 2.0);
  EXPECT_THAT(extension(2),
              ElementsAre(SbVec3f(-9.0F, -23.125F, -22.5F), SbVec3f(-9.0F, -39.125F, -22.5F)));
}

TEST_F(TarnOICylinderSeparatorTest, AnExtensionIsMovedInPlace) {
  show(1, 2.5);
  const auto before = children(*node);
  show(1, 1.5);
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  EXPECT_EQ(extension(2), longerByHalf);
}

TEST_F(TarnOICylinderSeparatorTest, AFactorThatFallsLeavesTheDashedLineAndForgetsIt) {
  show(1, 1.5);
  const auto before = children(*node);
  show(1, 1.0);
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  EXPECT_EQ(extension(2), longerByHalf);
  EXPECT_FALSE(node->cylinderExtensionPos);
  EXPECT_FALSE(node->cylinderExtensionSet);
}

TEST_F(TarnOICylinderSeparatorTest, TheNextRiseAppendsASecondDashedLine) {
  show(1, 1.5);
  show(1, 1.0);
  show(1, 2.0);
  ASSERT_THAT(childTypes(*node), ElementsAre("Coordinate3", "LineSet", "Separator", "Separator"));
  EXPECT_EQ(extension(2), longerByHalf) << "the first one stays as it was";
  EXPECT_NE(extension(3), longerByHalf);
  EXPECT_EQ(static_cast<SoGroup*>(node->getChild(3))->getChild(0),
            node->cylinderExtensionPos.get());
}

TEST_F(TarnOICylinderSeparatorTest, ASurfaceBuiltAgainLosesItsDashedLine) {
  show(0, 1.5);
  show(0, 1.5);
  EXPECT_EQ(childTypes(*node), asSurface);
  EXPECT_TRUE(node->cylinderExtensionPos) << "remembered, so that it is not appended";
  show(0, 1.0);
  EXPECT_EQ(childTypes(*node), asSurface);
  show(0, 1.5);
  EXPECT_EQ(childTypes(*node), asProlongedSurface) << "once it was forgotten";
}

TEST_F(TarnOICylinderSeparatorTest, ADashedLineThatWasDroppedIsStillMoved) {
  show(0, 2.5);
  show(0, 1.5);
  const SoMFVec3f& ends = node->cylinderExtensionPos->point;
  EXPECT_THAT(longerByHalf, ElementsAre(ends[0], ends[1]));
}

TEST_F(TarnOICylinderSeparatorTest, EndsAndFactorAreThoseOfTheBoundCylinder) {
  show(1, 1.5);
  tarn::Cylinder other;
  other.SetEndPoints({100, 200, 300}, {400, 500, 600});
  other.SetThreeDExtenstionFactor(7.0);
  node->AddExtension(&other);
  EXPECT_EQ(extension(2), longerByHalf);
  cylinder().SetThreeDExtenstionFactor(1.0);
  node->AddExtension(&other);
  EXPECT_EQ(extension(2), measured) << "shown by the one, as long as the other says";
}

TEST_F(TarnOICylinderSeparatorTest, TheCylinderHandedOverTellsWhetherThereIsAnExtension) {
  show(1, 1.5);
  const tarn::Cylinder* const bound = &cylinder();
  tarn::Cylinder other;
  other.SetThreeDExtenstionFactor(1.0);
  node->AddExtension(&other);
  EXPECT_FALSE(node->cylinderExtensionPos);
  EXPECT_EQ(bound->GetThreeDExtenstionFactor(), 1.5);
}

TEST_F(TarnOICylinderSeparatorTest, AnExtensionWithoutItsLineSetIsReportedAndMoves) {
  show(1, 2.5);
  node->cylinderExtensionSet.reset();
  show(1, 1.5);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("cylinderExtensionSet", "TarnOICylinderSeparator", 367)));
  EXPECT_EQ(extension(2), longerByHalf);
}

// --- Modes

TEST_F(TarnOICylinderSeparatorTest, ChangingTheModeRebuildsFromNothing) {
  show(0, 1.5);
  const NodeRef<SoCoordinate3> first = node->cylinderExtensionPos;
  show(1);
  EXPECT_EQ(childTypes(*node), asProlongedLine);
  EXPECT_NE(node->cylinderExtensionPos.get(), first.get());
  EXPECT_NE(node->centreLineMode, 0);
  const NodeRef<SoCoordinate3> second = node->cylinderExtensionPos;
  show(0);
  EXPECT_EQ(childTypes(*node), asProlongedSurface);
  EXPECT_NE(node->cylinderExtensionPos.get(), second.get());
  EXPECT_EQ(node->centreLineMode, 0);
}

TEST_F(TarnOICylinderSeparatorTest, ChangingTheModeForgetsTheExtension) {
  show(0, 1.5);
  show(1, 1.0);
  EXPECT_EQ(childTypes(*node), asLine);
  EXPECT_FALSE(node->cylinderExtensionPos);
  EXPECT_FALSE(node->cylinderExtensionSet);
}

TEST_F(TarnOICylinderSeparatorTest, ChangingTheModeKeepsTheHintsOfTheFirstSurface) {
  surface.SetDoubleSided(0);
  show(0);
  show(1);
  surface.SetDoubleSided(1);
  show(0);
  EXPECT_EQ(node->getChild(0), singleSided.get());
  show(0);
  EXPECT_EQ(node->getChild(0), doubleSided.get()) << "a surface built over a surface forgets them";
}

TEST_F(TarnOICylinderSeparatorTest, AnyOtherNumberIsAnotherMode) {
  show(1, 1.5);
  const auto before = children(*node);
  show(2);
  EXPECT_EQ(node->centreLineMode, 2);
  EXPECT_EQ(childTypes(*node), asProlongedLine);
  EXPECT_NE(children(*node), before);
}

TEST_F(TarnOICylinderSeparatorTest, TheModeIsComparedWithTheNodesOwn) {
  tarn::NURBSSurfaceCylinder other;
  show(1);
  const auto before = children(*node);
  node->SetNurbsSurface(&other, &dictionary, nullptr, nullptr, nullptr, nullptr, nullptr, 1);
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  node.reset();
}

TEST_F(TarnOICylinderSeparatorTest, TheSurfaceIsBuiltByTheBaseClassItself) {
  struct Overriding : TarnOICylinderSeparator {
    int calls = 0;
    using TarnOICylinderSeparator::SetNurbsSurface;
    void SetNurbsSurface(tarn::Surface*, tarn::VDictionary*, SoShapeHints*, SoShapeHints*,
                         TarnOITexture**, tarn::VOrdCollect**, tarn::VDictionary*) override {
      ++calls;
    }
  };
  const auto overriding = makeNode<Overriding>();
  tarn::VOrdCollect* sets = surface.GetTriangleSets();
  overriding->SetNurbsSurface(&surface, &dictionary, nullptr, doubleSided.get(), nullptr, &sets,
                              nullptr, 0);
  EXPECT_EQ(overriding->calls, 0);
  EXPECT_EQ(childTypes(*overriding), asSurface);
}

TEST_F(TarnOICylinderSeparatorTest, NullOnlyUnbinds) {
  show(1, 1.5);
  node->SetNurbsSurface(nullptr, &dictionary, nullptr, nullptr, nullptr, nullptr, nullptr, 0);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.atKey(&surface), nullptr);
  EXPECT_EQ(childTypes(*node), asProlongedLine);
}

TEST_F(TarnOICylinderSeparatorTest, ASurfaceThatIsNoCylinderHasNoAxis) {
  tarn::NURBSSurface plain;
  node->SetNurbsSurface(&plain, &dictionary, singleSided.get(), nullptr, nullptr, nullptr, nullptr,
                        0);
  EXPECT_THAT(childTypes(*node), ElementsAre("ShapeHints"));
  node->SetNurbsSurface(&plain, &dictionary, singleSided.get(), nullptr, nullptr, nullptr, nullptr,
                        1);
  EXPECT_EQ(childTypes(*node), asLine);
  node.reset();
}

TEST_F(TarnOICylinderSeparatorTest, EachShowingIsSignalledOnce) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(node.get());
  SignalCount signals(parent.get());
  show(1, 1.5);
  EXPECT_EQ(signals.count(), 1);
  show(1, 2.5);
  EXPECT_EQ(signals.count(), 2);
  show(0);
  EXPECT_EQ(signals.count(), 3);
}

// --- Copies

TEST_F(TarnOICylinderSeparatorTest, ACopyIsBoundAndInTheSameMode) {
  show(1, 1.5);
  const NodeRef<TarnOICylinderSeparator> copy(static_cast<TarnOICylinderSeparator*>(node->copy()));
  EXPECT_EQ(copy->getTypeId(), TarnOICylinderSeparator::getClassTypeId());
  EXPECT_EQ(copy->GetTarnObject(), &surface);
  EXPECT_EQ(dictionary.atKey(&surface), static_cast<SoNode*>(copy.get()));
  EXPECT_EQ(childTypes(*copy), asProlongedLine);
  EXPECT_EQ(makeNode<OpenCylinderNode>(*copy)->centreLineMode, 1);
}

TEST_F(TarnOICylinderSeparatorTest, ACopyKnowsNothingOfItsExtension) {
  show(1, 1.5);
  const NodeRef<TarnOICylinderSeparator> copy(static_cast<TarnOICylinderSeparator*>(node->copy()));
  const auto members = makeNode<OpenCylinderNode>(*copy);
  EXPECT_FALSE(members->cylinderExtensionPos);
  EXPECT_FALSE(members->cylinderExtensionSet);
  cylinder().SetEndPoints({5, 4, 35}, {1, 20, 3});
  copy->SetNurbsSurface(&surface, &dictionary, nullptr, nullptr, nullptr, nullptr, nullptr, 1);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "LineSet", "Separator", "Separator"));
  EXPECT_THAT(coordinates(*copy, 0), ElementsAre(measured[1], measured[0]));
  EXPECT_EQ(coordinates(*node, 0), measured);
}

TEST_F(TarnOICylinderSeparatorTest, CopyConstructionSharesTheMembersAndMakesNoEntry) {
  show(1, 1.5);
  dictionary.takeChanges();
  const auto copy = makeNode<OpenCylinderNode>(*node);
  EXPECT_EQ(copy->GetTarnObject(), &surface);
  EXPECT_EQ(copy->getNumChildren(), 0);
  EXPECT_EQ(copy->centreLineMode, 1);
  EXPECT_EQ(copy->cylinderExtensionPos.get(), node->cylinderExtensionPos.get());
  EXPECT_EQ(copy->cylinderExtensionSet.get(), node->cylinderExtensionSet.get());
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}
