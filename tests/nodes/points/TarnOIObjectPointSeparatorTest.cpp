#include "nodes/points/TarnOIObjectPointSeparator.h"

#include <Inventor/SbMatrix.h>
#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoTransform.h>

#include "host/general/DisplayBitmaps.h"
#include "host/model/ImportedPoint.h"
#include "host/model/MarkedPoint.h"
#include "host/model/Material.h"
#include "host/model/ObjectPoint.h"
#include "host/model/SurfacePoint.h"
#include "nodes/framework/TarnOIMaterial.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/framework/TarnOIText2.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"
#include "tests/support/TransformMatrix.h"

#include <cmath>
#include <set>
#include <string>
#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

constexpr const char* className = "TarnOIObjectPointSeparator";
const PreferenceRead showOnlyActive{PreferenceRead::eBool, "ShowOnlyActive", "1", "Control"};
const PreferenceRead showUserName{PreferenceRead::eBool, "ShowUserNameInIDs", "1", "(null)"};
const PreferenceRead sphereSize{PreferenceRead::eDouble, "ExagerationSphereSize", "1", "(null)"};

// The node with its members open.
class OpenNode : public TarnOIObjectPointSeparator {
public:
  using TarnOIObjectPointSeparator::CreateSphereSeparator;
  using TarnOIObjectPointSeparator::rgbMaterial;
  using TarnOIObjectPointSeparator::sphereSeparator;
  using TarnOIObjectPointSeparator::sphereTransform;
};

}  // namespace

class TarnOIObjectPointSeparatorTest : public TarnTest {
protected:
  TarnOIObjectPointSeparatorTest() {
    point.SetNumber(12);
    point.SetApproximation(tarn::Point3DRandom(position));
    target.SetName("K7");
  }

  // With the fixture's view offset (10.5, -20.25, 30.125).
  static constexpr tarn::Point3DDouble position{1.5, 2.25, -3.75};
  const SbVec3f shownPosition{-9.0F, -33.875F, -22.5F};

  SoCoordinate3& coordinate() const {
    SoCoordinate3* result = nullptr;
    node->GetPointSet(&result, nullptr);
    return *result;
  }
  SoPointSet& shape() const {
    SoPointSet* result = nullptr;
    node->GetPointSet(nullptr, &result);
    return *result;
  }
  SoTransform& trans() const { return childOf<SoTransform>(*node); }
  TarnOIText2& textLable() const { return childOf<TarnOIText2>(*node); }
  int markerIndex() const { return static_cast<SoMarkerSet&>(shape()).markerIndex[0]; }

  /// Gives the point a covariance, and the state in which it shows its ellipsoid.
  void setCovariance(double xx, double yy, double zz, double xy = 0, double xz = 0, double yz = 0) {
    point.SetApproximation(tarn::Point3DRandom(position, xx, yy, zz, xy, xz, yz));
    point.SetProcessed(1);
  }

  tarn::ImportedPoint target;
  tarn::ObjectPoint point;
  tarn::MarkedPoint subPixelMark{nullptr, {}, 1};
  tarn::MarkedPoint coarseMark{nullptr, {}, 0};
  NodeRef<OpenNode> node = makeNode<OpenNode>();
};

// --- Building

TEST_F(TarnOIObjectPointSeparatorTest, AFreshNodeHasNoChildrenAndHandsOutNull) {
  auto* coords = reinterpret_cast<SoCoordinate3*>(1);
  auto* points = reinterpret_cast<SoPointSet*>(1);
  node->GetPointSet(&coords, &points);
  EXPECT_EQ(coords, nullptr);
  EXPECT_EQ(points, nullptr);
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(TarnOIObjectPointSeparatorTest, PlainPointHasACoordinateAndAPointSet) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, MarkerAndColourGiveMaterialCoordinateAndMarkerSet) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Coordinate3", "MarkerSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, APointWithoutColourHasNoMaterial) {
  node->SetObjectPoint(&point, &dictionary, 0, 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, AllPartsStandInTheirOrder) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  auto highlight = makeNode<TarnOIMaterialWithPriority>();
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  node->UpdateTextLable(1, 0);
  node->ShowErrorEllipsoid(1);
  node->Highlight(highlight.get(), 1);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "TarnOIMaterialWithPriority", "Separator", "Coordinate3",
                          "MarkerSet", "Transform", "TarnOIText2"));
}

TEST_F(TarnOIObjectPointSeparatorTest, ThePointStandsInTheViewerFrame) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  ASSERT_EQ(coordinate().point.getNum(), 1);
  EXPECT_EQ(coordinate().point[0], shownPosition);
}

TEST_F(TarnOIObjectPointSeparatorTest, ALargeCoordinateLosesNothingBeforeTheOffsetIsTakenOff) {
  tarn::gThreeDViewOffset = {4512345.0, 512345.0, 345.0};
  point.SetApproximation(tarn::Point3DRandom({4512345.123, 512346.456, 347.789}));
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  EXPECT_FLOAT_EQ(coordinate().point[0][0], 0.123F);
  EXPECT_FLOAT_EQ(coordinate().point[0][1], 2.789F);
  EXPECT_FLOAT_EQ(coordinate().point[0][2], -1.456F);
}

