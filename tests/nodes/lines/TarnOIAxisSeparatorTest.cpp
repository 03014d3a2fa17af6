#include "nodes/lines/TarnOIAxisSeparator.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoScale.h>
#include <Inventor/nodes/SoText2.h>
#include <Inventor/nodes/SoTranslation.h>

#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

#include <cstring>

using tarn::Point3DDouble;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace {

// The node with its members open.
struct OpenNode : TarnOIAxisSeparator {
  using TarnOIAxisSeparator::axisScale;
  using TarnOIAxisSeparator::CreateChildren;
  using TarnOIAxisSeparator::originPos;
  using TarnOIAxisSeparator::SetLinePosition;
  using TarnOIAxisSeparator::xAxisCoords;
  using TarnOIAxisSeparator::xLabelPos;
  using TarnOIAxisSeparator::yAxisCoords;
  using TarnOIAxisSeparator::yLabelPos;
  using TarnOIAxisSeparator::zAxisCoords;
  using TarnOIAxisSeparator::zLabelPos;
};

// The axes of a node in their order, the last three of its children.
const SoGroup& axisOf(const SoGroup& node, int order) {
  return static_cast<const SoGroup&>(*node.getChild(node.getNumChildren() - 3 + order));
}
SbVec3f labelPlaceOf(const SoGroup& axis) {
  return static_cast<SoTranslation*>(axis.getChild(3))->translation.getValue();
}
SbVec3f scaleOf(const SoGroup& node, int child) {
  return static_cast<SoScale*>(node.getChild(child))->scaleFactor.getValue();
}
SbVec3f originOf(const SoGroup& node) {
  return static_cast<SoTranslation*>(node.getChild(0))->translation.getValue();
}

}  // namespace

class TarnOIAxisSeparatorTest : public TarnTest {
protected:
  // What a node that was just built draws.
  static void expectUnitCross(const SoGroup& node) {
    const struct {
      const char* label;
      SbColor color;
      SbVec3f first;
      SbVec3f second;
      SbVec3f labelPlace;
    } expected[] = {
        {"Y", SbColor(0, 1, 0), SbVec3f(0, 0, 0), SbVec3f(0, 0, -1), SbVec3f(0, 0, -1)},
        {"X", SbColor(1, 0, 0), SbVec3f(1, 0, 0), SbVec3f(0, 0, 0), SbVec3f(1, 0, 0)},
        {"Z", SbColor(0, 0, 1), SbVec3f(0, 1, 0), SbVec3f(0, 0, 0), SbVec3f(0, 1, 0)},
    };
    for (int order = 0; order < 3; ++order) {
      const auto& [label, color, first, second, labelPlace] = expected[order];
      SCOPED_TRACE(label);
      const SoGroup& axis = axisOf(node, order);
      ASSERT_EQ(axis.getTypeId(), SoSeparator::getClassTypeId());
      ASSERT_THAT(childTypes(axis),
                  ElementsAre("Material", "Coordinate3", "LineSet", "Translation", "Text2"));
      const auto* material = static_cast<SoMaterial*>(axis.getChild(0));
      EXPECT_EQ(material->ambientColor[0], SbColor(0.9F, 0.9F, 0.9F));
      EXPECT_EQ(material->diffuseColor[0], color);
      EXPECT_THAT(coordinates(axis, 1), ElementsAre(first, second));
      const auto* lines = static_cast<SoLineSet*>(axis.getChild(2));
      ASSERT_EQ(lines->numVertices.getNum(), 1);
      EXPECT_EQ(lines->numVertices[0], 2);
      EXPECT_EQ(labelPlaceOf(axis), labelPlace);
      const auto* text = static_cast<SoText2*>(axis.getChild(4));
      ASSERT_EQ(text->string.getNum(), 1);
      EXPECT_STREQ(text->string[0].getString(), label);
    }
  }

