#include "nodes/cameras/TarnOICameraStationSeparator.h"

#include <Inventor/SbRotation.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMatrixTransform.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include "host/model/BasicAffine.h"
#include "tests/nodes/cameras/StationFixture.h"

#include <array>
#include <limits>

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using Read = PreferenceRead;

class TarnOICameraStationSeparatorTest : public StationFixture {
protected:
  static std::vector<std::string> withLeading(std::vector<std::string> leading,
                                              const std::vector<std::string>& rest) {
    leading.insert(leading.end(), rest.begin(), rest.end());
    return leading;
  }

  // A node whose symbol could not be read, which is reported.
  NodeRef<OpenStationSeparator> builtWithoutSymbol(int withImagePlane, int withSymbolToo,
                                                   tarn::Extents* box = nullptr) {
    // A store that answers what no scene can hold.
    struct Unreadable : RecordingPreferences {
      double GetPreference(const char* key, double defaultValue,
                           const char* section) const override {
        return std::string_view(key) == "Lens_diffuse_G"
                   ? std::numeric_limits<double>::quiet_NaN()
                   : RecordingPreferences::GetPreference(key, defaultValue, section);
      }
      using RecordingPreferences::GetPreference;
    } unreadable;
    tarn::gPref = &unreadable;
    auto node = built(withImagePlane, withSymbolToo, box);
    tarn::gPref = &preferences;
    EXPECT_THAT(takeAssertions(),
                ElementsAre(IsAssertion("contents", "TarnOICameraStationSeparator")));
    EXPECT_THAT(takeCoinErrors(), Not(IsEmpty()));
    return node;
  }

  const std::vector<std::string> base = {"Separator", "Complexity", "Translation",
                                         "MatrixTransform", "Scale"};
};

namespace {

constexpr const char* sourceFile = "TarnOICameraStationSeparator";

SbVec3f shown(double x, double y, double z) {
  return SbVec3f(static_cast<float>(x - 10.5), static_cast<float>(z - 30.125),
                 static_cast<float>(-(y + 20.25)));
}

void expectNear(const SbVec3f& found, const SbVec3f& expected, float tolerance) {
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(found[i], expected[i], tolerance) << "component " << i;
}

}  // namespace

// ---- Construction ---------------------------------------------------------------------

TEST_F(TarnOICameraStationSeparatorTest, NewNodeIsUnboundAndHidesItsFrustum) {
  const auto node = makeNode<OpenStationSeparator>();
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_FALSE(node->scaleNode || node->labelText || node->labelTranslation ||
               node->frustumSwitch || node->frustumCoords || node->frustumLines);
  EXPECT_EQ(node->showImagePlane, 0);
  EXPECT_EQ(node->showSymbolWithImage, 0);
  EXPECT_EQ(node->frustumScale, 1.0);
  EXPECT_EQ(node->frustumOnlyWhenSelected, 0);
  EXPECT_EQ(node->isSelectedFlag, 0);
  EXPECT_EQ(node->frustumWhichChild, -1);
}

TEST_F(TarnOICameraStationSeparatorTest, IsRegisteredBelowTheModelBoundSeparator) {
  const SoType type = TarnOICameraStationSeparator::getClassTypeId();
  EXPECT_EQ(type, SoType::fromName("TarnOICameraStationSeparator"));
  EXPECT_EQ(type.getParent(), TarnOISeparator::getClassTypeId());
  const NodeRef<SoNode> instance(static_cast<SoNode*>(type.createInstance()));
  EXPECT_EQ(instance->getTypeId(), type);
}

TEST_F(TarnOICameraStationSeparatorTest, CopiesShareAllMembersAndStayOutOfTheDictionary) {
  auto node = built(1, 1, &extents);
  node->UpdateTextLable(1);
  node->ShowFrustum(1, 1, 2.5, &extents);
  node->IsSelected(1);
  dictionary.takeChanges();

  const auto copy = makeNode<OpenStationSeparator>(*node);
  auto assigned = makeNode<OpenStationSeparator>();
  *assigned = *node;
  for (const auto& other : {copy, assigned}) {
    EXPECT_EQ(other->GetTarnObject(), &station);
    EXPECT_EQ(other->searchDict, &dictionary);
    EXPECT_EQ(other->scaleNode.get(), scale.get());
    EXPECT_EQ(other->showImagePlane, 1);
    EXPECT_EQ(other->showSymbolWithImage, 1);
    EXPECT_EQ(other->labelText.get(), node->labelText.get());
    EXPECT_EQ(other->labelTranslation.get(), node->labelTranslation.get());
    EXPECT_EQ(other->frustumSwitch.get(), node->frustumSwitch.get());
    EXPECT_EQ(other->frustumCoords.get(), node->frustumCoords.get());
    EXPECT_EQ(other->frustumLines.get(), node->frustumLines.get());
    EXPECT_EQ(other->frustumScale, 2.5);
    EXPECT_EQ(other->frustumOnlyWhenSelected, 1);
    EXPECT_EQ(other->isSelectedFlag, 1);
    EXPECT_EQ(other->frustumWhichChild, node->frustumWhichChild);
    EXPECT_EQ(other->getNumChildren(), 0);
  }
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}

