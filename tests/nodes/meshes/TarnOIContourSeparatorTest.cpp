#include "nodes/meshes/TarnOIContourSeparator.h"

#include <Inventor/SbColor.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>

#include "host/classes/VOrdCollect.h"
#include "host/model/Material.h"
#include "host/model/PointMeshContour.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const PreferenceRead fixedColor{PreferenceRead::eBool, "ContoursUseFixedColor", "0", "DenseStereo"};
const PreferenceRead contourColor{PreferenceRead::eColour, "ContourColor(RRRGGGBBB_0-255)",
                                  "000128128", "DenseStereo"};
const PreferenceRead includePoints{PreferenceRead::eBool, "IncludePointsInContours", "0",
                                   "DenseStereo"};
const PreferenceRead selectionColor{PreferenceRead::eInt, "SelectionColor", "7", "Colors"};

const SbColor preferred(0, 128 / 255.0F, 128 / 255.0F);
const SbColor selected(192 / 255.0F, 192 / 255.0F, 192 / 255.0F);

// The node with its members open.
class OpenNode : public TarnOIContourSeparator {
public:
  using TarnOIContourSeparator::coordinates;
  using TarnOIContourSeparator::fixedMaterial;
  using TarnOIContourSeparator::subHighlight;
};

}  // namespace

class TarnOIContourSeparatorTest : public TarnTest {
protected:
  TarnOIContourSeparatorTest() {
    contour.SetPoints(std::vector<tarn::Point3DDouble>{{1.5, 2.25, -3.75}, {4, 5, 6}, {7, -8, 9}});
  }

  void useFixedColor() { preferences.Set("ContoursUseFixedColor", "1", "DenseStereo"); }

  std::vector<SbVec3f> vertices() const {
    const SoMFVec3f& field = node->coordinates->point;
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }
  std::vector<SbColor> colors() const {
    const SoMFColor& field = node->subHighlight.material->diffuseColor;
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }
  int binding() const { return node->subHighlight.binding->value.getValue(); }

  // With the fixture's view offset (10.5, -20.25, 30.125).
  const SbVec3f first{-9.0F, -33.875F, -22.5F};
  const SbVec3f second{-6.5F, -24.125F, -25.25F};
  const SbVec3f third{-3.5F, -21.125F, -12.25F};

  tarn::PointMeshContour contour;
  tarn::VOrdCollect indexes;
  NodeRef<OpenNode> node = makeNode<OpenNode>();
};

// --- Building

TEST_F(TarnOIContourSeparatorTest, AFreshNodeHasNoChildren) {
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIContourSeparatorTest, ByDefaultItHasCoordinatesAndALineSet) {
  EXPECT_EQ(node->SetContour(&contour, &dictionary), 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "LineSet"));
  EXPECT_TRUE(static_cast<SoLineSet*>(node->getChild(1))->numVertices.isDefault());
  EXPECT_THAT(preferences.takeReads(), ElementsAre(fixedColor, includePoints));
}

TEST_F(TarnOIContourSeparatorTest, FixedColourAndPointsStandInTheirOrder) {
  useFixedColor();
  preferences.Set("IncludePointsInContours", "1", "DenseStereo");
  node->SetContour(&contour, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Coordinate3", "PointSet", "LineSet"));
  EXPECT_EQ(node->fixedMaterial->diffuseColor[0], preferred);
  EXPECT_THAT(preferences.takeReads(), ElementsAre(fixedColor, contourColor, includePoints));
}

TEST_F(TarnOIContourSeparatorTest, TheColoursThirdStoredByteIsRed) {
  useFixedColor();
  preferences.Set("ContourColor(RRRGGGBBB_0-255)", "051102255", "DenseStereo");
  node->SetContour(&contour, &dictionary);
  EXPECT_EQ(node->fixedMaterial->diffuseColor[0], SbColor(0.2F, 0.4F, 1.0F));
}

TEST_F(TarnOIContourSeparatorTest, PointsStandInTheViewerFrameAndTheLineIsNotClosed) {
  contour.SetClosed(1);
  node->SetContour(&contour, &dictionary);
  EXPECT_THAT(vertices(), ElementsAre(first, second, third));
}

TEST_F(TarnOIContourSeparatorTest, LargeCoordinatesLoseNothingBeforeTheOffsetIsTakenOff) {
  tarn::gThreeDViewOffset = {5000000.0, 5000000.0, 5000000.0};
  contour.SetPoints(std::vector<tarn::Point3DDouble>{{5000000.123, 5000000.25, 5000000.5}});
  node->SetContour(&contour, &dictionary);
  EXPECT_FLOAT_EQ(vertices()[0][0], 0.123F);
  EXPECT_FLOAT_EQ(vertices()[0][1], 0.5F);
  EXPECT_FLOAT_EQ(vertices()[0][2], -0.25F);
}

TEST_F(TarnOIContourSeparatorTest, AContourWithoutPointsHasNoCoordinates) {
  tarn::PointMeshContour empty;
  EXPECT_EQ(node->SetContour(&empty, &dictionary), 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "LineSet"));
  EXPECT_THAT(vertices(), IsEmpty());
  node.reset();
}