  // Axes from (1.5, 2.25, -3.75), each with an end off its axis, as the fixture's view offset
  // shows them.
  void updateCoordinates() {
    origin = {1.5, 2.25, -3.75};
    xEnd = {11.5, 2.5, -3.5};
    yEnd = {1.75, 22.25, -3.25};
    zEnd = {1.25, 2.75, 26.25};
    node->UpdateCoordinates(origin, xEnd, yEnd, zEnd);
  }
  const SbVec3f shownOrigin{-9.0F, -33.875F, -22.5F};
  const SbVec3f shownX{1.0F, -33.625F, -22.75F};
  const SbVec3f shownY{-8.75F, -33.375F, -42.5F};
  const SbVec3f shownZ{-9.25F, -3.875F, -23.0F};

  Point3DDouble origin;
  Point3DDouble xEnd;
  Point3DDouble yEnd;
  Point3DDouble zEnd;
  NodeRef<OpenNode> node = makeNode<OpenNode>();
};

TEST_F(TarnOIAxisSeparatorTest, AFreshNodeHasNoChildrenAndShowsNoObject) {
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_FALSE(node->axisScale);
  EXPECT_FALSE(node->originPos);
}

// --- Scale

TEST_F(TarnOIAxisSeparatorTest, TheScaleOfANewNodeBuildsTheCrossAtUnitSize) {
  node->SetScale(2.5);
  EXPECT_THAT(childTypes(*node), ElementsAre("Scale", "Separator", "Separator", "Separator"));
  EXPECT_EQ(scaleOf(*node, 0), SbVec3f(2.5F, 2.5F, 2.5F));
  expectUnitCross(*node);
}

TEST_F(TarnOIAxisSeparatorTest, AnotherScaleIsWrittenInPlace) {
  node->SetScale(2.5);
  const auto before = children(*node);
  node->SetScale(0.1);
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  EXPECT_EQ(scaleOf(*node, 0), SbVec3f(0.1F, 0.1F, 0.1F));
}

// --- Origin

TEST_F(TarnOIAxisSeparatorTest, TheOriginOfANewNodeBuildsTheCrossAndStandsAheadOfTheScale) {
  node->SetOrigin({1.5, 2.25, -3.75});
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Translation", "Scale", "Separator", "Separator", "Separator"));
  EXPECT_EQ(originOf(*node), shownOrigin);
  EXPECT_EQ(node->getChild(0), node->originPos.get());
  EXPECT_EQ(scaleOf(*node, 1), SbVec3f(1, 1, 1));
  expectUnitCross(*node);
}

TEST_F(TarnOIAxisSeparatorTest, TheOriginOfABuiltNodeGoesAheadOfTheScale) {
  node->SetScale(2.5);
  const auto before = children(*node);
  node->SetOrigin({1.5, 2.25, -3.75});
  ASSERT_EQ(node->getNumChildren(), 5);
  EXPECT_EQ(originOf(*node), shownOrigin);
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_EQ(node->getChild(static_cast<int>(i) + 1), before[i]);
  }
}

TEST_F(TarnOIAxisSeparatorTest, AnotherOriginIsWrittenInPlace) {
  node->SetOrigin({1, 2, 3});
  const auto before = children(*node);
  node->SetOrigin({1.5, 2.25, -3.75});
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  EXPECT_EQ(originOf(*node), shownOrigin);
}

TEST_F(TarnOIAxisSeparatorTest, TheCallersOriginStaysWhereItIs) {
  origin = {1.5, 2.25, -3.75};
  node->SetOrigin(origin);
  EXPECT_EQ(origin, Point3DDouble(1.5, 2.25, -3.75));
}

// --- Coordinates

TEST_F(TarnOIAxisSeparatorTest, TheCoordinatesOfANewNodeBuildTheCross) {
  updateCoordinates();
  EXPECT_THAT(childTypes(*node), ElementsAre("Scale", "Separator", "Separator", "Separator"));
}

TEST_F(TarnOIAxisSeparatorTest, TheAxesRunFromTheOriginToTheirEnds) {
  updateCoordinates();
  EXPECT_THAT(coordinates(axisOf(*node, 0), 1), ElementsAre(shownOrigin, shownY));
  EXPECT_THAT(coordinates(axisOf(*node, 1), 1), ElementsAre(shownOrigin, shownX));
  EXPECT_THAT(coordinates(axisOf(*node, 2), 1), ElementsAre(shownOrigin, shownZ));
}