TEST_F(TarnOICameraStationSeparatorTest, CopyOutlivesTheNodeWhoseLabelItShares) {
  auto node = built();
  node->UpdateTextLable(1);
  auto copy = makeNode<OpenStationSeparator>(*node);
  node.reset();
  copy->UpdateTextLable(0);
  copy->ShowFrustum(1, 0, 1.0, nullptr);
  EXPECT_FALSE(copy->labelText);
}

TEST_F(TarnOICameraStationSeparatorTest, SceneGraphCopyShowsTheSameAndIsUnbound) {
  auto node = built();
  const NodeRef<SoNode> copied(node->copy());
  auto* copy = static_cast<TarnOICameraStationSeparator*>(copied.get());
  EXPECT_EQ(typesOf(copy), typesOf(node.get()));
  EXPECT_EQ(copy->GetTarnObject(), nullptr);
  copy->SetCameraStation(&station, &dictionary, scale.get(), 0, 0, &extents);
  EXPECT_EQ(copy->getNumChildren(), node->getNumChildren());
}

TEST_F(TarnOICameraStationSeparatorTest, SceneGraphCopyHasALabelAndAFrustumOfItsOwn) {
  auto node = built();
  node->UpdateTextLable(1);
  const NodeRef<SoNode> copied(node->copy());
  auto* copy = static_cast<TarnOICameraStationSeparator*>(copied.get());
  copy->SetCameraStation(&station, &dictionary, scale.get(), 0, 0, &extents);
  const int children = copy->getNumChildren();
  copy->UpdateTextLable(1);
  EXPECT_EQ(copy->getNumChildren(), children) << "a second label";
  copy->UpdateTextLable(0);
  EXPECT_EQ(copy->getNumChildren(), children - 2);
  EXPECT_EQ(node->getNumChildren(), children) << "the label of the original";

  const auto switchOf = [](TarnOICameraStationSeparator* separator) {
    return static_cast<SoSwitch*>(static_cast<SoGroup*>(separator->getChild(0))->getChild(0));
  };
  copy->ShowFrustum(1, 0, 1.0, &extents);
  EXPECT_EQ(switchOf(copy)->whichChild.getValue(), SO_SWITCH_ALL);
  EXPECT_EQ(switchOf(node.get())->whichChild.getValue(), SO_SWITCH_NONE);
}

TEST_F(TarnOICameraStationSeparatorTest, LabelComesBackAfterTheChildrenWereDropped) {
  auto node = built();
  node->UpdateTextLable(1);
  node->removeAllChildren();
  node->SetCameraStation(&station, &dictionary, scale.get(), 0, 0, &extents);
  const int children = node->getNumChildren();
  node->UpdateTextLable(1);
  EXPECT_EQ(node->getNumChildren(), children + 2);
}

// ---- Building -------------------------------------------------------------------------

TEST_F(TarnOICameraStationSeparatorTest, BindsTheStation) {
  auto node = built();
  EXPECT_EQ(node->GetTarnObject(), &station);
  EXPECT_EQ(dictionary.atKey(&station), node.get());
}

TEST_F(TarnOICameraStationSeparatorTest, FirstChildrenAreFrustumComplexityPositionRotationScale) {
  auto node = built();
  std::vector<std::string> first = typesOf(node.get());
  first.resize(5);
  EXPECT_EQ(first, base);
  EXPECT_EQ(node->getChild(4), scale.get());
  EXPECT_EQ(node->scaleNode.get(), scale.get());

  auto* separator = childAs<SoSeparator>(node.get(), 0);
  ASSERT_THAT(typesOf(separator), ElementsAre("Switch"));
  EXPECT_EQ(separator->getChild(0), node->frustumSwitch.get());
  ASSERT_EQ(node->frustumSwitch->getNumChildren(), 2);
  EXPECT_EQ(node->frustumSwitch->getChild(0), node->frustumCoords.get());
  EXPECT_EQ(node->frustumSwitch->getChild(1), node->frustumLines.get());
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_NONE);

  const auto* complexity = childAs<SoComplexity>(node.get(), 1);
  EXPECT_EQ(complexity->value.getValue(), 1.0F);
  EXPECT_EQ(complexity->textureQuality.getValue(), 1.0F);
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumOfANewNodeIsEightSegmentsOfZeroPoints) {
  auto node = built(0, 0, nullptr);
  ASSERT_EQ(node->frustumLines->numVertices.getNum(), 8);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(node->frustumLines->numVertices[i], 2);
  ASSERT_EQ(node->frustumCoords->point.getNum(), 16);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(node->frustumCoords->point[i], SbVec3f(0, 0, 0));
}

TEST_F(TarnOICameraStationSeparatorTest, SymbolAloneFollowsTheScaleWhateverItsFlag) {
  EXPECT_EQ(typesOf(built(0, 0).get()), withLeading(base, detailedSymbolTypes));
  EXPECT_EQ(typesOf(built(0, 1).get()), withLeading(base, detailedSymbolTypes));
}

TEST_F(TarnOICameraStationSeparatorTest, ImagePlaneAloneHasNoSymbol) {
  EXPECT_EQ(typesOf(built(1, 0).get()), withLeading(base, {"Separator", "Separator"}));
}

TEST_F(TarnOICameraStationSeparatorTest, ImagePlaneAndLinePrecedeTheSymbol) {
  std::vector<std::string> expected = withLeading(base, {"Separator", "Separator"});
  EXPECT_EQ(typesOf(built(1, 1).get()), withLeading(expected, detailedSymbolTypes));
}

