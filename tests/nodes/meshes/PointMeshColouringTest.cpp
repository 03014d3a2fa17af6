#include "host/general/Colour.h"
#include "host/model/Project.h"
#include "nodes/framework/FalseColour.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "nodes/meshes/TarnOIPointMeshSeparator.h"
#include "tests/nodes/meshes/PointMeshFixture.h"

#include <cmath>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr const char* className = "TarnOIPointMeshSeparator";
constexpr int trueColours = 1;
constexpr int byHeight = 2;

PreferenceRead flag(const char* key, const char* section) {
  return {PreferenceRead::eBool, key, "1", section};
}
PreferenceRead number(const char* key, const char* value, const char* section) {
  return {PreferenceRead::eDouble, key, value, section};
}
const PreferenceRead showCountWarnings = flag("ShowCountWarnings", "(null)");
const PreferenceRead useMeshExtents = flag("UseMeshExtentsForHueRange", "DenseStereo");
const PreferenceRead useProjectExtents = flag("UseProjectExtentsForHueRange", "DenseStereo");
const std::vector<PreferenceRead> rampReads{
    number("StartHue", "0", "FalseColor"), number("EndHue", "0.80000000000000004", "FalseColor"),
    number("S", "0.5", "DenseStereo"), number("L", "0.5", "DenseStereo")};

std::vector<PreferenceRead> readsOf(std::vector<PreferenceRead> first) {
  first.insert(first.end(), rampReads.begin(), rampReads.end());
  return first;
}

// Keeps its points elsewhere: all four are the same.
class HostsMesh : public tarn::PointMesh {
public:
  float** GetPoints() const override { return const_cast<float**>(positions); }
  unsigned char** GetRGBsForPoints() const override { return const_cast<unsigned char**>(colours); }

  std::array<float, 3> position{7.5F, -6.5F, 5.5F};
  std::array<unsigned char, 3> colour{10, 20, 30};

private:
  float* positions[4] = {position.data(), position.data(), position.data(), position.data()};
  unsigned char* colours[4] = {colour.data(), colour.data(), colour.data(), colour.data()};
};

}  // namespace

/// Colours of a cloud's points. The heights of `points` are -3.75, 8, 6.25 and 20.
class PointMeshColouringTest : public PointMeshFixture {
protected:
  PointMeshColouringTest() {
    setPoints(cloud, points);
    node->SetPointCloudPointMesh(&cloud, &dictionary);
    preferences.takeReads();
  }
  void TearDown() override {
    node.reset();  // before the project's mesh
    PointMeshFixture::TearDown();
  }

  std::vector<SbColor> colours() const { return valuesOf(node->colorMaterial->diffuseColor); }
  int binding() const { return node->colorBinding->value.getValue(); }

  /// The ramp's colour of a share of the range of heights.
  static SbColor ramp(double share) { return FalseColour().at(0.8 * share); }
  static std::vector<SbColor> ramps(double lowest, double highest) {
    std::vector<SbColor> result;
    for (const auto& point : points)
      result.push_back(ramp((point[2] - lowest) / (highest - lowest)));
    return result;
  }

  // What the range of heights is taken from.
  enum class Rule { eMeshes, eProject, eMesh };
  void chooseRange(Rule rule) {
    preferences.Set("UseMeshExtentsForHueRange", rule == Rule::eMeshes ? "1" : "0", "DenseStereo");
    preferences.Set("UseProjectExtentsForHueRange", rule == Rule::eProject ? "1" : "0",
                    "DenseStereo");
  }

  void giveColours() {
    setColouredPoints();
    node->SetPointCloudPointMesh(&mesh, &dictionary);
  }
  std::vector<SbColor> givenColours() const {
    return {bytes(2, 1, 0), bytes(32, 21, 10), bytes(62, 41, 20), bytes(92, 61, 30)};
  }

  tarn::Project project;
  tarn::PointMesh& cloud = project.AddPointMesh();
};

// --- True colours

TEST_F(PointMeshColouringTest, TrueColoursAreTheStoredBytesFromTheLastToTheFirst) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  EXPECT_EQ(colours(), givenColours());
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
}