TEST_F(TarnOIContourSeparatorTest, AContourThatGivesNoPointsHasNoCoordinates) {
  struct Pointless : tarn::PointMeshContour {
    int GetNumberOfPoints() const override { return 3; }
  } pointless;
  EXPECT_EQ(node->SetContour(&pointless, &dictionary), 1);
  EXPECT_THAT(vertices(), IsEmpty());
  node.reset();
}

TEST_F(TarnOIContourSeparatorTest, BuildingEntersTheNodeIntoTheDictionaryAndDestructionRemovesIt) {
  node->SetContour(&contour, &dictionary);
  EXPECT_EQ(node->GetTarnObject(), &contour);
  EXPECT_EQ(dictionary.atKey(&contour), static_cast<SoNode*>(node.get()));
  node.reset();
  EXPECT_EQ(dictionary.size(), 0);
}

TEST_F(TarnOIContourSeparatorTest, ANullContourUnbindsAndKeepsTheChildren) {
  node->SetContour(&contour, &dictionary);
  const auto before = children(*node);
  preferences.takeReads();
  EXPECT_EQ(node->SetContour(nullptr, &dictionary), 1);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(children(*node), before);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIContourSeparatorTest, BuildingInASceneIsSignalledOnce) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(node.get());
  useFixedColor();
  SignalCount signals(parent.get());
  node->SetContour(&contour, &dictionary);
  EXPECT_EQ(signals.count(), 1);
  node->SetContour(&contour, &dictionary);
  EXPECT_EQ(signals.count(), 2);
  node->HighlightSubPoints(nullptr);
  EXPECT_EQ(signals.count(), 3);
}

// --- Setting again

TEST_F(TarnOIContourSeparatorTest, SettingAgainOverwritesFromTheFirstPointAndKeepsTheTail) {
  node->SetContour(&contour, &dictionary);
  const auto before = children(*node);
  tarn::PointMeshContour shorter;
  shorter.SetPoints(std::vector<tarn::Point3DDouble>{{10.5, -20.25, 30.125}});
  node->SetContour(&shorter, &dictionary);
  EXPECT_EQ(children(*node), before);
  EXPECT_THAT(vertices(), ElementsAre(SbVec3f(0, 0, 0), second, third));
  EXPECT_EQ(dictionary.atKey(&contour), nullptr);
  EXPECT_EQ(dictionary.atKey(&shorter), static_cast<SoNode*>(node.get()));
  node.reset();
}

TEST_F(TarnOIContourSeparatorTest, AnEmptyContourLeavesTheEarlierPoints) {
  node->SetContour(&contour, &dictionary);
  contour.SetPoints({});
  node->SetContour(&contour, &dictionary);
  EXPECT_THAT(vertices(), ElementsAre(first, second, third));
}

TEST_F(TarnOIContourSeparatorTest, ALongerContourAddsItsPoints) {
  contour.SetPoints(std::vector<tarn::Point3DDouble>{{1.5, 2.25, -3.75}});
  node->SetContour(&contour, &dictionary);
  contour.SetPoints(std::vector<tarn::Point3DDouble>{{1.5, 2.25, -3.75}, {4, 5, 6}, {7, -8, 9}});
  node->SetContour(&contour, &dictionary);
  EXPECT_THAT(vertices(), ElementsAre(first, second, third));
}

TEST_F(TarnOIContourSeparatorTest, SettingAgainRefreshesTheOneMaterial) {
  useFixedColor();
  node->SetContour(&contour, &dictionary);
  const auto before = children(*node);
  preferences.Set("ContourColor(RRRGGGBBB_0-255)", "051102255", "DenseStereo");
  node->SetContour(&contour, &dictionary);
  EXPECT_EQ(children(*node), before);
  EXPECT_EQ(node->fixedMaterial->diffuseColor[0], SbColor(0.2F, 0.4F, 1.0F));
}