TEST_F(TarnOICameraStationSeparatorTest, CameraLineIsLeftOutWhenTheStoreSaysSo) {
  preferences.Set("ShowCamsAsLines", "0", viewerSection);
  const std::vector<std::string> expected = withLeading(base, {"Separator"});
  EXPECT_EQ(typesOf(built(1, 0).get()), expected);
  EXPECT_EQ(typesOf(built(1, 1).get()), withLeading(expected, detailedSymbolTypes));
}

TEST_F(TarnOICameraStationSeparatorTest, NullScaleIsLeftOut) {
  scale.reset();
  EXPECT_EQ(built(1, 0)->getNumChildren(), 6);
}

TEST_F(TarnOICameraStationSeparatorTest, NullStationBuildsNothing) {
  auto node = makeNode<OpenStationSeparator>();
  node->SetCameraStation(nullptr, &dictionary, scale.get(), 1, 1, nullptr);
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(dictionary.size(), 0);
  node->SetCameraStation(nullptr, &dictionary, scale.get(), 1, 1, &extents);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnObject", sourceFile)));
}

TEST_F(TarnOICameraStationSeparatorTest, NullDictionaryBindsWithoutEntry) {
  auto node = makeNode<OpenStationSeparator>();
  node->SetCameraStation(&station, nullptr, scale.get(), 0, 0, &extents);
  EXPECT_EQ(node->GetTarnObject(), &station);
  EXPECT_EQ(node->getNumChildren(), 19);
}

TEST_F(TarnOICameraStationSeparatorTest, StationWithoutCameraIsBuiltAllTheSame) {
  station.SetCamera(nullptr);
  auto node = built(1, 1, &extents);
  EXPECT_EQ(node->getNumChildren(), 21);
  const auto* plane = childAs<SoSeparator>(node.get(), 5);
  EXPECT_EQ(childAs<SoTranslation>(plane, 0)->translation.getValue(), SbVec3f(0, 0, 0));
}

// ---- Symbols --------------------------------------------------------------------------

TEST_F(TarnOICameraStationSeparatorTest, BoxSymbolStandsForAnOrientedStationOnRequest) {
  preferences.Set("UseNewSymbol", "0", "TarnOICamera");
  auto node = built();
  EXPECT_EQ(typesOf(node.get()), withLeading(base, boxSymbolTypes));
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eBool, "UseNewSymbol", "1", "TarnOICamera"}));
  EXPECT_EQ(g_cs_node, nullptr);
}

TEST_F(TarnOICameraStationSeparatorTest, SphereSymbolStandsForAStationThatIsNotOriented) {
  station.SetOriented(0);
  auto node = built();
  EXPECT_EQ(typesOf(node.get()), withLeading(base, sphereSymbolTypes));
  // The choice between the symbols of an oriented station is not asked for.
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOICameraStationSeparatorTest, BoxIsANodesOwnAndTheDetailedSymbolShared) {
  auto first = built();
  auto second = built();
  for (int i = 5; i < first->getNumChildren(); ++i) {
    EXPECT_EQ(first->getChild(i), second->getChild(i));
    EXPECT_EQ(first->getChild(i), g_cs_node->getChild(i - 5));
  }
  EXPECT_EQ(g_cs_node->getNumChildren(), 14);

  preferences.Set("UseNewSymbol", "0", "TarnOICamera");
  auto boxed = built();
  auto boxedToo = built();
  for (int i = 5; i < boxed->getNumChildren(); ++i) {
    EXPECT_NE(boxed->getChild(i), boxedToo->getChild(i));
    EXPECT_EQ(boxed->getChild(i)->getRefCount(), 1);
  }
}

TEST_F(TarnOICameraStationSeparatorTest, SymbolThatCannotBeReadIsReported) {
  auto node = builtWithoutSymbol(0, 0, &extents);
  EXPECT_EQ(g_cs_node, nullptr);
  // The steps that follow were taken.
  EXPECT_EQ(typesOf(node.get()), base);
  EXPECT_EQ(childAs<SoTranslation>(node.get(), 2)->translation.getValue(),
            shown(position.x, position.y, position.z));
  EXPECT_NE(node->frustumCoords->point[0], SbVec3f(0, 0, 0));
}

// ---- Placing --------------------------------------------------------------------------

TEST_F(TarnOICameraStationSeparatorTest, PositionIsShownInTheViewerFrame) {
  EXPECT_EQ(childAs<SoTranslation>(built().get(), 2)->translation.getValue(),
            SbVec3f(90.0F, -17.375F, 20.0F));
}

TEST_F(TarnOICameraStationSeparatorTest, PositionIsReducedByTheOffsetBeforeItIsNarrowed) {
  tarn::gThreeDViewOffset = {4500000.25, 5400000.5, 300.125};
  station.SetOrientation({4500000.5, 5400001.0, 301.0}, rotation);
  EXPECT_EQ(childAs<SoTranslation>(built().get(), 2)->translation.getValue(),
            SbVec3f(0.25F, 0.875F, -0.5F));
}

TEST_F(TarnOICameraStationSeparatorTest, RotationHasItsSecondAndThirdRowsNegated) {
  const SbMatrix m = childAs<SoMatrixTransform>(built().get(), 3)->matrix.getValue();
  const auto& r = rotation;
  const double expected[4][4] = {{r(1, 1), r(1, 3), -r(1, 2), 0.0},
                                 {-r(2, 1), -r(2, 3), r(2, 2), 0.0},
                                 {-r(3, 1), -r(3, 3), r(3, 2), 0.0},
                                 {0.0, 0.0, 0.0, 1.0}};
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) EXPECT_EQ(m[i][j], static_cast<float>(expected[i][j]));
  }
}

