#include "nodes/lines/TarnOIGroundPlaneSeparator.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoTransparencyType.h>

#include "host/model/Project.h"
#include "nodes/framework/TarnOIDrawStyle.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <cstring>

using tarn::Point3DDouble;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

constexpr const char* className = "TarnOIGroundPlaneSeparator";
const PreferenceRead transparencyType{PreferenceRead::eInt, "GroundPlaneTransparencyType", "5",
                                      "Colors"};
const PreferenceRead colour{PreferenceRead::eColour, "GroundPlaneColor", "000200000", "Colors"};
const PreferenceRead transparency{PreferenceRead::eDouble, "GroundPlaneTransparency", "0.5",
                                  "Colors"};
const PreferenceRead multiplier{PreferenceRead::eDouble, "GroundPlaneMultiplier", "2",
                                "GroundPlane"};

// The node with its members open.
struct OpenNode : TarnOIGroundPlaneSeparator {
  using TarnOIGroundPlaneSeparator::coords;
  using TarnOIGroundPlaneSeparator::CreateChildren;
  using TarnOIGroundPlaneSeparator::drawStyle;
  using TarnOIGroundPlaneSeparator::project;
  using TarnOIGroundPlaneSeparator::root;
};

std::vector<SbVec3f> cornersOf(const SoGroup& node) { return coordinates(node, 3); }

}  // namespace

class TarnOIGroundPlaneSeparatorTest : public TarnTest {
protected:
  void addPoint(const Point3DDouble& place) {
    tarn::ObjectPoint& point = project.AddObjectPoint();
    point.SetApproximation(tarn::Point3DRandom(place));
    point.SetProcessed(1);
  }
  // 10 wide and 20 deep.
  void fill() {
    addPoint({0, 100, 5});
    addPoint({10, 120, 35});
  }
  void update() {
    node->SetRoot(root.get(), &project);
    node->UpdatePosition();
  }
  SbBox3f box() const {
    SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
    action.apply(node.get());
    return action.getBoundingBox();
  }

  tarn::Project project;
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  NodeRef<OpenNode> node = makeNode<OpenNode>();
};

// --- Building

TEST_F(TarnOIGroundPlaneSeparatorTest, AFreshNodeHasNeitherChildrenNorMembers) {
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_FALSE(node->coords);
  EXPECT_FALSE(node->drawStyle);
  EXPECT_EQ(node->root, nullptr);
  EXPECT_EQ(node->project, nullptr);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, SettingTheRootBuildsNothing) {
  node->SetRoot(root.get(), &project);
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(node->root, root.get());
  EXPECT_EQ(node->project, &project);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, WithoutARootAnUpdateDoesNothing) {
  node->SetRoot(nullptr, &project);
  node->UpdatePosition();
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIGroundPlaneSeparatorTest, WithoutAProjectTheChildrenAreBuiltAndThePointsLeftUnset) {
  node->SetRoot(root.get(), nullptr);
  node->UpdatePosition();
  EXPECT_THAT(childTypes(*node), ElementsAre("TransparencyType", "DrawStyle", "Material",
                                             "Coordinate3", "IndexedFaceSet"));
  EXPECT_THAT(cornersOf(*node), AllOf(SizeIs(4), Each(SbVec3f(0, 0, 0))));
  EXPECT_THAT(preferences.takeReads(), ElementsAre(transparencyType, colour, transparency));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, TheChildrenStandInTheirOrder) {
  fill();
  update();
  EXPECT_THAT(childTypes(*node), ElementsAre("TransparencyType", "DrawStyle", "Material",
                                             "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(node->getChild(1), node->drawStyle.get());
  EXPECT_EQ(node->getChild(3), node->coords.get());
  EXPECT_EQ(node->drawStyle->style.getValue(), SoDrawStyle::FILLED);
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(transparencyType, colour, transparency, multiplier));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, IsHalfTransparentGreenByDefault) {
  update();
  EXPECT_EQ(static_cast<SoTransparencyType*>(node->getChild(0))->value.getValue(),
            SoTransparencyType::DELAYED_BLEND);
  const auto* material = static_cast<SoMaterial*>(node->getChild(2));
  const SbColor green(0, static_cast<float>(200 / 255.0), 0);
  EXPECT_EQ(material->diffuseColor[0], green);
  EXPECT_EQ(material->ambientColor[0], green);
  EXPECT_EQ(material->transparency[0], 0.5F);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, LooksAsThePreferencesSay) {
  preferences.Set("GroundPlaneTransparencyType", "6", "Colors");
  preferences.Set("GroundPlaneColor", "010020255", "Colors");
  preferences.Set("GroundPlaneTransparency", "0.25", "Colors");
  update();
  EXPECT_EQ(static_cast<SoTransparencyType*>(node->getChild(0))->value.getValue(),
            SoTransparencyType::SORTED_OBJECT_BLEND);
  const auto* material = static_cast<SoMaterial*>(node->getChild(2));
  const SbColor blue(static_cast<float>(10 / 255.0), static_cast<float>(20 / 255.0), 1);
  EXPECT_EQ(material->diffuseColor[0], blue);
  EXPECT_EQ(material->ambientColor[0], blue);
  EXPECT_EQ(material->transparency[0], 0.25F);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, TheSecondFaceHasNoEndOfItsOwn) {
  update();
  const auto* faces = static_cast<SoIndexedFaceSet*>(node->getChild(4));
  const std::vector<int32_t> list(faces->coordIndex.getValues(0),
                                  faces->coordIndex.getValues(0) + faces->coordIndex.getNum());
  EXPECT_THAT(list, ElementsAre(0, 1, 2, -1, 2, 3, 0));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, ChildrenMadeTwiceAreReported) {
  node->CreateChildren();
  EXPECT_THAT(takeAssertions(), IsEmpty());
  node->CreateChildren();
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("!coords", className)));
  EXPECT_EQ(node->getNumChildren(), 10);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, ChildrenThatTheHostDroppedAreReportedAndMadeAnew) {
  fill();
  update();
  const auto corners = cornersOf(*node);
  node->removeAllChildren();
  node->UpdatePosition();
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("!coords", className)));
  EXPECT_THAT(cornersOf(*node), ElementsAreArray(corners));
}