TEST_F(PointMeshColouringTest, ColoursAndBindingStandInFront) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "MaterialBinding", "Coordinate3", "PointSet"));
  EXPECT_EQ(node->getChild(0), node->colorMaterial.get());
  EXPECT_EQ(node->getChild(1), node->colorBinding.get());
}

TEST_F(PointMeshColouringTest, ColoursStandInFrontOfTheTransform) {
  mesh.SetLocalAffine(shift(1, 2, 3));
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "MaterialBinding", "Transform", "Coordinate3", "PointSet"));
}

TEST_F(PointMeshColouringTest, EveryModeButHeightIsTrueColours) {
  giveColours();
  for (const int mode : {-1, 0, 1, 3}) {
    node->ColorPointsWithTexture(0, mode, nullptr);
    node->ColorPointsWithTexture(1, mode, nullptr);
    EXPECT_EQ(colours(), givenColours()) << mode;
  }
}

TEST_F(PointMeshColouringTest, ColouringOffRemovesBothNodes) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  node->ColorPointsWithTexture(0, trueColours, nullptr);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->colorMaterial);
  EXPECT_FALSE(node->colorBinding);
}

TEST_F(PointMeshColouringTest, ColouringOffTwiceIsHarmless) {
  node->ColorPointsWithTexture(0, trueColours, nullptr);
  node->ColorRange(0, nullptr);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(PointMeshColouringTest, ColouringOffForgetsWhatAHostTookOut) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  node->removeChild(0);
  node->ColorPointsWithTexture(0, trueColours, nullptr);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->colorMaterial);
}

TEST_F(PointMeshColouringTest, AMeshWithoutColoursLosesItsColouring) {
  node->ColorRange(1, &project);
  node->ColorPointsWithTexture(1, trueColours, &project);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->colorMaterial);
}

TEST_F(PointMeshColouringTest, ColouringTwiceReusesTheNodes) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  const auto before = children(*node);
  mesh.GetColourStorage()[2] = 200;
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  EXPECT_EQ(children(*node), before);
  EXPECT_EQ(colours()[0], bytes(200, 1, 0));
}

TEST_F(PointMeshColouringTest, ColouringAgainFillsTheSameMemory) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  const SbColor* memory = node->colorMaterial->diffuseColor.getValues(0);
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  EXPECT_EQ(node->colorMaterial->diffuseColor.getValues(0), memory);
}

TEST_F(PointMeshColouringTest, NodesThatAHostTookOutAreInsertedAgain) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  const auto before = children(*node);
  node->removeChild(0);
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  EXPECT_EQ(children(*node), before);
}

TEST_F(PointMeshColouringTest, ColouringIsSignalledOnce) {
  giveColours();
  const auto colour = [this] { node->ColorPointsWithTexture(1, trueColours, &project); };
  EXPECT_EQ(signalsWhile(colour), 1);
  EXPECT_EQ(signalsWhile(colour), 1);
  node->SetPointCloudPointMesh(&cloud, &dictionary);
  EXPECT_EQ(signalsWhile([this] { node->ColorRange(1, &project); }), 1);
  EXPECT_TRUE(node->colorMaterial->diffuseColor.isNotifyEnabled());
  const auto off = [this] { node->ColorRange(0, &project); };
  EXPECT_EQ(signalsWhile(off), 1);
  EXPECT_EQ(signalsWhile(off), 0);
}

TEST_F(PointMeshColouringTest, TheColoursFollowTheCoordinatesNumberWithoutTheCheck) {
  preferences.Set("ShowCountWarnings", "0");
  giveColours();
  node->pointPos->point.setNum(2);
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  EXPECT_THAT(colours(), ElementsAre(bytes(2, 1, 0), bytes(32, 21, 10)));
}

TEST_F(PointMeshColouringTest, CoordinatesWithoutPointsAreBlack) {
  preferences.Set("ShowCountWarnings", "0");
  giveColours();
  mesh.Truncate(1);
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  const SbColor black(0.0F, 0.0F, 0.0F);
  EXPECT_THAT(colours(), ElementsAre(bytes(2, 1, 0), black, black, black));
}