TEST_F(TarnOICameraStationSeparatorTest,
       StationThatIsNotOrientedStandsWhereItsSatellitePositionIs) {
  station.SetOriented(0);
  station.SetGPSPosition({1.0, 2.0, 3.0});
  auto node = built();
  EXPECT_EQ(childAs<SoTranslation>(node.get(), 2)->translation.getValue(), shown(1.0, 2.0, 3.0));
}

TEST_F(TarnOICameraStationSeparatorTest, WithoutAnyPositionTheTranslationStaysAndTheMatrixIsSet) {
  station.SetOriented(0);
  auto node = built();
  EXPECT_EQ(childAs<SoTranslation>(node.get(), 2)->translation.getValue(), SbVec3f(0, 0, 0));
  EXPECT_EQ(childAs<SoMatrixTransform>(node.get(), 3)->matrix.getValue()[1][1],
            static_cast<float>(-rotation(2, 3)));

  childAs<SoTranslation>(node.get(), 2)->translation.setValue(7.0F, 8.0F, 9.0F);
  node->SetCameraStation(&station, &dictionary, scale.get(), 0, 0, nullptr);
  EXPECT_EQ(childAs<SoTranslation>(node.get(), 2)->translation.getValue(), SbVec3f(7, 8, 9));
}

// ---- Setting again --------------------------------------------------------------------

TEST_F(TarnOICameraStationSeparatorTest, SecondSetRebuildsNothingButPositionRotationAndFrustum) {
  auto node = built(0, 0, &extents);
  std::vector<SoNode*> before;
  for (int i = 0; i < node->getNumChildren(); ++i) before.push_back(node->getChild(i));
  const SbVec3f firstCorner = node->frustumCoords->point[0];
  preferences.takeReads();

  station.SetOrientation({1.0, 2.0, 3.0}, tarn::MatrixDouble::Identity(3));
  auto otherScale = makeNode<SoScale>();
  node->SetCameraStation(&station, &dictionary, otherScale.get(), 1, 1, &extents);
  std::vector<SoNode*> after;
  for (int i = 0; i < node->getNumChildren(); ++i) after.push_back(node->getChild(i));
  EXPECT_EQ(after, before);
  EXPECT_EQ(node->scaleNode.get(), otherScale.get());
  EXPECT_EQ(node->showImagePlane, 1);
  EXPECT_EQ(node->showSymbolWithImage, 1);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
  EXPECT_EQ(childAs<SoTranslation>(node.get(), 2)->translation.getValue(), shown(1.0, 2.0, 3.0));
  EXPECT_EQ(childAs<SoMatrixTransform>(node.get(), 3)->matrix.getValue()[0][0], 1.0F);
  EXPECT_NE(node->frustumCoords->point[0], firstCorner);
}

TEST_F(TarnOICameraStationSeparatorTest, SecondSetBindsAnotherStation) {
  auto node = built();
  tarn::CameraStation other;
  node->SetCameraStation(&other, &dictionary, scale.get(), 0, 0, nullptr);
  EXPECT_EQ(dictionary.atKey(&station), nullptr);
  EXPECT_EQ(dictionary.atKey(&other), node.get());
  node.reset();
  EXPECT_EQ(dictionary.size(), 0);
}

TEST_F(TarnOICameraStationSeparatorTest, ForeignChildrenAreReportedAndLeftAlone) {
  auto node = makeNode<OpenStationSeparator>();
  for (int i = 0; i < 4; ++i) node->addChild(new SoCube);
  node->SetCameraStation(&station, &dictionary, scale.get(), 0, 0, &extents);
  EXPECT_THAT(
      takeAssertions(),
      ElementsAre(
          IsAssertion("node->getTypeId().isDerivedFrom(SoTranslation::getClassTypeId() )",
                      sourceFile),
          IsAssertion("node->getTypeId().isDerivedFrom(SoMatrixTransform::getClassTypeId() )",
                      sourceFile)));
  EXPECT_THAT(typesOf(node.get()), ElementsAre("Cube", "Cube", "Cube", "Cube"));
}

TEST_F(TarnOICameraStationSeparatorTest, TooFewForeignChildrenAreReportedToo) {
  auto node = makeNode<OpenStationSeparator>();
  node->addChild(new SoCube);
  node->SetCameraStation(&station, &dictionary, scale.get(), 0, 0, nullptr);
  EXPECT_EQ(takeAssertions().size(), 2U);
}

TEST_F(TarnOICameraStationSeparatorTest, ReplaceRebuildsEverythingAndForgetsTheLabel) {
  auto node = built(0, 0, &extents);
  node->UpdateTextLable(1);
  node->ShowFrustum(1, 0, 1.0, &extents);
  const NodeRef<SoNode> oldSwitch(node->getChild(0));
  node->ReplaceCameraStations(&station, &dictionary, scale.get(), 1, 0, &extents);
  EXPECT_EQ(typesOf(node.get()), withLeading(base, {"Separator", "Separator"}));
  EXPECT_NE(node->getChild(0), oldSwitch.get());
  EXPECT_FALSE(node->labelText);
  EXPECT_FALSE(node->labelTranslation);
  // What was said about the frustum still holds.
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_ALL);
  EXPECT_NE(node->frustumCoords->point[0], SbVec3f(0, 0, 0));
  EXPECT_EQ(dictionary.atKey(&station), node.get());
}