TEST_F(TarnOIContourSeparatorTest, ANodeWhoseChildrenWereDroppedIsBuiltAnew) {
  useFixedColor();
  node->SetContour(&contour, &dictionary);
  node->HighlightSubPoints(nullptr);
  node->removeAllChildren();
  node->SetContour(&contour, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Coordinate3", "LineSet"));
  EXPECT_THAT(vertices(), ElementsAre(first, second, third));
  EXPECT_FALSE(node->subHighlight.material);
}

// --- Highlighting points

TEST_F(TarnOIContourSeparatorTest, AHighlightOfPointsStandsAtTheFront) {
  node->SetContour(&contour, &dictionary);
  node->HighlightSubPoints(&indexes);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "MaterialBinding", "Coordinate3", "LineSet"));
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
}

TEST_F(TarnOIContourSeparatorTest, AHighlightOfPointsStandsBehindTheFixedColour) {
  useFixedColor();
  node->SetContour(&contour, &dictionary);
  node->HighlightSubPoints(&indexes);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "Material", "MaterialBinding", "Coordinate3", "LineSet"));
  EXPECT_EQ(node->getChild(0), node->fixedMaterial.get());
  EXPECT_EQ(node->getChild(1), node->subHighlight.material.get());
}

TEST_F(TarnOIContourSeparatorTest, ListedPointsGetTheSelectionColourAndOthersThePreferredOne) {
  node->SetContour(&contour, &dictionary);
  preferences.takeReads();
  for (const int index : {1, -1, 3, 77}) indexes.addIndex(index);
  node->HighlightSubPoints(&indexes);
  EXPECT_THAT(colors(), ElementsAre(preferred, selected, preferred));
  EXPECT_THAT(preferences.takeReads(), ElementsAre(contourColor, selectionColor));
}

TEST_F(TarnOIContourSeparatorTest, TheContoursMaterialGoesBeforeThePreferredColour) {
  tarn::Material material;
  material.SetFixedColor({1, 1, 1}, {51, 102, 255}, {2, 2, 2}, {3, 3, 3}, 0.5);
  contour.SetMaterial(&material);
  node->SetContour(&contour, &dictionary);
  preferences.takeReads();
  indexes.addIndex(0);
  node->HighlightSubPoints(&indexes);
  const SbColor own(0.2F, 0.4F, 1.0F);
  EXPECT_THAT(colors(), ElementsAre(selected, own, own));
  EXPECT_THAT(preferences.takeReads(), ElementsAre(selectionColor));
}

TEST_F(TarnOIContourSeparatorTest, HighlightingAgainUsesTheSameNodes) {
  node->SetContour(&contour, &dictionary);
  indexes.addIndex(1);
  node->HighlightSubPoints(&indexes);
  const auto before = children(*node);
  tarn::VOrdCollect others;
  others.addIndex(2);
  node->HighlightSubPoints(&others);
  EXPECT_EQ(children(*node), before);
  EXPECT_THAT(colors(), ElementsAre(preferred, preferred, selected));
  node->HighlightSubPoints(nullptr);
  EXPECT_THAT(colors(), ElementsAre(preferred, preferred, preferred));
}

TEST_F(TarnOIContourSeparatorTest, TheTailOfALongerContourHasColoursToo) {
  node->SetContour(&contour, &dictionary);
  contour.SetPoints(std::vector<tarn::Point3DDouble>{{1, 2, 3}});
  node->SetContour(&contour, &dictionary);
  indexes.addIndex(2);
  node->HighlightSubPoints(&indexes);
  EXPECT_THAT(colors(), ElementsAre(preferred, preferred, selected));
}

TEST_F(TarnOIContourSeparatorTest, PointsThatComeLaterHaveColoursToo) {
  contour.SetPoints(std::vector<tarn::Point3DDouble>{{1, 2, 3}, {4, 5, 6}});
  node->SetContour(&contour, &dictionary);
  indexes.addIndex(0);
  node->HighlightSubPoints(&indexes);
  contour.SetPoints(std::vector<tarn::Point3DDouble>{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
  node->SetContour(&contour, &dictionary);
  EXPECT_THAT(colors(), ElementsAre(selected, preferred, preferred));
}

TEST_F(TarnOIContourSeparatorTest, AHighlightBeforeTheContourWaitsForItsPoints) {
  node->HighlightSubPoints(&indexes);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "MaterialBinding"));
  EXPECT_THAT(colors(), IsEmpty());
  node->SetContour(&contour, &dictionary);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "MaterialBinding", "Coordinate3", "LineSet"));
  EXPECT_THAT(colors(), ElementsAre(preferred, preferred, preferred));
}