TEST_F(TarnOIObjectPointSeparatorTest, APointWithoutPositionIsDrawnAtTheModelsOrigin) {
  tarn::ObjectPoint nowhere;
  node->SetObjectPoint(&nowhere, &dictionary, 0, 0);
  EXPECT_EQ(coordinate().point[0], SbVec3f(-10.5F, -30.125F, -20.25F));
  node->SetObjectPoint(nullptr, &dictionary, 0, 0);
}

TEST_F(TarnOIObjectPointSeparatorTest,
       BuildingEntersTheNodeIntoTheDictionaryAndDestructionRemovesIt) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  EXPECT_EQ(node->GetTarnObject(), &point);
  EXPECT_EQ(dictionary.atKey(&point), static_cast<SoNode*>(node.get()));
  node.reset();
  EXPECT_EQ(dictionary.size(), 0);
}

TEST_F(TarnOIObjectPointSeparatorTest, ANullPointUnbindsAndKeepsTheChildren) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  const auto before = children(*node);
  node->SetObjectPoint(nullptr, &dictionary, 1, 1);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_EQ(children(*node), before);
}

TEST_F(TarnOIObjectPointSeparatorTest, ANullPointBuildsNothing) {
  node->SetObjectPoint(nullptr, &dictionary, 1, 1);
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(TarnOIObjectPointSeparatorTest, BuildingInASceneIsSignalledOnce) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(node.get());
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  SignalCount signals(parent.get());
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  EXPECT_EQ(signals.count(), 1);
  EXPECT_TRUE(node->isNotifyEnabled());
  node->addChild(new SoCube);
  EXPECT_EQ(signals.count(), 2) << "later changes are signalled as ever";
}

TEST_F(TarnOIObjectPointSeparatorTest, ANodeWhoseChildrenWereDroppedIsBuiltAnew) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  node->UpdateTextLable(1, 0);
  node->removeAllChildren();
  node->SetObjectPoint(&point, &dictionary, 0, 1);
  node->UpdateTextLable(1, 0);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "Coordinate3", "PointSet", "Transform", "TarnOIText2"));
}

// --- Binding again

TEST_F(TarnOIObjectPointSeparatorTest, BindingAgainKeepsTheChildrenAndMovesTheCoordinate) {
  tarn::ObjectPoint other;
  other.SetNumber(13);
  other.SetApproximation(tarn::Point3DRandom({11.5, -18.25, 33.125}));
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->UpdateTextLable(1, 0);
  node->ShowErrorEllipsoid(1);
  const auto before = children(*node);
  dictionary.takeChanges();

  node->SetObjectPoint(&other, &dictionary, 0, 0);
  EXPECT_EQ(children(*node), before);
  EXPECT_EQ(coordinate().point[0], SbVec3f(1.0F, 3.0F, -2.0F));
  EXPECT_EQ(coordinate().point.getNum(), 1);
  using Change = RecordingDictionary::Change;
  EXPECT_THAT(dictionary.takeChanges(),
              ElementsAre(Change{Change::eRemove, &point, nullptr},
                          Change{Change::ePut, &other, static_cast<SoNode*>(node.get())}));
  // Label and ellipsoid wait for their own updates.
  EXPECT_EQ(textLable().string[0], "12");
  node.reset();
}

TEST_F(TarnOIObjectPointSeparatorTest, BindingAgainUpdatesMarkerAndColour) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  point.SetSecondState(1);
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Coordinate3", "MarkerSet"));
  EXPECT_EQ(markerIndex(), tarn::gSymbols.secondState);
}

TEST_F(TarnOIObjectPointSeparatorTest, BindingAgainWritesIntoTheLastCoordinateChild) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  auto* later = new SoCoordinate3;
  node->addChild(later);
  point.SetApproximation(tarn::Point3DRandom({11.5, -18.25, 33.125}));
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  EXPECT_EQ(&coordinate(), later);
  EXPECT_EQ(later->point[0], SbVec3f(1.0F, 3.0F, -2.0F));
  EXPECT_EQ(static_cast<SoCoordinate3*>(node->getChild(0))->point[0], shownPosition);
}

TEST_F(TarnOIObjectPointSeparatorTest, BindingAgainWithoutCoordinatesIsReportedAndGoesOn) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  node->addChild(new SoCube);
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("pointPos", className)));
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Cube"));
}

// --- Markers

TEST_F(TarnOIObjectPointSeparatorTest, MarkerAndPointTakeEachOthersPlace) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->UpdateTextLable(1, 0);
  node->UpdateMarkerSet(1);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Coordinate3", "MarkerSet", "Transform", "TarnOIText2"));
  EXPECT_EQ(&shape(), node->getChild(1));
  node->UpdateMarkerSet(0);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Coordinate3", "PointSet", "Transform", "TarnOIText2"));
  EXPECT_EQ(&shape(), node->getChild(1));
}

TEST_F(TarnOIObjectPointSeparatorTest, TheShapeIsKeptWhileItsKindStays) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  const SoNode* plain = node->getChild(1);
  node->UpdateMarkerSet(0);
  EXPECT_EQ(node->getChild(1), plain);
  node->UpdateMarkerSet(1);
  const SoNode* marker = node->getChild(1);
  point.SetSecondState(1);
  node->UpdateMarkerSet(1);
  EXPECT_EQ(node->getChild(1), marker);
  EXPECT_EQ(markerIndex(), tarn::gSymbols.secondState);
}