// --- Placing

TEST_F(TarnOIGroundPlaneSeparatorTest, TheMarginIsLargerOnTheGreaterSide) {
  fill();
  project.SetVolumeAboveXY_ZLevel(3);
  update();
  // x from 0..10 to -5..17.5, y from 100..120 to 90..135, less the view offset, z up to y.
  EXPECT_THAT(cornersOf(*node),
              ElementsAre(SbVec3f(-15.5F, -27.125F, -155.25F), SbVec3f(7, -27.125F, -155.25F),
                          SbVec3f(7, -27.125F, -110.25F), SbVec3f(-15.5F, -27.125F, -110.25F)));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, TheMarginFollowsTheMultiplier) {
  fill();
  preferences.Set("GroundPlaneMultiplier", "4", "GroundPlane");
  update();
  const auto corners = cornersOf(*node);
  // 0 - 10 / 4 and 10 + 12.5 / 4; 100 - 20 / 4 and 120 + 25 / 4.
  EXPECT_EQ(corners[3], SbVec3f(-2.5F - 10.5F, -30.125F, -(95 + 20.25F)));
  EXPECT_EQ(corners[1], SbVec3f(13.125F - 10.5F, -30.125F, -(126.25F + 20.25F)));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, TheMultiplierIsNarrowedToFloat) {
  // A tenth is a little more as a float; of a large margin the difference is seen.
  addPoint({0, 0, 0});
  addPoint({1e6, 1e6, 0});
  preferences.Set("GroundPlaneMultiplier", "0.1", "GroundPlane");
  tarn::gThreeDViewOffset = {-1e7, 0, 0};
  update();
  EXPECT_FLOAT_EQ(cornersOf(*node)[3][0],
                  static_cast<float>(1e7 - 1e6 / 0.100000001490116119384765625));
  EXPECT_NEAR(cornersOf(*node)[3][0], 0.149, 0.001);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, TheMarginFollowsThePreferenceAtEachUpdate) {
  fill();
  update();
  preferences.Set("GroundPlaneMultiplier", "4", "GroundPlane");
  preferences.takeReads();
  node->UpdatePosition();
  EXPECT_THAT(preferences.takeReads(), ElementsAre(multiplier));
  EXPECT_EQ(cornersOf(*node)[3][0], -13);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, TheGroundsHeightIsInTheProjectsUnits) {
  fill();
  tarn::Units feet;
  feet.SetUnit("ft");
  project.SetUnits(feet);
  project.SetVolumeAboveXY_ZLevel(100);
  update();
  for (const SbVec3f& corner : cornersOf(*node)) EXPECT_FLOAT_EQ(corner[1], 0.355F);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, AProjectWithoutUnitsCountsInMetres) {
  struct Unitless : tarn::Project {
    const tarn::Units* GetUnits() const override { return nullptr; }
    double GetVolumeAboveXY_ZLevel() const override { return 3; }
  } unitless;
  tarn::ImportedPoint& point = unitless.AddImportedPoint();
  point.SetStoredPosition(tarn::Point3DRandom(Point3DDouble(1, 2, 3)));
  node->SetRoot(root.get(), &unitless);
  node->UpdatePosition();
  EXPECT_EQ(cornersOf(*node)[0], SbVec3f(1 - 10.5F, 3 - 30.125F, -(2 + 20.25F)));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, AsksForTheActiveTransformAndAllThatHasAPosition) {
  struct Recording : tarn::Project {
    mutable std::vector<int> flags;
    mutable tarn::BasicAffine affine;
    tarn::BasicAffine* GetAffineTransform(int active) const override {
      flags.push_back(active);
      return &affine;
    }
    void GetProjectExtents(tarn::Extents& extents, tarn::BasicAffine* through, int withStations,
                           int processedOnly) const override {
      EXPECT_EQ(through, &affine);
      flags.push_back(withStations);
      flags.push_back(processedOnly);
      extents.Add({1, 2, 3});
    }
  } recording;
  node->SetRoot(root.get(), &recording);
  node->UpdatePosition();
  EXPECT_THAT(recording.flags, ElementsAre(1, 1, 1));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, IsLevelInTheProjectsOwnCoordinateSystem) {
  // All three parts: ((2 p) + P) R + Q with a turn of a quarter about x, so that the model's y
  // is the project's z.
  tarn::MatrixDouble turn = tarn::MatrixDouble::Identity(3);
  turn(2, 2) = 0;
  turn(2, 3) = 1;
  turn(3, 2) = -1;
  turn(3, 3) = 0;
  tarn::BasicAffine affine;
  affine.SetScale(2);
  affine.SetTranslation({1, 2, 3}, {10, 20, 30});
  affine.SetRotation(turn);
  ASSERT_TRUE(affine.SetupAffine());
  project.SetAffineTransform(&affine);
  project.SetVolumeAboveXY_ZLevel(4);
  addPoint({0, 0, 0});
  addPoint({5, 6, 7});
  update();

  // In the project's system the points are at (1, -3, 2) + Q and (11, -17, 14) + Q: x from 11 to
  // 21, y from 3 to 17, enlarged to 6..28.5 and -4..27.5. Back: y = -2 z - 3 + 20,
  // z = 2 y + 2 + 30, of the model.
  const auto inModel = [](double x, double y) {
    return Point3DDouble((x - 10 - 1) / 2, (4 - 30 - 2) / 2.0, (20 - y - 3) / 2);
  };
  EXPECT_THAT(cornersOf(*node), ElementsAre(ViewerFrame::fromModel(inModel(6, 27.5)),
                                            ViewerFrame::fromModel(inModel(28.5, 27.5)),
                                            ViewerFrame::fromModel(inModel(28.5, -4)),
                                            ViewerFrame::fromModel(inModel(6, -4))));
  EXPECT_FALSE(affine.IsInverted());
}