TEST_F(PointMeshColouringTest, ANodeWithoutCoordinatesGetsNoColoursWithoutTheCheck) {
  preferences.Set("ShowCountWarnings", "0");
  const auto empty = makeNode<OpenMeshNode>();
  empty->SetTarnObject(&cloud, &dictionary);
  empty->ColorRange(1, &project);
  EXPECT_EQ(empty->colorMaterial->diffuseColor.getNum(), 0);
}

// --- What is left as it is

TEST_F(PointMeshColouringTest, AMeshWithTrianglesIsLeftAsItIs) {
  setColouredPoints();
  setTriangles();
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  preferences.takeReads();
  EXPECT_EQ(signalsWhile([this] {
              node->ColorPointsWithTexture(1, trueColours, &project);
              node->ColorPointsWithTexture(1, byHeight, &project);
              node->ColorRange(1, &project);
            }),
            0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->colorMaterial);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(PointMeshColouringTest, AMeshThatGotTrianglesKeepsTheColoursItHas) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  setTriangles();
  mesh.GetColourStorage()[2] = 200;
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  EXPECT_EQ(colours(), givenColours());
}

TEST_F(PointMeshColouringTest, AMeshThatGotTrianglesAndLostItsColoursKeepsWhatIsShown) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  const auto before = children(*node);
  setPoints(mesh, points);
  setTriangles();
  node->ColorPointsWithTexture(1, trueColours, nullptr);
  EXPECT_EQ(children(*node), before);
  node->ColorPointsWithTexture(0, trueColours, nullptr);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(PointMeshColouringTest, AnUnboundNodeIsLeftAsItIs) {
  const auto unbound = makeNode<OpenMeshNode>();
  unbound->ColorPointsWithTexture(1, trueColours, &project);
  unbound->ColorRange(1, &project);
  EXPECT_EQ(unbound->getNumChildren(), 0);
}

TEST_F(PointMeshColouringTest, ADifferentNumberOfPointsIsWarnedOfWithTheNumbersCrossed) {
  cloud.Truncate(3);
  EXPECT_EQ(signalsWhile([this] { node->ColorRange(1, &project); }), 0);
  EXPECT_THAT(takeWarnings(),
              ElementsAre("Cannot color point mesh, please report to Vintor Systems.\n"
                          "Points 4, colors: 3 "));
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->colorMaterial);
  EXPECT_THAT(preferences.takeReads(), ElementsAre(showCountWarnings));
}

TEST_F(PointMeshColouringTest, ANodeWithoutCoordinatesIsWarnedOf) {
  setColouredPoints();
  const auto empty = makeNode<OpenMeshNode>();
  empty->SetTarnObject(&mesh, &dictionary);
  empty->ColorPointsWithTexture(1, trueColours, &project);
  EXPECT_THAT(takeWarnings(),
              ElementsAre("Cannot color point mesh, please report to Vintor Systems.\n"
                          "Points 0, colors: 4 "));
}

TEST_F(PointMeshColouringTest, ACloudOfNoPointsWithoutCoordinatesIsWarnedOfToo) {
  tarn::PointMesh none;
  none.Allocate(0, 1);
  const auto empty = makeNode<OpenMeshNode>();
  empty->SetTarnObject(&none, &dictionary);
  empty->ColorPointsWithTexture(1, trueColours, &project);
  EXPECT_EQ(takeWarnings().size(), 1U);
}

// --- By height

TEST_F(PointMeshColouringTest, HeightsOfAllPointMeshesMakeTheRange) {
  tarn::PointMesh& other = project.AddPointMesh();
  setPoints(other, std::array<std::array<float, 3>, 2>{{{0, 0, -10}, {0, 0, 30}}});
  node->ColorRange(1, &project);
  EXPECT_EQ(colours(), ramps(-10, 30));
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "MaterialBinding", "Coordinate3", "PointSet"));
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
}

TEST_F(PointMeshColouringTest, TheLowestHasTheFirstHueAndTheHighestTheLast) {
  node->ColorRange(1, &project);
  EXPECT_EQ(colours()[0], ramp(0));
  EXPECT_EQ(colours()[3], ramp(1));
  // Hue 0 is red, and red and blue are exchanged.
  EXPECT_EQ(colours()[0], bytes(64, 64, 191));
}