TEST_F(TarnOIObjectPointSeparatorTest, AShapeMadeBeforeTheNodeIsBuiltIsAppendedByTheBuild) {
  node->UpdateMarkerSet(1);
  const SoPointSet* early = &shape();
  EXPECT_EQ(node->getNumChildren(), 0);
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  EXPECT_EQ(node->getChild(1), early);
}

TEST_F(TarnOIObjectPointSeparatorTest, AShapeThatIsNoChildIsReplacedWithoutTouchingTheChildren) {
  node->UpdateMarkerSet(1);
  node->UpdateMarkerSet(0);
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_FALSE(shape().isOfType(SoMarkerSet::getClassTypeId()));
}

TEST_F(TarnOIObjectPointSeparatorTest, MarkerOfAnOrdinaryPoint) {
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  EXPECT_EQ(markerIndex(), tarn::gSymbols.point);
  EXPECT_EQ(static_cast<SoMarkerSet&>(shape()).markerIndex.getNum(), 1);
}

TEST_F(TarnOIObjectPointSeparatorTest, MarkerOfAPointWithSubPixelMarks) {
  point.AddMarkedPoint(&subPixelMark);
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  EXPECT_EQ(markerIndex(), tarn::gSymbols.subPixel);
}

TEST_F(TarnOIObjectPointSeparatorTest, OneCoarseMarkMakesAnOrdinaryMarkerAlsoOfACodedTarget) {
  point.AddMarkedPoint(&subPixelMark);
  point.AddMarkedPoint(&coarseMark);
  point.SetTargetCode(5, 1);
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  EXPECT_EQ(markerIndex(), tarn::gSymbols.point);
}

TEST_F(TarnOIObjectPointSeparatorTest, MarkerOfACodedTargetWithSubPixelMarks) {
  point.AddMarkedPoint(&subPixelMark);
  point.SetTargetCode(5, 1);
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  EXPECT_EQ(markerIndex(), tarn::gSymbols.codedTarget);
}

TEST_F(TarnOIObjectPointSeparatorTest, TheSecondStatePrecedesSubPixelMarks) {
  point.AddMarkedPoint(&subPixelMark);
  point.SetTargetCode(5, 1);
  point.SetSecondState(1);
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  EXPECT_EQ(markerIndex(), tarn::gSymbols.secondState);
}

TEST_F(TarnOIObjectPointSeparatorTest, TheControlPointPrecedesAllOtherMarkers) {
  point.AddMarkedPoint(&subPixelMark);
  point.SetTargetCode(5, 1);
  point.SetSecondState(1);
  point.SetControlPoint(1);
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  EXPECT_EQ(markerIndex(), tarn::gSymbols.controlPoint);
}

TEST_F(TarnOIObjectPointSeparatorTest, AnInactiveControlPointIsMarkedAsOneWhenThePreferenceSaysSo) {
  point.SetControlPoint(1, 0);
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  EXPECT_EQ(markerIndex(), tarn::gSymbols.point);
  preferences.Set("ShowOnlyActive", "0", "Control");
  node->UpdateMarkerSet(1);
  EXPECT_EQ(markerIndex(), tarn::gSymbols.controlPoint);
}

TEST_F(TarnOIObjectPointSeparatorTest, EachMarkerUpdateReadsThePreferenceAnew) {
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  EXPECT_THAT(preferences.takeReads(), ElementsAre(showOnlyActive));
  node->UpdateMarkerSet(1);
  EXPECT_THAT(preferences.takeReads(), ElementsAre(showOnlyActive));
  node->UpdateMarkerSet(0);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIObjectPointSeparatorTest, TheFiveMarkersDiffer) {
  const tarn::DisplayBitmaps& symbols = tarn::gSymbols;
  const std::set<int> different{symbols.controlPoint, symbols.secondState, symbols.codedTarget,
                                symbols.subPixel, symbols.point};
  EXPECT_EQ(different.size(), 5U);
}

// --- Colour

TEST_F(TarnOIObjectPointSeparatorTest, AFirstColourSetsAmbientAndDiffuse) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  node->SetObjectPoint(&point, &dictionary, 0, 1);
  const SbColor expected(10.0F / 255.0F, 20.0F / 255.0F, 30.0F / 255.0F);
  EXPECT_TRUE(node->rgbMaterial->diffuseColor[0].equals(expected, 1e-14F));
  EXPECT_TRUE(node->rgbMaterial->ambientColor[0].equals(expected, 1e-14F));
  EXPECT_FALSE(node->rgbMaterial->diffuseColor.isIgnored());
  EXPECT_FALSE(node->rgbMaterial->ambientColor.isIgnored());
}

TEST_F(TarnOIObjectPointSeparatorTest, ALaterColourLeavesTheAmbientPartAlone) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  node->SetObjectPoint(&point, &dictionary, 0, 1);
  const SoNode* material = node->getChild(0);
  const SbColor first = node->rgbMaterial->ambientColor[0];
  point.SetRGBTextureColor(tarn::Colour(200, 100, 50));
  node->UpdateRGBColor(1);
  EXPECT_EQ(node->getChild(0), material);
  EXPECT_EQ(node->rgbMaterial->ambientColor[0], first);
  EXPECT_TRUE(node->rgbMaterial->diffuseColor[0].equals(
      SbColor(200.0F / 255.0F, 100.0F / 255.0F, 50.0F / 255.0F), 1e-14F));
}