TEST_F(TarnOIGroundPlaneSeparatorTest, TheTransformIsInvertedForTheFourCornersOnly) {
  struct Recording : tarn::BasicAffine {
    mutable std::vector<std::string> calls;
    void DoInversion(int inverted) override {
      calls.push_back(inverted ? "inverted" : "restored");
      BasicAffine::DoInversion(inverted);
    }
    void ConvertPoint(Point3DDouble& point) const override {
      calls.emplace_back("point");
      BasicAffine::ConvertPoint(point);
    }
  } affine;
  project.SetAffineTransform(&affine);
  fill();
  update();
  EXPECT_THAT(affine.calls, ElementsAre("point", "point", "inverted", "point", "point", "point",
                                        "point", "restored"));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, AnUpdateWritesThePointsInPlaceAndSignalsOnce) {
  fill();
  update();
  const auto before = children(*node);
  addPoint({40, 100, 5});
  SignalCount signals(node.get());
  node->UpdatePosition();
  EXPECT_EQ(signals.count(), 1);
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  EXPECT_EQ(cornersOf(*node)[1][0], 70 - 10.5F);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, UnderAProjectWithoutPositionsItStaysWhereItIs) {
  fill();
  update();
  const auto before = cornersOf(*node);
  tarn::Project empty;
  node->SetRoot(root.get(), &empty);
  node->UpdatePosition();
  EXPECT_THAT(cornersOf(*node), ElementsAreArray(before));
}

// --- Hiding