TEST_F(PointMeshColouringTest, MeshExtentsAskForThoseAndTheRampsPreferences) {
  node->ColorRange(1, &project);
  EXPECT_EQ(preferences.takeReads(), readsOf({showCountWarnings, useMeshExtents}));
}

TEST_F(PointMeshColouringTest, HeightsOfTheProjectMakeTheRangeWhereMeshesDoNot) {
  preferences.Set("UseMeshExtentsForHueRange", "0", "DenseStereo");
  project.AddImportedPoint().SetApproximation(tarn::Point3DRandom({0, 0, 100}));
  node->ColorRange(1, &project);
  tarn::Extents extents = project.GetProjectExtents(nullptr, 1, 1);
  tarn::Point3DDouble low;
  tarn::Point3DDouble high;
  ASSERT_TRUE(extents.GetExtents(low, high));
  EXPECT_EQ(high.z, 100.0);
  EXPECT_EQ(colours(), ramps(low.z, high.z));
  EXPECT_EQ(preferences.takeReads(),
            readsOf({showCountWarnings, useMeshExtents, useProjectExtents}));
}

TEST_F(PointMeshColouringTest, HeightsOfTheMeshItselfMakeTheRangeOtherwise) {
  preferences.Set("UseMeshExtentsForHueRange", "0", "DenseStereo");
  preferences.Set("UseProjectExtentsForHueRange", "0", "DenseStereo");
  tarn::PointMesh& other = project.AddPointMesh();
  setPoints(other, std::array<std::array<float, 3>, 2>{{{0, 0, -10}, {0, 0, 30}}});
  node->ColorRange(1, &project);
  EXPECT_EQ(colours(), ramps(-3.75, 20));
  EXPECT_EQ(preferences.takeReads(),
            readsOf({showCountWarnings, useMeshExtents, useProjectExtents}));
}

TEST_F(PointMeshColouringTest, TheMeshsOwnRangeNeedsNoProject) {
  preferences.Set("UseMeshExtentsForHueRange", "0", "DenseStereo");
  preferences.Set("UseProjectExtentsForHueRange", "0", "DenseStereo");
  node->ColorRange(1, nullptr);
  EXPECT_EQ(colours(), ramps(-3.75, 20));
}

TEST_F(PointMeshColouringTest, AMissingProjectIsReportedWhereMeshesMakeTheRange) {
  node->ColorRange(1, nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertionAt("project", className, 1298)));
  // Without a range no hue is finite, and the host takes it as 0.
  EXPECT_THAT(colours(), ::testing::Each(ramp(0)));
}

TEST_F(PointMeshColouringTest, AMissingProjectIsReportedWhereTheProjectMakesTheRange) {
  preferences.Set("UseMeshExtentsForHueRange", "0", "DenseStereo");
  node->ColorPointsWithTexture(1, byHeight, nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertionAt("project", className, 1306)));
  EXPECT_THAT(colours(), ::testing::Each(ramp(0)));
}

TEST_F(PointMeshColouringTest, AFlatCloudHasTheHueOfZero) {
  setPoints(cloud, std::array<std::array<float, 3>, 2>{{{1, 2, 5}, {3, 4, 5}}});
  node->SetPointCloudPointMesh(&cloud, &dictionary);
  preferences.Set("StartHue", "0.3", "FalseColor");
  node->ColorRange(1, &project);
  EXPECT_THAT(colours(), ElementsAre(ramp(0), ramp(0)));
}

TEST_F(PointMeshColouringTest, HeightsOutsideTheRangeGoOnAlongTheHues) {
  tarn::PointMesh outside;
  setPoints(outside, std::array<std::array<float, 3>, 2>{{{1, 2, 43.75F}, {3, 4, -27.5F}}});
  node->SetPointCloudPointMesh(&outside, &dictionary);
  node->ColorRange(1, &project);  // whose meshes go from -3.75 to 20
  EXPECT_THAT(colours(), ElementsAre(ramp(2), ramp(-1)));
  node.reset();
}