TEST_F(TarnOIObjectPointSeparatorTest, SwitchingTheColourOffRemovesTheMaterial) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  node->SetObjectPoint(&point, &dictionary, 0, 1);
  node->UpdateRGBColor(0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->rgbMaterial);
  node->UpdateRGBColor(0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, APointThatLostItsColourLosesTheMaterial) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  node->SetObjectPoint(&point, &dictionary, 0, 1);
  tarn::ObjectPoint colourless;
  colourless.SetApproximation(tarn::Point3DRandom(position));
  node->SetObjectPoint(&colourless, &dictionary, 0, 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  node.reset();
}

TEST_F(TarnOIObjectPointSeparatorTest, AColourSwitchedOnLaterGoesAfterTheMaterialsPresent) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  auto highlight = makeNode<SoMaterial>();
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->Highlight(highlight.get(), 1);
  node->UpdateRGBColor(1);
  EXPECT_THAT(children(*node),
              ElementsAre(highlight.get(), node->rgbMaterial.get(), &coordinate(), &shape()));
}

// --- Label text: every row of the table

namespace {
struct LabelCase {
  const char* expected;
  int showNumber;
  int markT;
  bool tState;
  bool control;
  bool linked;
  bool named;
  bool coded;
  friend void PrintTo(const LabelCase& c, std::ostream* out) {
    *out << '"' << c.expected << "\" for showNumber " << c.showNumber << " markT " << c.markT
         << " tState " << c.tState << " control " << c.control << " linked " << c.linked
         << " named " << c.named << " coded " << c.coded;
  }
};
}  // namespace

class ObjectPointLabelTest : public TarnTest, public ::testing::WithParamInterface<LabelCase> {};

TEST_P(ObjectPointLabelTest, HasTheText) {
  const LabelCase& c = GetParam();
  tarn::ImportedPoint target;
  target.SetName("K7");
  tarn::ObjectPoint point;
  point.SetNumber(12);
  point.SetTState(c.tState);
  point.SetControlPoint(c.control);
  if (c.linked) point.SetLinkedImportedPoint(&target);
  if (c.named) point.SetUserName("A");
  if (c.coded) point.SetTargetCode(5, 1);
  EXPECT_STREQ(TarnOIObjectPointSeparator::GetTextLable(c.showNumber, c.markT, &point).text(),
               c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    EveryRow, ObjectPointLabelTest,
    ::testing::Values(
        // With the T state, without the number.
        LabelCase{"T", 0, 1, true, false, false, false, false},
        LabelCase{"T", 0, 1, true, true, true, true, true},
        // With the T state and the number, no control point.
        LabelCase{"T 12:A", 1, 1, true, false, false, true, false},
        LabelCase{"T [12]:A", 1, 1, true, false, false, true, true},
        LabelCase{"T [12]", 1, 1, true, false, false, false, true},
        LabelCase{"T 12", 1, 1, true, false, false, false, false},
        LabelCase{"T 12:A", 1, 1, true, false, true, true, false},
        // With the T state and the number, control point.
        LabelCase{"T 12:A: (cpm:K7)", 1, 1, true, true, true, true, false},
        LabelCase{"T [12]:A: (cpm:K7)", 1, 1, true, true, true, true, true},
        LabelCase{"T 12 (cpm:K7)", 1, 1, true, true, true, false, false},
        LabelCase{"T [12] (cpm:K7)", 1, 1, true, true, true, false, true},
        // ... and none linked.
        LabelCase{"T 12:A: (cpm:)", 1, 1, true, true, false, true, false},
        LabelCase{"T [12] (cpm:)", 1, 1, true, true, false, false, true},
        // Neither T nor number.
        LabelCase{"", 0, 0, true, true, true, true, true},
        LabelCase{"", 0, 1, false, true, true, true, true},
        // Control point with a link.
        LabelCase{"12:A (cpm:K7)", 1, 0, false, true, true, true, false},
        LabelCase{"[12]:A (cpm:K7)", 1, 0, false, true, true, true, true},
        LabelCase{"12 (cpm:K7)", 1, 0, false, true, true, false, false},
        LabelCase{"[12] (cpm:K7)", 1, 0, false, true, true, false, true},
        // The T state counts only when T is to be marked, and the mark only in the T state.
        LabelCase{"12:A (cpm:K7)", 1, 0, true, true, true, true, false},
        LabelCase{"12:A (cpm:K7)", 1, 1, false, true, true, true, false},
        // All others: no control point, or none linked.
        LabelCase{"12:A", 1, 0, false, false, false, true, false},
        LabelCase{"[12]:A", 1, 0, false, false, false, true, true},
        LabelCase{"[12]", 1, 0, false, false, false, false, true},
        LabelCase{"12", 1, 0, false, false, false, false, false},
        LabelCase{"12:A", 1, 0, false, true, false, true, false},
        LabelCase{"[12]", 1, 0, false, true, false, false, true},
        LabelCase{"12:A", 1, 0, false, false, true, true, false}));

TEST_F(TarnOIObjectPointSeparatorTest, AnEmptyUserNameCountsAsNone) {
  point.SetUserName("");
  EXPECT_STREQ(TarnOIObjectPointSeparator::GetTextLable(1, 0, &point).text(), "12");
}

TEST_F(TarnOIObjectPointSeparatorTest, TheUserNameIsLeftOutWhenThePreferenceSaysSo) {
  point.SetUserName("A");
  preferences.Set("ShowUserNameInIDs", "0");
  EXPECT_STREQ(TarnOIObjectPointSeparator::GetTextLable(1, 0, &point).text(), "12");
}

TEST_F(TarnOIObjectPointSeparatorTest, AnInactiveControlPointIsNamedWhenThePreferenceSaysSo) {
  point.SetControlPoint(1, 0);
  point.SetLinkedImportedPoint(&target);
  EXPECT_STREQ(TarnOIObjectPointSeparator::GetTextLable(1, 0, &point).text(), "12");
  preferences.Set("ShowOnlyActive", "0", "Control");
  EXPECT_STREQ(TarnOIObjectPointSeparator::GetTextLable(1, 0, &point).text(), "12 (cpm:K7)");
}

TEST_F(TarnOIObjectPointSeparatorTest, EachLabelReadsThePreferencesAnew) {
  for (int i = 0; i < 2; ++i) {
    TarnOIObjectPointSeparator::GetTextLable(1, 0, &point);
    EXPECT_THAT(preferences.takeReads(), UnorderedElementsAre(showUserName, showOnlyActive));
  }
}

TEST_F(TarnOIObjectPointSeparatorTest, ANameWithFormatCharactersStandsAsItIs) {
  point.SetUserName("50%s%n");
  EXPECT_STREQ(TarnOIObjectPointSeparator::GetTextLable(1, 0, &point).text(), "12:50%s%n");
}

TEST_F(TarnOIObjectPointSeparatorTest, LargeAndNegativeNumbersAreWrittenInFull) {
  point.SetNumber(12345678901L);
  EXPECT_STREQ(TarnOIObjectPointSeparator::GetTextLable(1, 0, &point).text(), "12345678901");
  point.SetNumber(-3);
  EXPECT_STREQ(TarnOIObjectPointSeparator::GetTextLable(1, 0, &point).text(), "-3");
}

TEST_F(TarnOIObjectPointSeparatorTest, ANullPointHasNoLabel) {
  EXPECT_STREQ(TarnOIObjectPointSeparator::GetTextLable(1, 1, nullptr).text(), "");
}

// --- Label nodes

TEST_F(TarnOIObjectPointSeparatorTest, ALabelIsAppendedBehindItsTransform) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->UpdateTextLable(1, 0);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Coordinate3", "PointSet", "Transform", "TarnOIText2"));
  EXPECT_EQ(trans().scaleFactor.getValue(), SbVec3f(5, 1, 1));
  EXPECT_EQ(trans().translation.getValue(), shownPosition);
  ASSERT_EQ(textLable().string.getNum(), 1);
  EXPECT_EQ(textLable().string[0], "12");
}