TEST_F(TarnOIContourSeparatorTest, ClearingRemovesAndForgetsTheHighlight) {
  node->ClearSubPointHighlights();
  useFixedColor();
  node->SetContour(&contour, &dictionary);
  node->HighlightSubPoints(&indexes);
  node->ClearSubPointHighlights();
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Coordinate3", "LineSet"));
  EXPECT_EQ(node->getChild(0), node->fixedMaterial.get());
  EXPECT_FALSE(node->subHighlight.material);
  EXPECT_FALSE(node->subHighlight.binding);
}

TEST_F(TarnOIContourSeparatorTest, AHighlightOfTheWholeContourGoesBeforeThatOfPoints) {
  auto whole = makeNode<TarnOIMaterialWithPriority>();
  node->SetContour(&contour, &dictionary);
  node->HighlightSubPoints(&indexes);
  node->Highlight(whole.get(), 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "TarnOIMaterialWithPriority",
                                             "MaterialBinding", "Coordinate3", "LineSet"));
  EXPECT_EQ(binding(), SoMaterialBinding::OVERALL) << "it has one colour only";
  node->Highlight(whole.get(), 0);
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
}

// --- Copies and finding

TEST_F(TarnOIContourSeparatorTest, ACopyHasItsOwnChildrenAndIsUnbound) {
  useFixedColor();
  node->SetContour(&contour, &dictionary);
  node->HighlightSubPoints(&indexes);
  const NodeRef<TarnOIContourSeparator> copy(static_cast<TarnOIContourSeparator*>(node->copy()));
  EXPECT_EQ(copy->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.atKey(&contour), static_cast<SoNode*>(node.get()));
  copy->ClearSubPointHighlights();
  EXPECT_THAT(childTypes(*copy), ElementsAre("Material", "Coordinate3", "LineSet"));
  EXPECT_EQ(node->getNumChildren(), 5);
}

TEST_F(TarnOIContourSeparatorTest, ACopyThatIsSetWritesIntoItsOwnChildren) {
  node->SetContour(&contour, &dictionary);
  const NodeRef<TarnOIContourSeparator> copy(static_cast<TarnOIContourSeparator*>(node->copy()));
  tarn::PointMeshContour other;
  other.SetPoints(std::vector<tarn::Point3DDouble>{{10.5, -20.25, 30.125}});
  copy->SetContour(&other, &dictionary);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "LineSet"));
  const auto* coordinates = static_cast<SoCoordinate3*>(copy->getChild(0));
  EXPECT_EQ(coordinates->point[0], SbVec3f(0, 0, 0));
  EXPECT_THAT(vertices(), ElementsAre(first, second, third));
  copy->SetContour(nullptr, &dictionary);
}

TEST_F(TarnOIContourSeparatorTest, CopyConstructionAndAssignmentCopyTheMembersAndMakeNoEntry) {
  useFixedColor();
  node->SetContour(&contour, &dictionary);
  node->HighlightSubPoints(&indexes);
  dictionary.takeChanges();
  const NodeRef<OpenNode> copied = makeNode<OpenNode>(*node);
  const NodeRef<OpenNode> assigned = makeNode<OpenNode>();
  *assigned = *node;
  for (const OpenNode* other : {copied.get(), assigned.get()}) {
    EXPECT_EQ(other->GetTarnObject(), &contour);
    EXPECT_EQ(other->getNumChildren(), 0);
    EXPECT_EQ(other->coordinates.get(), node->coordinates.get());
    EXPECT_EQ(other->fixedMaterial.get(), node->fixedMaterial.get());
    EXPECT_EQ(other->subHighlight.material.get(), node->subHighlight.material.get());
  }
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}

TEST_F(TarnOIContourSeparatorTest, ASearchForTheContourFindsItsNode) {
  auto root = makeNode<SoSeparator>();
  root->addChild(new TarnOIContourSeparator);
  root->addChild(node.get());
  node->SetContour(&contour, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&contour);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), node.get());
}