TEST_F(PointMeshColouringTest, HuesSaturationAndLightnessArePreferences) {
  preferences.Set("StartHue", "0.25", "FalseColor");
  preferences.Set("EndHue", "0.375", "FalseColor");
  preferences.Set("S", "0.75", "DenseStereo");
  preferences.Set("L", "0.625", "DenseStereo");
  node->ColorRange(1, &project);
  const FalseColour preferred{0.25, 0.375, 0.75, 0.625};
  EXPECT_EQ(colours()[0], preferred.at(0.25));
  EXPECT_EQ(colours()[3], preferred.at(0.375));
}

TEST_F(PointMeshColouringTest, HeightsAreThoseOfTheProjectsTransformedFrame) {
  // x becomes the height.
  tarn::MatrixDouble turn(3, 3);
  turn(1, 3) = 1.0;
  turn(2, 2) = 1.0;
  turn(3, 1) = -1.0;
  tarn::BasicAffine affine;
  affine.SetRotation(turn);
  affine.SetTranslation({0, 0, 0}, {0, 0, 1000});
  project.SetAffineTransform(&affine);
  // The x of the points: 1.5, 11, 4, -9.5.
  const auto share = [](double x) { return (x + 9.5) / 20.5; };
  for (const Rule rule : {Rule::eMeshes, Rule::eProject, Rule::eMesh}) {
    chooseRange(rule);
    node->ColorRange(1, &project);
    EXPECT_THAT(colours(), ElementsAre(ramp(share(1.5)), ramp(1), ramp(share(4)), ramp(0)))
        << static_cast<int>(rule);
  }
}

TEST_F(PointMeshColouringTest, HeightsAreThoseTheMeshStores) {
  tarn::gThreeDViewOffset = {1000, 2000, 3000};
  cloud.SetLocalAffine(shift(10, 20, 300));
  node->SetPointCloudPointMesh(&cloud, &dictionary);
  for (const Rule rule : {Rule::eMeshes, Rule::eMesh}) {
    chooseRange(rule);
    node->ColorRange(1, &project);
    EXPECT_EQ(colours(), ramps(-3.75, 20)) << static_cast<int>(rule);
  }
}

TEST_F(PointMeshColouringTest, TheWholeProjectsRangeHasItsStationsAndProcessedPoints) {
  struct AskedProject : tarn::Project {
    void GetProjectExtents(tarn::Extents& extents, tarn::BasicAffine*, int withStations,
                           int processedOnly) const override {
      EXPECT_EQ(withStations, 1);
      EXPECT_EQ(processedOnly, 1);
      extents = tarn::Extents({0, 0, -100}, {0, 0, 100});
    }
  } asked;
  chooseRange(Rule::eProject);
  node->ColorRange(1, &asked);
  EXPECT_EQ(colours(), ramps(-100, 100));
}

TEST_F(PointMeshColouringTest, ModeTwoColoursByHeight) {
  node->ColorPointsWithTexture(1, byHeight, &project);
  EXPECT_EQ(colours(), ramps(-3.75, 20));
}

TEST_F(PointMeshColouringTest, ModeTwoColoursAlsoWhenOff) {
  node->ColorPointsWithTexture(0, byHeight, &project);
  EXPECT_EQ(colours(), ramps(-3.75, 20));
}

TEST_F(PointMeshColouringTest, TheRampOffRemovesTheColours) {
  node->ColorRange(1, &project);
  node->ColorRange(0, &project);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->colorMaterial);
  EXPECT_FALSE(node->colorBinding);
}

TEST_F(PointMeshColouringTest, OneColouringFollowsTheOtherInTheSameNodes) {
  giveColours();
  node->ColorPointsWithTexture(1, trueColours, &project);
  const auto before = children(*node);
  node->ColorPointsWithTexture(1, byHeight, &project);
  EXPECT_EQ(children(*node), before);
  EXPECT_EQ(colours(), ramps(-3.75, 20));
}