TEST_F(TarnOIObjectPointSeparatorTest, ALabelThatChangesKeepsItsNodes) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->UpdateTextLable(1, 0);
  const auto before = children(*node);
  trans().scaleFactor.setValue(7, 7, 7);
  point.SetTState(1);
  point.SetApproximation(tarn::Point3DRandom({11.5, -18.25, 33.125}));
  node->UpdateTextLable(0, 1);
  EXPECT_EQ(children(*node), before);
  EXPECT_EQ(textLable().string[0], "T");
  EXPECT_EQ(trans().translation.getValue(), SbVec3f(1, 3, -2));
  EXPECT_EQ(trans().scaleFactor.getValue(), SbVec3f(7, 7, 7)) << "set on first use only";
}

TEST_F(TarnOIObjectPointSeparatorTest, AnEmptyLabelTakesBothNodesOutAndTheNextMakesNewOnes) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->UpdateTextLable(1, 0);
  const NodeRef<TarnOIText2> former(&textLable());
  node->UpdateTextLable(0, 0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(former->getRefCount(), 1) << "the node keeps it no longer";
  node->UpdateTextLable(0, 0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  node->UpdateTextLable(1, 0);
  EXPECT_NE(&textLable(), former.get());
}

TEST_F(TarnOIObjectPointSeparatorTest, ALabelWithoutItsTransformIsReportedAndItsTextSet) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->UpdateTextLable(1, 0);
  node->removeChild(&trans());
  const NodeRef<SoGroup> copy(static_cast<SoGroup*>(node->copy()));
  point.SetNumber(13);
  static_cast<TarnOIObjectPointSeparator*>(copy.get())->UpdateTextLable(1, 0);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("trans", className)));
  EXPECT_EQ(childOf<TarnOIText2>(*copy).string[0], "13");
}

TEST_F(TarnOIObjectPointSeparatorTest, AnUnboundNodeGetsNoLabel) {
  node->UpdateTextLable(1, 1);
  EXPECT_EQ(node->getNumChildren(), 0);
}

// --- Error ellipsoid