// ---- Matching a camera to the photograph ----------------------------------------------

TEST_F(TarnOICameraStationSeparatorTest, CameraMatchesPositionOrientationAndAngle) {
  auto camera3d = makeNode<SoPerspectiveCamera>();
  EXPECT_EQ(TarnOICameraStationSeparator::SetCameraToMatchPhoto(camera3d.get(), &station, nullptr),
            1);
  EXPECT_EQ(camera3d->position.getValue(), shown(position.x, position.y, position.z));
  EXPECT_EQ(camera3d->viewportMapping.getValue(), SoCamera::CROP_VIEWPORT_FILL_FRAME);
  EXPECT_EQ(camera3d->nearDistance.getValue(), 35.5F);
  EXPECT_EQ(camera3d->farDistance.getValue(), 1000.0F);
  EXPECT_EQ(camera3d->aspectRatio.getValue(), static_cast<float>(36.1 / 24.1));
  EXPECT_EQ(camera3d->heightAngle.getValue(),
            2.0F * static_cast<float>(std::atan(24.1 * 0.5 / 35.5)));
  // Right, up and back of the station are x, y and z of the camera: no row is negated.
  SbVec3f axis;
  for (int row = 1; row <= 3; ++row) {
    SbVec3f unit(0.0F, 0.0F, 0.0F);
    unit[row - 1] = 1.0F;
    camera3d->orientation.getValue().multVec(unit, axis);
    expectNear(axis,
               SbVec3f(static_cast<float>(rotation(row, 1)), static_cast<float>(rotation(row, 3)),
                       static_cast<float>(-rotation(row, 2))),
               1e-6F);
  }
}

TEST_F(TarnOICameraStationSeparatorTest, CameraIsLeftAloneByAStationThatIsNotOriented) {
  station.SetOriented(0);
  auto camera3d = makeNode<SoPerspectiveCamera>();
  camera3d->position.setValue(1.0F, 2.0F, 3.0F);
  EXPECT_EQ(TarnOICameraStationSeparator::SetCameraToMatchPhoto(camera3d.get(), &station, nullptr),
            0);
  EXPECT_EQ(camera3d->position.getValue(), SbVec3f(1, 2, 3));
  EXPECT_EQ(camera3d->farDistance.getValue(), 10.0F);
}

TEST_F(TarnOICameraStationSeparatorTest, MatchingWithoutStationIsReported) {
  auto camera3d = makeNode<SoPerspectiveCamera>();
  EXPECT_EQ(TarnOICameraStationSeparator::SetCameraToMatchPhoto(camera3d.get(), nullptr, nullptr),
            0);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("cs", sourceFile)));
}

TEST_F(TarnOICameraStationSeparatorTest, MatchingAnotherKindOfCameraIsReportedAfterThePose) {
  auto camera3d = makeNode<SoOrthographicCamera>();
  EXPECT_EQ(TarnOICameraStationSeparator::SetCameraToMatchPhoto(camera3d.get(), &station, nullptr),
            1);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion(
                  "camera->getTypeId().isDerivedFrom(SoPerspectiveCamera::getClassTypeId() )",
                  sourceFile)));
  EXPECT_EQ(camera3d->position.getValue(), shown(position.x, position.y, position.z));
  EXPECT_EQ(camera3d->farDistance.getValue(), 1000.0F);
}

TEST_F(TarnOICameraStationSeparatorTest, AffineBringsTheStationAlong) {
  tarn::BasicAffine affine;
  affine.SetScale(2.0);
  affine.SetTranslation({1.0, 2.0, 3.0}, {-4.0, 5.0, -6.0});
  const tarn::MatrixDouble turn = turned(0.3, 1.1, -0.6);
  affine.SetRotation(turn);
  auto camera3d = makeNode<SoPerspectiveCamera>();
  EXPECT_EQ(TarnOICameraStationSeparator::SetCameraToMatchPhoto(camera3d.get(), &station, &affine),
            1);
  // A row p becomes (2 p + P) R + Q; directions take R alone.
  const auto times = [&](double x, double y, double z, int column) {
    return x * turn(1, column) + y * turn(2, column) + z * turn(3, column);
  };
  const double x = 2.0 * position.x + 1.0;
  const double y = 2.0 * position.y + 2.0;
  const double z = 2.0 * position.z + 3.0;
  expectNear(camera3d->position.getValue(),
             shown(times(x, y, z, 1) - 4.0, times(x, y, z, 2) + 5.0, times(x, y, z, 3) - 6.0),
             1e-4F);
  SbVec3f back;
  camera3d->orientation.getValue().multVec(SbVec3f(0, 0, 1), back);
  const auto turnedBack = [&](int column) {
    return static_cast<float>(times(rotation(3, 1), rotation(3, 2), rotation(3, 3), column));
  };
  expectNear(back, SbVec3f(turnedBack(1), turnedBack(3), -turnedBack(2)), 1e-6F);
  EXPECT_EQ(camera3d->nearDistance.getValue(), 35.5F);
}