TEST_F(TarnOIAxisSeparatorTest, EachLabelStandsAtItsAxisEnd) {
  updateCoordinates();
  EXPECT_EQ(labelPlaceOf(axisOf(*node, 0)), shownY);
  EXPECT_EQ(labelPlaceOf(axisOf(*node, 1)), shownX);
  EXPECT_EQ(labelPlaceOf(axisOf(*node, 2)), shownZ);
}

TEST_F(TarnOIAxisSeparatorTest, TheCallersPointsAreInTheViewerFrameAfterwards) {
  updateCoordinates();
  EXPECT_EQ(origin, Point3DDouble(-9.0, -33.875, -22.5));
  EXPECT_EQ(xEnd, Point3DDouble(1.0, -33.625, -22.75));
  EXPECT_EQ(yEnd, Point3DDouble(-8.75, -33.375, -42.5));
  EXPECT_EQ(zEnd, Point3DDouble(-9.25, -3.875, -23.0));
}

TEST_F(TarnOIAxisSeparatorTest, TheCallersPointsAreNotNarrowed) {
  tarn::gThreeDViewOffset = {};
  origin = {0.1, 0.2, 0.3};
  node->UpdateCoordinates(origin, xEnd, yEnd, zEnd);
  EXPECT_EQ(origin, Point3DDouble(0.1, 0.3, -0.2));
}

TEST_F(TarnOIAxisSeparatorTest, PointsThatArePassedAgainAreBroughtIntoTheViewerFrameAgain) {
  updateCoordinates();
  node->UpdateCoordinates(origin, xEnd, yEnd, zEnd);
  EXPECT_EQ(origin, Point3DDouble(-9.0 - 10.5, -22.5 - 30.125, 33.875 - 20.25));
  EXPECT_EQ(labelPlaceOf(axisOf(*node, 0)),
            SbVec3f(-8.75F - 10.5F, -42.5F - 30.125F, 33.375F - 20.25F));
}

TEST_F(TarnOIAxisSeparatorTest, CoordinatesAreWrittenInPlaceAndLeaveScaleAndOriginAlone) {
  node->SetScale(2.5);
  node->SetOrigin({1, 2, 3});
  const auto before = children(*node);
  const SbVec3f originBefore = originOf(*node);
  updateCoordinates();
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  EXPECT_EQ(originOf(*node), originBefore);
  EXPECT_EQ(scaleOf(*node, 1), SbVec3f(2.5F, 2.5F, 2.5F));
}

TEST_F(TarnOIAxisSeparatorTest, EachChangeIsSignalledOnceTheBuildingWithIt) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(node.get());
  SignalCount signals(parent.get());
  node->SetScale(1);
  EXPECT_EQ(signals.count(), 1);
  node->SetOrigin({1, 2, 3});
  EXPECT_EQ(signals.count(), 2);
  updateCoordinates();
  EXPECT_EQ(signals.count(), 3);
  node->SetScale(2);
  EXPECT_EQ(signals.count(), 4);
}

TEST_F(TarnOIAxisSeparatorTest, ADerivedClassMayPlaceALineInTheViewerFrame) {
  auto coords = makeNode<SoCoordinate3>();
  coords->point.setNum(3);
  coords->point.set1Value(2, SbVec3f(7, 8, 9));
  Point3DDouble from{0.1, 2, 3};
  Point3DDouble to{4, 5, 6};
  node->SetLinePosition(coords.get(), from, to);
  ASSERT_EQ(coords->point.getNum(), 3);
  EXPECT_EQ(coords->point[0], SbVec3f(0.1F, 2, 3));
  EXPECT_EQ(coords->point[1], SbVec3f(4, 5, 6));
  EXPECT_EQ(coords->point[2], SbVec3f(7, 8, 9));
  EXPECT_EQ(from, Point3DDouble(0.1, 2, 3));
  node->SetLinePosition(nullptr, from, to);
}

// --- Children that others changed