TEST_F(TarnOIObjectPointSeparatorTest, TheEllipsoidGoesAfterTheLeadingMaterials) {
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  auto first = makeNode<SoMaterial>();
  auto second = makeNode<TarnOIMaterialWithPriority>();
  node->Highlight(first.get(), 1);
  node->Highlight(second.get(), 1);
  node->ShowErrorEllipsoid(1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "TarnOIMaterialWithPriority", "Separator",
                                             "Coordinate3", "MarkerSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, TheEllipsoidIsAppendedWhereAllChildrenAreMaterials) {
  node->SetTarnObject(&point, &dictionary);
  auto material = makeNode<SoMaterial>();
  node->addChild(material.get());
  node->ShowErrorEllipsoid(1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Separator"));
}

TEST_F(TarnOIObjectPointSeparatorTest, TheEllipsoidHoldsATransformAndASphere) {
  preferences.Set("ExagerationSphereSize", "2.5");
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  const auto& sphereSeparator = static_cast<const SoSeparator&>(*node->getChild(0));
  EXPECT_THAT(childTypes(sphereSeparator), ElementsAre("Transform", "Sphere"));
  EXPECT_EQ(static_cast<SoSphere*>(sphereSeparator.getChild(1))->radius.getValue(), 2.5F);
  EXPECT_EQ(sphereSeparator.getChild(0), node->sphereTransform.get());
}

TEST_F(TarnOIObjectPointSeparatorTest, TheSphereSizeIsReadWhenTheEllipsoidIsMade) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
  node->ShowErrorEllipsoid(1);
  EXPECT_THAT(preferences.takeReads(), ElementsAre(sphereSize));
  node->ShowErrorEllipsoid(0);
  node->ShowErrorEllipsoid(1);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIObjectPointSeparatorTest, AHiddenEllipsoidIsKeptAndShownAgain) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  const SoNode* ellipsoid = node->getChild(0);
  node->ShowErrorEllipsoid(1);
  EXPECT_EQ(node->getNumChildren(), 3) << "shown twice, inserted once";
  node->ShowErrorEllipsoid(0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  node->ShowErrorEllipsoid(0);
  node->ShowErrorEllipsoid(1);
  EXPECT_EQ(node->getChild(0), ellipsoid);
}

TEST_F(TarnOIObjectPointSeparatorTest, TheNodeHoldsAReferenceOfItsOwnOnTheEllipsoid) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  const NodeRef<SoSeparator> ellipsoid = node->sphereSeparator;
  EXPECT_EQ(ellipsoid->getRefCount(), 3);  // the node's, the child list's and this test's
  node->ShowErrorEllipsoid(0);
  EXPECT_EQ(ellipsoid->getRefCount(), 2);
  node.reset();
  EXPECT_EQ(ellipsoid->getRefCount(), 1);
}

TEST_F(TarnOIObjectPointSeparatorTest, HidingAnEllipsoidNeverShownDoesNothing) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->sphereSeparator);
}

TEST_F(TarnOIObjectPointSeparatorTest, APointOfASurfaceShowsNoEllipsoid) {
  tarn::SurfacePoint surfacePoint;
  surfacePoint.SetApproximation(tarn::Point3DRandom(position));
  node->SetObjectPoint(&surfacePoint, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->sphereSeparator);
  node.reset();
}

TEST_F(TarnOIObjectPointSeparatorTest, APointOfASurfaceDoesNotHideOneEither) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  tarn::SurfacePoint surfacePoint;
  surfacePoint.SetApproximation(tarn::Point3DRandom(position));
  node->SetObjectPoint(&surfacePoint, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Separator", "Coordinate3", "PointSet"));
  node.reset();
}

TEST_F(TarnOIObjectPointSeparatorTest, ShowingTheEllipsoidOfAnUnboundNodeIsReported) {
  node->ShowErrorEllipsoid(1);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnObject", className)));
  node->ShowErrorEllipsoid(0);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnObject", className)));
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(TarnOIObjectPointSeparatorTest, MakingTheEllipsoidTwiceIsReported) {
  node->CreateSphereSeparator();
  EXPECT_THAT(takeAssertions(), IsEmpty());
  node->CreateSphereSeparator();
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("!sphereSeparator", className)));
}

TEST_F(TarnOIObjectPointSeparatorTest, TheScaleDoesNothingBeforeTheEllipsoidIsMade) {
  setCovariance(1, 4, 9);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->SetErrorEllipsoidScale(2.0F);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->sphereTransform);
}

TEST_F(TarnOIObjectPointSeparatorTest, AxesOfTheSphereGoOntoTheAxesOfTheCovariance) {
  // Eigenvalues in ascending order: along y 1, along z 4, along x 9 of the model.
  setCovariance(9, 1, 4);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetErrorEllipsoidScale(10.0F);
  const SbMatrix matrix = matrixOf(*node->sphereTransform);
  const auto halfAxis = [&matrix](const SbVec3f& direction) {
    SbVec3f result;
    matrix.multDirMatrix(direction, result);
    for (int i = 0; i < 3; ++i) result[i] = std::abs(result[i]);  // an axis has no sign
    return result;
  };
  // The viewer's x, y, z are the model's x, z, -y: sphere axes 1, 3, 2.
  EXPECT_TRUE(halfAxis({1, 0, 0}).equals(SbVec3f(0, 0, 10), 1e-10F));
  EXPECT_TRUE(halfAxis({0, 1, 0}).equals(SbVec3f(30, 0, 0), 1e-10F));
  EXPECT_TRUE(halfAxis({0, 0, 1}).equals(SbVec3f(0, 20, 0), 1e-10F));
}