TEST_F(TarnOICameraStationSeparatorTest, AffineThatCannotBeUsedIsPassedOver) {
  tarn::BasicAffine affine;
  affine.SetScale(0.0);
  affine.SetTranslation({100.0, 100.0, 100.0}, {});
  auto camera3d = makeNode<SoPerspectiveCamera>();
  EXPECT_EQ(TarnOICameraStationSeparator::SetCameraToMatchPhoto(camera3d.get(), &station, &affine),
            1);
  EXPECT_EQ(camera3d->position.getValue(), shown(position.x, position.y, position.z));
}

TEST_F(TarnOICameraStationSeparatorTest, StationThatCannotBeConvertedIsReportedAndUsedAsItIs) {
  station.SetOrientation(position, tarn::MatrixDouble(3, 3));  // no rotation at all
  tarn::BasicAffine affine;
  affine.SetTranslation({100.0, 100.0, 100.0}, {});
  auto camera3d = makeNode<SoPerspectiveCamera>();
  EXPECT_EQ(TarnOICameraStationSeparator::SetCameraToMatchPhoto(camera3d.get(), &station, &affine),
            1);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("affstn.ConvertStation( cs, &convertedStn )", sourceFile)));
  EXPECT_EQ(camera3d->position.getValue(), shown(position.x, position.y, position.z));
}

// ---- Frustum --------------------------------------------------------------------------

namespace {

// The corner of the ideal camera's view at that depth, in the viewer frame.
SbVec3f cornerAt(const tarn::CameraStation& station, double depth, int right, int up) {
  double width = 0.0;
  double height = 0.0;
  station.GetCamera(1)->GetFormatSize(width, height);
  const double f = station.GetCamera(1)->GetFocalLength();
  const double u = (right ? 0.5 : -0.5) * width / f * depth;
  const double v = (up ? 0.5 : -0.5) * height / f * depth;
  const tarn::MatrixDouble r = station.GetRotationMatrix();
  const auto at = [&](int column) {
    return u * r(1, column) + v * r(2, column) - depth * r(3, column);
  };
  const tarn::Point3DDouble p = station.GetPosition();
  return shown(p.x + at(1), p.y + at(2), p.z + at(3));
}

void expectFrustum(const OpenStationSeparator& node, const tarn::CameraStation& station,
                   double depth, float tolerance) {
  const tarn::Point3DDouble p = station.GetPosition();
  const SbVec3f eye = shown(p.x, p.y, p.z);
  const SbVec3f a = cornerAt(station, depth, 0, 0);
  const SbVec3f b = cornerAt(station, depth, 1, 0);
  const SbVec3f c = cornerAt(station, depth, 0, 1);
  const SbVec3f d = cornerAt(station, depth, 1, 1);
  const std::array expected = {a, eye, b, eye, c, eye, d, eye, a, b, a, c, b, d, c, d};
  ASSERT_EQ(node.frustumCoords->point.getNum(), 16);
  for (int i = 0; i < 16; ++i) {
    SCOPED_TRACE(i);
    expectNear(node.frustumCoords->point[i], expected[static_cast<std::size_t>(i)], tolerance);
  }
}

}  // namespace

TEST_F(TarnOICameraStationSeparatorTest, FrustumReachesAsFarAsTheMiddleOfTheProject) {
  auto node = built(0, 0, &extents);
  const double depth = std::sqrt(15.5 * 15.5 + 60.25 * 60.25 + 20.75 * 20.75);
  expectFrustum(*node, station, depth, 2e-4F);
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumOfASceneNearerThanTheFocalLengthIsExact) {
  extents = tarn::Extents(position + tarn::Point3DDouble{0.1, 0.2, 0.2},
                          position + tarn::Point3DDouble{0.1, 0.2, 0.2});
  auto node = built(0, 0, &extents);
  expectFrustum(*node, station, 0.3, 2e-5F);
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumOfASceneBeyondTheFarDistanceIsExact) {
  extents = tarn::Extents(position + tarn::Point3DDouble{1000.0, 2000.0, 2000.0},
                          position + tarn::Point3DDouble{1000.0, 2000.0, 2000.0});
  auto node = built(0, 0, &extents);
  expectFrustum(*node, station, 3000.0, 5e-3F);
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumOfAFocalLengthBeyondTheFarDistanceIsExact) {
  camera.SetFocalLength(1200.0);
  auto node = built(0, 0, &extents);
  const double depth = std::sqrt(15.5 * 15.5 + 60.25 * 60.25 + 20.75 * 20.75);
  expectFrustum(*node, station, depth, 2e-4F);
}

TEST_F(TarnOICameraStationSeparatorTest, ScaleShortensTheFrustumWhenItChanges) {
  auto node = built(0, 0, &extents);
  const double depth = std::sqrt(15.5 * 15.5 + 60.25 * 60.25 + 20.75 * 20.75);
  node->ShowFrustum(1, 0, 0.25, &extents);
  EXPECT_EQ(node->frustumScale, 0.25);
  expectFrustum(*node, station, 0.25 * depth, 1e-4F);

  // The same scale leaves the frustum alone, whatever the extents.
  const tarn::Point3DDouble far{500.0, 500.0, 500.0};
  tarn::Extents other(far, far);
  node->ShowFrustum(1, 0, 0.25, &other);
  expectFrustum(*node, station, 0.25 * depth, 1e-4F);
}