TEST_F(TarnOIAxisSeparatorTest, ChildrenThatTheHostDroppedAreBuiltAnew) {
  node->SetOrigin({1, 2, 3});
  updateCoordinates();
  node->removeAllChildren();
  node->SetScale(3);
  EXPECT_THAT(childTypes(*node), ElementsAre("Scale", "Separator", "Separator", "Separator"));
  expectUnitCross(*node);
  node->SetOrigin({1.5, 2.25, -3.75});
  ASSERT_EQ(node->getNumChildren(), 5);
  EXPECT_EQ(originOf(*node), shownOrigin);
}

TEST_F(TarnOIAxisSeparatorTest, ChildrenFromAFileAreLeftAlone) {
  const char* text = "TarnOIAxisSeparator { Cube { } }";
  SoInput input;
  input.setBuffer(text, std::strlen(text));
  const NodeRef<TarnOIAxisSeparator> read(static_cast<TarnOIAxisSeparator*>(SoDB::readAll(&input)));
  ASSERT_EQ(read->getTypeId(), TarnOIAxisSeparator::getClassTypeId());
  read->SetScale(2);
  read->UpdateCoordinates(origin, xEnd, yEnd, zEnd);
  EXPECT_THAT(childTypes(*read), ElementsAre("Cube"));
}

// --- Copies

TEST_F(TarnOIAxisSeparatorTest, ANodeCopyIsUpdatedByItself) {
  node->SetScale(2.5);
  node->SetOrigin({1, 2, 3});
  auto highlight = makeNode<SoMaterial>();
  node->Highlight(highlight.get(), 1);
  const SbVec3f originBefore = node->originPos->translation.getValue();
  const NodeRef<SoNode> copied(node->copy());
  auto& copy = static_cast<TarnOIAxisSeparator&>(*copied);
  ASSERT_EQ(copy.getNumChildren(), node->getNumChildren());
  copy.Highlight(static_cast<SoMaterial*>(copy.getChild(0)), 0);
  origin = {1.5, 2.25, -3.75};
  copy.SetOrigin(origin);
  copy.SetScale(7);
  xEnd = {11.5, 2.5, -3.5};
  copy.UpdateCoordinates(origin, xEnd, yEnd, zEnd);
  EXPECT_EQ(originOf(copy), shownOrigin);
  EXPECT_EQ(scaleOf(copy, 1), SbVec3f(7, 7, 7));
  EXPECT_THAT(coordinates(axisOf(copy, 1), 1), ElementsAre(shownOrigin, shownX));
  EXPECT_EQ(labelPlaceOf(axisOf(copy, 1)), shownX);
  EXPECT_EQ(coordinates(axisOf(copy, 0), 1)[0], shownOrigin);
  EXPECT_EQ(coordinates(axisOf(copy, 2), 1)[0], shownOrigin);
  EXPECT_EQ(copy.getNumChildren(), 5);

  EXPECT_EQ(node->originPos->translation.getValue(), originBefore);
  EXPECT_EQ(node->axisScale->scaleFactor.getValue(), SbVec3f(2.5F, 2.5F, 2.5F));
  expectUnitCross(*node);
}

TEST_F(TarnOIAxisSeparatorTest, CopyConstructionAndAssignmentTakeTheMembersAndNoChild) {
  node->SetOrigin({1, 2, 3});
  const auto expectMembers = [this](const OpenNode& copy) {
    EXPECT_EQ(copy.getNumChildren(), 0);
    EXPECT_EQ(copy.axisScale.get(), node->axisScale.get());
    EXPECT_EQ(copy.originPos.get(), node->originPos.get());
    EXPECT_EQ(copy.xAxisCoords.get(), node->xAxisCoords.get());
    EXPECT_EQ(copy.yAxisCoords.get(), node->yAxisCoords.get());
    EXPECT_EQ(copy.zAxisCoords.get(), node->zAxisCoords.get());
    EXPECT_EQ(copy.xLabelPos.get(), node->xLabelPos.get());
    EXPECT_EQ(copy.yLabelPos.get(), node->yLabelPos.get());
    EXPECT_EQ(copy.zLabelPos.get(), node->zLabelPos.get());
  };
  expectMembers(*makeNode<OpenNode>(*node));
  auto assigned = makeNode<OpenNode>();
  *assigned = *node;
  expectMembers(*assigned);
}