TEST_F(TarnOIObjectPointSeparatorTest, TheEllipsoidIsThatOfTheCovarianceInTheViewerFrame) {
  const double c[3][3] = {{4.0, 1.5, -0.5}, {1.5, 3.0, 0.75}, {-0.5, 0.75, 2.0}};
  setCovariance(c[0][0], c[1][1], c[2][2], c[0][1], c[0][2], c[1][2]);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  const double scale = 3.0;
  node->SetErrorEllipsoidScale(static_cast<float>(scale));
  const SbMatrix matrix = matrixOf(*node->sphereTransform);
  // The unit sphere's own covariance is the identity: through a linear map L of rows it
  // becomes L transposed times L. Model axis and sign of each viewer axis: x, z, -y.
  const int axis[3] = {0, 2, 1};
  const double sign[3] = {1, 1, -1};
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      double mapped = 0.0;
      for (int k = 0; k < 3; ++k) {
        mapped += static_cast<double>(matrix[k][i]) * static_cast<double>(matrix[k][j]);
      }
      const double expected = scale * scale * sign[i] * sign[j] * c[axis[i]][axis[j]];
      EXPECT_NEAR(mapped, expected, 1e-3) << i << ", " << j;  // float, products of about 36
    }
  }
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(matrix[3][i], shownPosition[i], 1e-5F);
}

TEST_F(TarnOIObjectPointSeparatorTest, TheEllipsoidsPlaceIsNarrowedBeforeTheOffsetIsTakenOff) {
  tarn::gThreeDViewOffset = {4512345.0, 512345.0, 345.0};
  const tarn::Point3DDouble far{4512345.123, 512346.456, 347.789};
  point.SetApproximation(tarn::Point3DRandom(far, 1, 1, 1, 0, 0, 0));
  point.SetProcessed(1);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetErrorEllipsoidScale(1.0F);
  const SbVec3f place = node->sphereTransform->translation.getValue();
  // Floats near 4512345 are 0.5 apart, near 512346 1/32.
  EXPECT_FLOAT_EQ(place[0], 0.0F);
  EXPECT_FLOAT_EQ(place[1], 2.789001F);
  EXPECT_FLOAT_EQ(place[2], -1.46875F);
  EXPECT_FLOAT_EQ(coordinate().point[0][0], 0.123F) << "unlike the point's";
}

TEST_F(TarnOIObjectPointSeparatorTest, AFlatCovarianceGivesAFlatEllipsoidOfFiniteNumbers) {
  setCovariance(9, 0, 4);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetErrorEllipsoidScale(1.0F);
  const SbMatrix matrix = matrixOf(*node->sphereTransform);
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) EXPECT_TRUE(std::isfinite(matrix[i][j])) << i << ", " << j;
  }
  EXPECT_EQ(node->getNumChildren(), 3);
}

TEST_F(TarnOIObjectPointSeparatorTest, TheScaleDoesNotShowAHiddenEllipsoid) {
  setCovariance(1, 4, 9);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->ShowErrorEllipsoid(0);
  node->SetErrorEllipsoidScale(2.0F);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FLOAT_EQ(node->sphereTransform->translation.getValue()[0], shownPosition[0]);
}

TEST_F(TarnOIObjectPointSeparatorTest, APointNeitherProcessedNorControlNorFrozenLosesItsEllipsoid) {
  setCovariance(1, 4, 9);
  point.SetProcessed(0);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetErrorEllipsoidScale(2.0F);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, AControlPointKeepsItsEllipsoid) {
  setCovariance(1, 4, 9);
  point.SetProcessed(0);
  point.SetControlPoint(1);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetErrorEllipsoidScale(2.0F);
  EXPECT_EQ(node->getNumChildren(), 3);
}

TEST_F(TarnOIObjectPointSeparatorTest, AnInactiveControlPointLosesItsEllipsoidWhateverIsPreferred) {
  preferences.Set("ShowOnlyActive", "0", "Control");
  setCovariance(1, 4, 9);
  point.SetProcessed(0);
  point.SetControlPoint(1, 0);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  preferences.takeReads();
  node->SetErrorEllipsoidScale(2.0F);
  EXPECT_EQ(node->getNumChildren(), 2);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIObjectPointSeparatorTest, AFrozenPointKeepsItsEllipsoid) {
  setCovariance(1, 4, 9);
  point.SetProcessed(0);
  point.SetFrozen(1);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetErrorEllipsoidScale(2.0F);
  EXPECT_EQ(node->getNumChildren(), 3);
}

TEST_F(TarnOIObjectPointSeparatorTest, UnknownVariancesTakeTheEllipsoidOut) {
  point.SetProcessed(1);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetErrorEllipsoidScale(2.0F);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, OneUnknownVarianceOfThreeTakesTheEllipsoidOut) {
  // Answers from a model of its own, as an application may.
  struct PartlyKnown : tarn::ObjectPoint {
    int unknown = 0;  // 1, 2, 3: x, y, z
    int GetApproximation(tarn::Point3DRandom& result) const override {
      const tarn::RandomVariable x{1.5, 1.0, unknown == 1};
      const tarn::RandomVariable y{2.25, 4.0, unknown == 2};
      const tarn::RandomVariable z{-3.75, 9.0, unknown == 3};
      result = tarn::Point3DRandom(x, y, z, 0.0, 0.0, 0.0);
      return 1;
    }
  } partlyKnown;
  partlyKnown.SetProcessed(1);
  node->SetObjectPoint(&partlyKnown, &dictionary, 0, 0);
  for (int unknown = 0; unknown <= 3; ++unknown) {
    partlyKnown.unknown = unknown;
    node->ShowErrorEllipsoid(1);
    node->SetErrorEllipsoidScale(2.0F);
    EXPECT_EQ(node->getNumChildren(), unknown ? 2 : 3) << "unknown: " << unknown;
  }
  node.reset();
}