TEST_F(TarnOICameraStationSeparatorTest, NullExtentsLeaveTheFrustumAsItIs) {
  auto node = built(0, 0, &extents);
  const SbVec3f before = node->frustumCoords->point[0];
  node->UpdateFrustum(nullptr);
  node->ShowFrustum(1, 0, 7.0, nullptr);
  EXPECT_EQ(node->frustumCoords->point[0], before);
  EXPECT_EQ(node->frustumScale, 7.0);
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumOfAStationThatIsNotOrientedIsADefaultCameras) {
  station.SetOriented(0);
  auto node = built(0, 0, &extents);
  auto fresh = makeNode<SoPerspectiveCamera>();
  EXPECT_EQ(node->frustumCoords->point[1], fresh->position.getValue());
  const double depth = std::sqrt(15.5 * 15.5 + 60.25 * 60.25 + 20.75 * 20.75);
  const auto half = static_cast<float>(depth * std::tan(0.5 * fresh->heightAngle.getValue()));
  expectNear(node->frustumCoords->point[0], SbVec3f(-half, -half, static_cast<float>(1.0 - depth)),
             1e-4F);
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumOfAnUnboundNodeIsReported) {
  auto node = makeNode<OpenStationSeparator>();
  node->UpdateFrustum(&extents);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnObject", sourceFile)));
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumOfAnotherKindOfObjectIsReported) {
  auto node = makeNode<OpenStationSeparator>();
  node->SetTarnObject(&photograph, &dictionary);
  node->UpdateFrustum(&extents);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("tarnObject->isA( CameraStationCls )", sourceFile)));
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumBeforeTheNodeIsBuiltIsRemembered) {
  auto node = makeNode<OpenStationSeparator>();
  node->SetTarnObject(&station, &dictionary);
  node->IsSelected(1);
  node->ShowFrustum(1, 1, 0.5, &extents);
  EXPECT_EQ(node->frustumWhichChild, SO_SWITCH_ALL);
  node->SetCameraStation(&station, &dictionary, scale.get(), 0, 0, &extents);
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_ALL);
  const double depth = std::sqrt(15.5 * 15.5 + 60.25 * 60.25 + 20.75 * 20.75);
  expectFrustum(*node, station, 0.5 * depth, 1e-4F);
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumIsHiddenWhateverTheSelection) {
  auto node = built();
  node->ShowFrustum(1, 1, 1.0, nullptr);
  node->IsSelected(1);
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_ALL);
  node->ShowFrustum(0, 1, 1.0, nullptr);
  EXPECT_EQ(node->frustumOnlyWhenSelected, 0);
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_NONE);
  node->IsSelected(1);
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_NONE);
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumIsAlwaysShownWhateverTheSelection) {
  auto node = built();
  node->ShowFrustum(1, 0, 1.0, nullptr);
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_ALL);
  node->IsSelected(0);
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_ALL);
}

TEST_F(TarnOICameraStationSeparatorTest, FrustumFollowsTheSelectionWhenToldTo) {
  auto node = built();
  node->ShowFrustum(1, 1, 1.0, nullptr);
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_NONE);
  EXPECT_EQ(node->frustumWhichChild, SO_SWITCH_NONE);
  node->IsSelected(1);
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_ALL);
  // The value kept for a rebuilt node is the one that ShowFrustum found.
  EXPECT_EQ(node->frustumWhichChild, SO_SWITCH_NONE);
  node->IsSelected(0);
  EXPECT_EQ(node->frustumSwitch->whichChild.getValue(), SO_SWITCH_NONE);
}

// ---- Label ----------------------------------------------------------------------------

TEST_F(TarnOICameraStationSeparatorTest, LabelIsAppendedWithThePhotographsNumber) {
  auto node = built();
  preferences.takeReads();
  node->UpdateTextLable(1);
  ASSERT_EQ(node->getNumChildren(), 21);
  EXPECT_EQ(node->getChild(19), node->labelTranslation.get());
  EXPECT_EQ(node->getChild(20), node->labelText.get());
  ASSERT_EQ(node->labelText->string.getNum(), 1);
  EXPECT_STREQ(node->labelText->string[0].getString(), "CS17");
  EXPECT_EQ(node->labelTranslation->translation.getValue(), SbVec3f(100, 100, 100));
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eDouble, "CSIDOffset", "0.5", viewerSection},
                          Read{Read::eBool, "UseNewSymbol", "1", "TarnOICamera"},
                          Read{Read::eDouble, "CSIDOffsetNewSymbol", "100", viewerSection}));
}

TEST_F(TarnOICameraStationSeparatorTest, LabelOfTheBoxSymbolHasItsOwnOffset) {
  preferences.Set("UseNewSymbol", "0", "TarnOICamera");
  auto node = built();
  preferences.takeReads();
  node->UpdateTextLable(1);
  EXPECT_EQ(node->labelTranslation->translation.getValue(), SbVec3f(0.5F, 0.5F, 0.5F));
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eDouble, "CSIDOffset", "0.5", viewerSection},
                          Read{Read::eBool, "UseNewSymbol", "1", "TarnOICamera"}));
}

TEST_F(TarnOICameraStationSeparatorTest, LabelIsUpdatedInPlace) {
  auto node = built();
  node->UpdateTextLable(1);
  const NodeRef<TarnOIText2> text = node->labelText;
  photograph.SetNumber(230);
  preferences.Set("CSIDOffsetNewSymbol", "12.5", viewerSection);
  node->UpdateTextLable(1);
  EXPECT_EQ(node->labelText.get(), text.get());
  EXPECT_EQ(node->getNumChildren(), 21);
  EXPECT_STREQ(text->string[0].getString(), "CS230");
  EXPECT_EQ(node->labelTranslation->translation.getValue(), SbVec3f(12.5F, 12.5F, 12.5F));
}