TEST_F(TarnOIGroundPlaneSeparatorTest, HidingANodeThatWasNeverShownCreatesNothing) {
  node->SetRoot(root.get(), &project);
  node->Hide(1);
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIGroundPlaneSeparatorTest, ShowingANewNodeCreatesTheChildrenWithUnsetPoints) {
  fill();
  node->SetRoot(root.get(), &project);
  node->Hide(0);
  EXPECT_EQ(node->getNumChildren(), 5);
  EXPECT_EQ(node->drawStyle->style.getValue(), SoDrawStyle::FILLED);
  EXPECT_THAT(cornersOf(*node), AllOf(SizeIs(4), Each(SbVec3f(0, 0, 0))));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, HidingAndShowingChangeTheDrawStyleOnly) {
  fill();
  update();
  const auto before = children(*node);
  const auto corners = cornersOf(*node);
  node->Hide(-1);
  EXPECT_EQ(node->drawStyle->style.getValue(), SoDrawStyle::INVISIBLE);
  node->Hide(0);
  EXPECT_EQ(node->drawStyle->style.getValue(), SoDrawStyle::FILLED);
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  EXPECT_THAT(cornersOf(*node), ElementsAreArray(corners));
}

TEST_F(TarnOIGroundPlaneSeparatorTest, AnUpdateWhileItIsHiddenLeavesItHidden) {
  fill();
  update();
  node->Hide(1);
  node->UpdatePosition();
  EXPECT_EQ(node->drawStyle->style.getValue(), SoDrawStyle::INVISIBLE);
}

// --- Bounding box

TEST_F(TarnOIGroundPlaneSeparatorTest, IsMeasuredWhileItIsShown) {
  EXPECT_TRUE(box().isEmpty());
  fill();
  update();
  EXPECT_EQ(box().getMin(), SbVec3f(-15.5F, -30.125F, -155.25F));
  EXPECT_EQ(box().getMax(), SbVec3f(7, -30.125F, -110.25F));
  node->Hide(1);
  EXPECT_TRUE(box().isEmpty());
  node->Hide(0);
  EXPECT_FALSE(box().isEmpty());
}

TEST_F(TarnOIGroundPlaneSeparatorTest, IsNotMeasuredUnderAnInvisibleDrawStyle) {
  fill();
  update();
  auto* style = new TarnOIDrawStyle;
  style->style.setValue(SoDrawStyle::INVISIBLE);
  root->addChild(style);
  root->addChild(node.get());
  SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
  action.apply(root.get());
  EXPECT_TRUE(action.getBoundingBox().isEmpty());
}

TEST_F(TarnOIGroundPlaneSeparatorTest, ChildrenFromAFileAreLeftAloneAndMeasured) {
  const char* text = "TarnOIGroundPlaneSeparator { Cube { } }";
  SoInput input;
  input.setBuffer(text, std::strlen(text));
  const NodeRef<TarnOIGroundPlaneSeparator> read(
      static_cast<TarnOIGroundPlaneSeparator*>(SoDB::readAll(&input)));
  ASSERT_EQ(read->getTypeId(), TarnOIGroundPlaneSeparator::getClassTypeId());
  fill();
  read->SetRoot(root.get(), &project);
  read->UpdatePosition();
  read->Hide(1);
  EXPECT_THAT(childTypes(*read), ElementsAre("Cube"));
  SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
  action.apply(read.get());
  EXPECT_EQ(action.getBoundingBox().getMax(), SbVec3f(1, 1, 1));
}

// --- Copies

TEST_F(TarnOIGroundPlaneSeparatorTest, ANodeCopyIsPlacedAndHiddenByItself) {
  fill();
  update();
  const auto before = cornersOf(*node);
  const NodeRef<SoNode> copied(node->copy());
  auto& copy = static_cast<TarnOIGroundPlaneSeparator&>(*copied);
  EXPECT_THAT(cornersOf(copy), ElementsAreArray(before));
  addPoint({40, 100, 5});
  copy.UpdatePosition();
  copy.Hide(1);
  EXPECT_EQ(cornersOf(copy)[1][0], 70 - 10.5F);
  EXPECT_EQ(static_cast<SoDrawStyle*>(copy.getChild(1))->style.getValue(), SoDrawStyle::INVISIBLE);
  EXPECT_THAT(cornersOf(*node), ElementsAreArray(before));
  EXPECT_EQ(node->drawStyle->style.getValue(), SoDrawStyle::FILLED);
}

TEST_F(TarnOIGroundPlaneSeparatorTest, CopyConstructionAndAssignmentTakeTheMembersAndNoChild) {
  update();
  const auto expectMembers = [this](const OpenNode& copy) {
    EXPECT_EQ(copy.getNumChildren(), 0);
    EXPECT_EQ(copy.coords.get(), node->coords.get());
    EXPECT_EQ(copy.drawStyle.get(), node->drawStyle.get());
    EXPECT_EQ(copy.root, root.get());
    EXPECT_EQ(copy.project, &project);
  };
  expectMembers(*makeNode<OpenNode>(*node));
  auto assigned = makeNode<OpenNode>();
  *assigned = *node;
  expectMembers(*assigned);
}