TEST_F(TarnOIObjectPointSeparatorTest, ACovarianceThatIsNoneTakesTheEllipsoidOut) {
  setCovariance(1, 1, 1, 5);  // a correlation of five
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetErrorEllipsoidScale(2.0F);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, AnUnboundNodeLosesItsEllipsoidByTheScale) {
  setCovariance(1, 4, 9);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetObjectPoint(nullptr, &dictionary, 0, 0);
  node->SetErrorEllipsoidScale(2.0F);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

// --- Copies

TEST_F(TarnOIObjectPointSeparatorTest, ACopyShowsTheSamePointAndTakesTheEntryOver) {
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  NodeRef<TarnOIObjectPointSeparator> copy(static_cast<TarnOIObjectPointSeparator*>(node->copy()));
  EXPECT_EQ(copy->GetTarnObject(), &point);
  EXPECT_EQ(dictionary.atKey(&point), static_cast<SoNode*>(copy.get()));
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "MarkerSet"));
  SoCoordinate3* coords = nullptr;
  copy->GetPointSet(&coords, nullptr);
  EXPECT_EQ(coords, copy->getChild(0));
  EXPECT_EQ(coords->point[0], shownPosition);
}

TEST_F(TarnOIObjectPointSeparatorTest, ACopyIsUpdatedByItselfAndLeavesTheOriginalAlone) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  setCovariance(1, 4, 9);
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  node->UpdateTextLable(1, 0);
  node->ShowErrorEllipsoid(1);
  const auto before = children(*node);
  NodeRef<TarnOIObjectPointSeparator> copy(static_cast<TarnOIObjectPointSeparator*>(node->copy()));
  copy->UpdateMarkerSet(0);
  copy->UpdateRGBColor(0);
  copy->ShowErrorEllipsoid(0);
  copy->UpdateTextLable(0, 0);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(children(*node), before);
}

TEST_F(TarnOIObjectPointSeparatorTest, ACopyOfANodeInAParentIsUnboundAndCanBeBound) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(node.get());
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  const NodeRef<SoSeparator> parentCopy(static_cast<SoSeparator*>(parent->copy()));
  auto* copy = static_cast<TarnOIObjectPointSeparator*>(parentCopy->getChild(0));
  EXPECT_EQ(copy->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.atKey(&point), static_cast<SoNode*>(node.get()));
  copy->SetObjectPoint(&point, &dictionary, 0, 0);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, CopyConstructionCopiesTheMembersAndMakesNoEntry) {
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  node->ShowErrorEllipsoid(1);
  dictionary.takeChanges();
  const NodeRef<OpenNode> copy = makeNode<OpenNode>(*node);
  EXPECT_EQ(copy->GetTarnObject(), &point);
  EXPECT_EQ(copy->getNumChildren(), 0);
  EXPECT_EQ(copy->sphereSeparator.get(), node->sphereSeparator.get());
  SoCoordinate3* coords = nullptr;
  copy->GetPointSet(&coords, nullptr);
  EXPECT_EQ(coords, &coordinate());
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}

TEST_F(TarnOIObjectPointSeparatorTest, AssignmentCopiesTheMembersAndMakesNoEntry) {
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  dictionary.takeChanges();
  const NodeRef<OpenNode> other = makeNode<OpenNode>();
  *other = *node;
  EXPECT_EQ(other->GetTarnObject(), &point);
  EXPECT_EQ(other->getNumChildren(), 0);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}

// --- Finding

TEST_F(TarnOIObjectPointSeparatorTest, ASearchForThePointFindsItsNode) {
  tarn::ObjectPoint other;
  auto root = makeNode<SoSeparator>();
  root->addChild(new TarnOIObjectPointSeparator);
  root->addChild(node.get());
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  TarnOISearchAction search;
  search.SetTarnObject(&point);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), node.get());
  search.reset();
  search.SetTarnObject(&other);
  search.apply(root.get());
  EXPECT_EQ(search.getPath(), nullptr);
}

TEST_F(TarnOIObjectPointSeparatorTest, ASearchSeesAMaterialThatWasAddedAfterAnEarlierSearch) {
  tarn::Material hostMaterial;
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  const auto found = [&] {
    TarnOISearchAction search;
    search.SetTarnObject(&hostMaterial);
    search.apply(node.get());
    return search.getPath() != nullptr;
  };
  EXPECT_FALSE(found());
  auto material = makeNode<TarnOIMaterial>();
  material->SetMaterial(&hostMaterial);
  node->enableNotify(FALSE);  // as a host does around many changes
  node->Highlight(material.get(), 1);
  node->enableNotify(TRUE);
  EXPECT_TRUE(found());
  node->Highlight(material.get(), 0);
  EXPECT_FALSE(found());
}