TEST_F(TarnOICameraStationSeparatorTest, LabelGoesAwayAndComesBack) {
  auto node = built();
  node->UpdateTextLable(0);
  node->UpdateTextLable(1);
  node->UpdateTextLable(0);
  EXPECT_EQ(node->getNumChildren(), 19);
  EXPECT_FALSE(node->labelText);
  EXPECT_FALSE(node->labelTranslation);
  node->UpdateTextLable(1);
  EXPECT_EQ(node->getNumChildren(), 21);
}

TEST_F(TarnOICameraStationSeparatorTest, LabelWithoutAPhotographIsNotMade) {
  makeNode<OpenStationSeparator>()->UpdateTextLable(1);
  station.SetPhotograph(nullptr);
  auto node = built();
  node->UpdateTextLable(1);
  EXPECT_FALSE(node->labelText);
  EXPECT_EQ(node->getNumChildren(), 19);
}

// ---- Highlight ------------------------------------------------------------------------

TEST_F(TarnOICameraStationSeparatorTest, HighlightGoesBehindTheMaterialOfTheSymbolAlone) {
  preferences.Set("UseNewSymbol", "0", "TarnOICamera");
  auto node = built(0, 0);
  auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  EXPECT_EQ(node->findChild(material.get()), 7);
  EXPECT_THAT(typesOf(node.get())[6], "Material");
  EXPECT_THAT(typesOf(node.get())[8], "Cube");
  EXPECT_EQ(node->frustumSwitch->getChild(0), material.get());
}

TEST_F(TarnOICameraStationSeparatorTest, HighlightGoesBehindTheMaterialOfTheSymbolWithImage) {
  preferences.Set("UseNewSymbol", "0", "TarnOICamera");
  auto node = built(1, 1);
  auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  EXPECT_EQ(node->findChild(material.get()), 9);
  EXPECT_THAT(typesOf(node.get())[8], "Material");
  EXPECT_THAT(typesOf(node.get())[10], "Cube");
}

TEST_F(TarnOICameraStationSeparatorTest, HighlightGoesInFrontOfTheImagePlaneAlone) {
  auto node = built(1, 0);
  auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  EXPECT_EQ(node->findChild(material.get()), 5);
}

TEST_F(TarnOICameraStationSeparatorTest, HighlightPlaceFollowsTheFlagEvenWithoutAnImage) {
  auto node = built(0, 1);
  auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  EXPECT_EQ(node->findChild(material.get()), 9);
}

TEST_F(TarnOICameraStationSeparatorTest, HighlightTwiceInsertsOnce) {
  auto node = built();
  auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  node->Highlight(material.get(), 1);
  EXPECT_EQ(node->getNumChildren(), 20);
  EXPECT_EQ(node->frustumSwitch->getNumChildren(), 3);
}

TEST_F(TarnOICameraStationSeparatorTest, HighlightGoesFromTheNodeAsOftenAsItIsThere) {
  auto node = built();
  auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  node->addChild(material.get());
  node->frustumSwitch->addChild(material.get());
  node->Highlight(material.get(), 0);
  EXPECT_EQ(node->findChild(material.get()), -1);
  EXPECT_EQ(node->getNumChildren(), 19);
  EXPECT_EQ(node->frustumSwitch->getNumChildren(), 3);  // once from the switch
  node->Highlight(material.get(), 0);
  EXPECT_EQ(node->frustumSwitch->getNumChildren(), 2);
  node->Highlight(material.get(), 0);
  EXPECT_EQ(node->getNumChildren(), 19);
}

TEST_F(TarnOICameraStationSeparatorTest, HighlightOfNothingOrOfANodeNotBuiltIsIgnored) {
  auto node = makeNode<OpenStationSeparator>();
  auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  node->Highlight(material.get(), 0);
  node->Highlight(nullptr, 1);
  node->Highlight(nullptr, 0);
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(TarnOICameraStationSeparatorTest, HighlightBeyondTheChildrenLeavesThemAlone) {
  // The places of a symbol that is not there: 7 among five children, 9 among seven.
  for (const int withImage : {0, 1}) {
    auto node = builtWithoutSymbol(withImage, withImage);
    const std::vector<std::string> before = typesOf(node.get());
    ASSERT_EQ(before.size(), withImage ? 7U : 5U);
    auto material = makeNode<SoMaterial>();
    for (const int on : {1, 1, 0, 1, 0}) {
      node->Highlight(material.get(), on);
      EXPECT_EQ(typesOf(node.get()), before);
      EXPECT_EQ(node->frustumSwitch->getNumChildren(), 2);
      EXPECT_EQ(material->getRefCount(), 1);
    }
    node->UpdateTextLable(1);
    EXPECT_EQ(node->getNumChildren(), withImage ? 9 : 7);
  }
}

TEST_F(TarnOICameraStationSeparatorTest, HighlightGoesToTheEndWhereItsPlaceIsTheEnd) {
  auto node = builtWithoutSymbol(0, 0);
  node->UpdateTextLable(1);  // two more children
  auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  EXPECT_EQ(node->findChild(material.get()), 7);
  EXPECT_EQ(node->getNumChildren(), 8);
  EXPECT_EQ(node->frustumSwitch->getChild(0), material.get());
}