TEST_F(PointMeshColouringTest, ALargeCloudHasTheColourOfEachHeight) {
  constexpr int count = 30000;
  cloud.Allocate(count, 0);
  for (int i = 0; i < 3 * count; ++i) {
    cloud.GetPointStorage()[static_cast<std::size_t>(i)] = static_cast<float>(std::sin(i) * 37.0);
  }
  node->SetPointCloudPointMesh(&cloud, &dictionary);
  node->ColorRange(1, &project);
  tarn::Point3DDouble low;
  tarn::Point3DDouble high;
  ASSERT_TRUE(cloud.GetBoundingBox(low, high, nullptr, 1));
  const auto result = colours();
  for (int i = 0; i < count; ++i) {
    const double z = cloud.GetPoints()[i][2];
    tarn::Colour host;
    host.SetAsHSL(0.0 + (0.8 - 0.0) * (z - low.z) / (high.z - low.z), 0.5, 0.5);
    ASSERT_EQ(result[static_cast<std::size_t>(i)], bytes(host.blue(), host.green(), host.red()))
        << i;
  }
}

// --- A host's own class of mesh

TEST_F(PointMeshColouringTest, AHostsOwnMeshIsColouredFromThePointersItHandsOut) {
  HostsMesh hosts;
  setPoints(hosts, points);
  node->SetPointCloudPointMesh(&hosts, &dictionary);
  EXPECT_EQ(node->pointPos->point[0], shown(hosts.position));
  node->ColorPointsWithTexture(1, trueColours, &project);
  EXPECT_THAT(colours(), ::testing::Each(bytes(30, 20, 10)));
  node->ColorRange(1, &project);
  EXPECT_THAT(colours(), ::testing::Each(ramp((5.5 + 3.75) / 23.75)));
  node->HighlightSubPoints(nullptr);
  EXPECT_EQ(node->subHighlight.material->diffuseColor[3], bytes(30, 20, 10));
  node.reset();
}

// --- Highlights

TEST_F(PointMeshColouringTest, AHighlightIsRecorded) {
  const auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  EXPECT_EQ(node->highlightOn, 1);
  node->Highlight(material.get(), 0);
  EXPECT_EQ(node->highlightOn, 0);
}

TEST_F(PointMeshColouringTest, AHighlightPaintsTheWholeCloudAndLeavesItsColoursAfterwards) {
  node->ColorRange(1, &project);
  const auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "Material", "MaterialBinding", "Coordinate3", "PointSet"));
  EXPECT_EQ(node->getChild(1), material.get());
  EXPECT_EQ(binding(), SoMaterialBinding::OVERALL);
  node->Highlight(material.get(), 0);
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
}

TEST_F(PointMeshColouringTest, ColouringAHighlightedNodeBindsOverall) {
  const auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  node->ColorRange(1, &project);
  EXPECT_EQ(binding(), SoMaterialBinding::OVERALL);
  node->Highlight(material.get(), 0);
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
  node->ColorRange(1, &project);
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
}

TEST_F(PointMeshColouringTest, WhileAnotherMaterialStaysTheCloudIsPaintedWhole) {
  node->ColorRange(1, &project);
  const auto first = makeNode<TarnOIMaterialWithPriority>();
  const auto second = makeNode<TarnOIMaterialWithPriority>();
  node->Highlight(first.get(), 1);
  node->Highlight(second.get(), 1);
  node->Highlight(second.get(), 0);
  EXPECT_EQ(binding(), SoMaterialBinding::OVERALL);
  node->Highlight(first.get(), 0);
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
}

TEST_F(PointMeshColouringTest, AFaceSetThatIsRememberedBindsOverall) {
  node->ColorRange(1, &project);
  node->faceSet = makeNode<SoIndexedFaceSet>();
  node->Highlight(nullptr, 0);
  EXPECT_EQ(binding(), SoMaterialBinding::OVERALL);
}

TEST_F(PointMeshColouringTest, WithoutAnyMaterialTheBindingIsOverall) {
  node->ColorRange(1, &project);
  node->removeChild(node->colorMaterial.get());
  node->Highlight(nullptr, 0);
  EXPECT_EQ(binding(), SoMaterialBinding::OVERALL);
}

TEST_F(PointMeshColouringTest, AHighlightWithoutColoursNeedsNoBinding) {
  const auto material = makeNode<SoMaterial>();
  node->Highlight(material.get(), 1);
  EXPECT_FALSE(node->colorBinding);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Coordinate3", "PointSet"));
}
