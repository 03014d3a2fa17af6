#include "nodes/hud/TarnOIColorizeScaleHUD.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoText2.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/model/Project.h"
#include "tests/support/TarnTest.h"

#include <string>
#include <vector>

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class TarnOIColorizeScaleHUDTest : public TarnTest {
protected:
  using Texts = std::vector<std::string>;

  static SoSwitch* switchOf(const TarnOIColorizeScaleHUD& hud) {
    return static_cast<SoSwitch*>(hud.getChild(0));
  }
  static SoSeparator* separatorOf(const TarnOIColorizeScaleHUD& hud) {
    return static_cast<SoSeparator*>(switchOf(hud)->getChild(0));
  }
  template <typename Node>
  static Node* part(const TarnOIColorizeScaleHUD& hud, int index) {
    SoNode* node = separatorOf(hud)->getChild(index);
    EXPECT_EQ(node->getTypeId(), Node::getClassTypeId());
    return static_cast<Node*>(node);
  }
  /// From below.
  static Texts textsOf(const TarnOIColorizeScaleHUD& hud) {
    Texts texts;
    for (const int index : {7, 10, 13}) {
      const SoText2* text = part<SoText2>(hud, index);
      EXPECT_EQ(text->string.getNum(), 1);
      texts.emplace_back(text->string[0].getString());
    }
    return texts;
  }
  /// The ramp's colour of a hue by the host's own routine, red and blue exchanged.
  static SbColor exchanged(double hue, double saturation = 0.5, double lightness = 0.5) {
    tarn::Colour colour;
    colour.SetAsHSL(hue, saturation, lightness);
    return {static_cast<float>(colour.blue() / 255.0), static_cast<float>(colour.green() / 255.0),
            static_cast<float>(colour.red() / 255.0)};
  }
  void addMesh(double lowest, double highest) {
    tarn::PointMesh& mesh = project.AddPointMesh();
    mesh.Allocate(2, 0);
    mesh.GetPoints()[0][0] = 1.0F;
    mesh.GetPoints()[0][1] = 2.0F;
    mesh.GetPoints()[0][2] = static_cast<float>(lowest);
    mesh.GetPoints()[1][0] = 3.0F;
    mesh.GetPoints()[1][1] = 4.0F;
    mesh.GetPoints()[1][2] = static_cast<float>(highest);
  }
  void addObjectPoint(const tarn::Point3DDouble& position) {
    tarn::ObjectPoint& point = project.AddObjectPoint();
    point.SetApproximation(tarn::Point3DRandom(position));
    point.SetProcessed(1);
  }
  void update(TarnOIColorizeScaleHUD::eRangeType type = TarnOIColorizeScaleHUD::eHeightRange) {
    hud->UpdateRangeLables(&project, type);
  }

  tarn::Project project;
  NodeRef<TarnOIColorizeScaleHUD> hud = makeNode<TarnOIColorizeScaleHUD>();
};

TEST_F(TarnOIColorizeScaleHUDTest, ItsOnlyChildIsAHiddenSwitchOverASeparator) {
  ASSERT_EQ(hud->getNumChildren(), 1);
  ASSERT_EQ(hud->getChild(0)->getTypeId(), SoSwitch::getClassTypeId());
  EXPECT_EQ(switchOf(*hud)->whichChild.getValue(), -1);
  ASSERT_EQ(switchOf(*hud)->getNumChildren(), 1);
  EXPECT_EQ(switchOf(*hud)->getChild(0)->getTypeId(), SoSeparator::getClassTypeId());
  EXPECT_EQ(separatorOf(*hud)->getNumChildren(), 14);
}

TEST_F(TarnOIColorizeScaleHUDTest, TheBarHasOneHundredAndOneVertices) {
  const auto* coordinates = part<SoCoordinate3>(*hud, 0);
  ASSERT_EQ(coordinates->point.getNum(), 101);
  EXPECT_EQ(coordinates->point[0], SbVec3f(0.9F, 0.1F, 0.0F));
  EXPECT_EQ(coordinates->point[37], SbVec3f(0.9F, static_cast<float>(0.1 + 0.008 * 37), 0.0F));
  EXPECT_EQ(coordinates->point[100], SbVec3f(0.9F, 0.9F, 0.0F));
}

TEST_F(TarnOIColorizeScaleHUDTest, TheLineRunsThroughTheFirstHundredVertices) {
  const auto* line = part<SoLineSet>(*hud, 4);
  EXPECT_EQ(line->numVertices.getNum(), 1);
  EXPECT_EQ(line->numVertices[0], 100);
}

TEST_F(TarnOIColorizeScaleHUDTest, ColourIStandsAtIPercentOfTheHuesWithRedAndBlueExchanged) {
  const auto* material = part<SoMaterial>(*hud, 1);
  ASSERT_EQ(material->diffuseColor.getNum(), 100);
  for (int i = 0; i < 100; ++i)
    EXPECT_EQ(material->diffuseColor[i], exchanged(i * 0.01 * 0.8)) << i;
  // The lowest hue is red, and so drawn blue.
  EXPECT_GT(material->diffuseColor[0][2], material->diffuseColor[0][0]);
}

TEST_F(TarnOIColorizeScaleHUDTest, TheRampFollowsItsPreferencesOfTheTimeOfConstruction) {
  preferences.Set("StartHue", "0.1", "FalseColor");
  preferences.Set("EndHue", "0.6", "FalseColor");
  preferences.Set("S", "0.75", "DenseStereo");
  preferences.Set("L", "0.25", "DenseStereo");
  const auto later = makeNode<TarnOIColorizeScaleHUD>();
  const auto* material = part<SoMaterial>(*later, 1);
  EXPECT_EQ(material->diffuseColor[0], exchanged(0.1, 0.75, 0.25));
  EXPECT_EQ(material->diffuseColor[99], exchanged(0.1 + 99 * 0.01 * (0.6 - 0.1), 0.75, 0.25));
  EXPECT_EQ(part<SoMaterial>(*later, 12)->diffuseColor[0],
            exchanged(0.1 + 99 * 0.01 * (0.6 - 0.1), 0.75, 0.25));
  hud->ShowColorizeScale(1);
  EXPECT_EQ(part<SoMaterial>(*hud, 1)->diffuseColor[99], exchanged(99 * 0.01 * 0.8));
}

TEST_F(TarnOIColorizeScaleHUDTest, EachSegmentHasAColour) {
  EXPECT_EQ(part<SoMaterialBinding>(*hud, 2)->value.getValue(), SoMaterialBinding::PER_PART);
}

TEST_F(TarnOIColorizeScaleHUDTest, TheLineIsThreePixelsWideUnlessThePreferenceSaysOtherwise) {
  EXPECT_EQ(part<SoDrawStyle>(*hud, 3)->lineWidth.getValue(), 3.0F);
  preferences.Set("LineWidth", "7", "ColorizeScale");
  const auto later = makeNode<TarnOIColorizeScaleHUD>();
  EXPECT_EQ(part<SoDrawStyle>(*later, 3)->lineWidth.getValue(), 7.0F);
}

TEST_F(TarnOIColorizeScaleHUDTest, TheLabelsStandBesideTheBarInTheColoursOfTheirEnds) {
  EXPECT_EQ(part<SoTranslation>(*hud, 5)->translation.getValue(), SbVec3f(0.9F, 0.08F, 0.0F));
  EXPECT_EQ(part<SoTranslation>(*hud, 8)->translation.getValue(), SbVec3f(0.0F, 0.4F, 0.0F));
  EXPECT_EQ(part<SoTranslation>(*hud, 11)->translation.getValue(), SbVec3f(0.0F, 0.4F, 0.0F));
  EXPECT_EQ(part<SoMaterial>(*hud, 6)->diffuseColor[0], exchanged(0.0));
  EXPECT_EQ(part<SoMaterial>(*hud, 9)->diffuseColor[0], exchanged(50 * 0.01 * 0.8));
  EXPECT_EQ(part<SoMaterial>(*hud, 12)->diffuseColor[0], exchanged(99 * 0.01 * 0.8));
}

TEST_F(TarnOIColorizeScaleHUDTest, AfterConstructionOnlyTheBottomLabelReads) {
  EXPECT_THAT(textsOf(*hud), ElementsAre("  0.0", "", ""));
}

TEST_F(TarnOIColorizeScaleHUDTest, ShowsAllOfTheLegendAndHidesIt) {
  hud->ShowColorizeScale(256);
  EXPECT_EQ(switchOf(*hud)->whichChild.getValue(), -3);
  hud->ShowColorizeScale(0);
  EXPECT_EQ(switchOf(*hud)->whichChild.getValue(), -1);
}

TEST_F(TarnOIColorizeScaleHUDTest, WhatIsNotAllowedIsHidden) {
  hud->ShowColorizeScale(1);
  preferences.Set("AllowColorizeScale", "0", "ColorizeScale");
  hud->ShowColorizeScale(1);
  EXPECT_EQ(switchOf(*hud)->whichChild.getValue(), -1);
  preferences.Set("AllowColorizeScale", "1", "ColorizeScale");
  hud->ShowColorizeScale(1);
  EXPECT_EQ(switchOf(*hud)->whichChild.getValue(), -3);
}

TEST_F(TarnOIColorizeScaleHUDTest, WithoutAProjectTheLabelsAreEmpty) {
  hud->UpdateRangeLables(nullptr, TarnOIColorizeScaleHUD::eHeightRange);
  EXPECT_THAT(textsOf(*hud), ElementsAre("", "", ""));
}

TEST_F(TarnOIColorizeScaleHUDTest, HeightsAreThoseOfThePointMeshes) {
  addMesh(-2.5, 10.0);
  addMesh(3.0, 41.125);
  addObjectPoint({0.0, 0.0, 500.0});
  update();
  EXPECT_THAT(textsOf(*hud), ElementsAre(" -2.50", " 19.31", " 41.12"));
}

TEST_F(TarnOIColorizeScaleHUDTest, WithoutMeshesTheLabelsOfHeightsAreEmpty) {
  addObjectPoint({0.0, 0.0, 500.0});
  update();
  EXPECT_THAT(textsOf(*hud), ElementsAre("", "", ""));
}

TEST_F(TarnOIColorizeScaleHUDTest, HeightsOfTheProjectAreThoseOfAllThatItHolds) {
  addMesh(-2.5, 10.0);
  addObjectPoint({0.0, 0.0, 500.0});
  preferences.Set("UseMeshExtentsForHueRange", "0", "DenseStereo");
  update();
  EXPECT_THAT(textsOf(*hud), ElementsAre(" -2.50", " 248.75", " 500.00"));
}

TEST_F(TarnOIColorizeScaleHUDTest, WithNeitherExtentsTheRangeIsZero) {
  addMesh(-2.5, 10.0);
  preferences.Set("UseMeshExtentsForHueRange", "0", "DenseStereo");
  preferences.Set("UseProjectExtentsForHueRange", "0", "DenseStereo");
  update();
  EXPECT_THAT(textsOf(*hud), ElementsAre(" 0.00", " 0.00", " 0.00"));
}

TEST_F(TarnOIColorizeScaleHUDTest, HeightsGoThroughTheProjectsAffineAndUnits) {
  addMesh(1.0, 3.0);
  tarn::BasicAffine affine;
  affine.SetScale(2.0);
  affine.SetTranslation({0.0, 0.0, 10.0}, {0.0, 0.0, 0.0});
  project.SetAffineTransform(&affine);
  tarn::Units centimetres;
  centimetres.SetUnit("cm");
  project.SetUnits(centimetres);
  update();
  EXPECT_THAT(textsOf(*hud), ElementsAre(" 1200.00", " 1400.00", " 1600.00"));
}

TEST_F(TarnOIColorizeScaleHUDTest, PhotographsAreCountedFromTheLeastNumberAsked) {
  tarn::CameraStation station;
  station.SetOriented(1);
  for (int i = 0; i < 12; ++i) project.GetPhotoCollection()->Add().SetCameraStation(&station);
  project.GetPhotoCollection()->Add();
  update(TarnOIColorizeScaleHUD::ePhotoOverlapRange);
  EXPECT_THAT(textsOf(*hud), ElementsAre(" 0.00", " 6.00", " 12.00"));
  preferences.Set("MinNumPhotoRange", "3", "PhotoOverlap");
  update(TarnOIColorizeScaleHUD::ePhotoOverlapRange);
  EXPECT_THAT(textsOf(*hud), ElementsAre(" 3.00", " 7.50", " 12.00"));
}

TEST_F(TarnOIColorizeScaleHUDTest, AnUnknownRangeIsReportedAndWrittenAsZero) {
  addMesh(-2.5, 10.0);
  update(static_cast<TarnOIColorizeScaleHUD::eRangeType>(2));
  const auto reports = takeAssertions();
  ASSERT_EQ(reports.size(), 1U);
  EXPECT_EQ(reports[0].condition, "0");
  EXPECT_EQ(reports[0].file, "TarnOIColorizeScaleHUD");
  EXPECT_EQ(reports[0].line, 220);
  EXPECT_THAT(textsOf(*hud), ElementsAre(" 0.00", " 0.00", " 0.00"));
}

TEST_F(TarnOIColorizeScaleHUDTest, ACopyMadeByCoinHasItsOwnLegend) {
  addMesh(1.0, 3.0);
  const NodeRef<TarnOIColorizeScaleHUD> copy(static_cast<TarnOIColorizeScaleHUD*>(hud->copy()));
  ASSERT_EQ(copy->getNumChildren(), 1);
  copy->ShowColorizeScale(1);
  copy->UpdateRangeLables(&project, TarnOIColorizeScaleHUD::eHeightRange);
  EXPECT_THAT(textsOf(*copy), ElementsAre(" 1.00", " 2.00", " 3.00"));
  EXPECT_EQ(switchOf(*copy)->whichChild.getValue(), -3);
  EXPECT_THAT(textsOf(*hud), ElementsAre("  0.0", "", ""));
  EXPECT_EQ(switchOf(*hud)->whichChild.getValue(), -1);
}

TEST_F(TarnOIColorizeScaleHUDTest, CopyConstructionSharesTheLegend) {
  const auto copy = makeNode<TarnOIColorizeScaleHUD>(*hud);
  copy->ShowColorizeScale(1);
  EXPECT_EQ(switchOf(*hud)->whichChild.getValue(), -3);
}

TEST_F(TarnOIColorizeScaleHUDTest, ReadsItsPreferencesByKeySectionAndDefault) {
  preferences.takeReads();
  using Read = PreferenceRead;
  const auto later = makeNode<TarnOIColorizeScaleHUD>();
  EXPECT_THAT(
      preferences.takeReads(),
      UnorderedElementsAre(Read{Read::eDouble, "StartHue", "0", "FalseColor"},
                           Read{Read::eDouble, "EndHue", "0.80000000000000004", "FalseColor"},
                           Read{Read::eDouble, "S", "0.5", "DenseStereo"},
                           Read{Read::eDouble, "L", "0.5", "DenseStereo"},
                           Read{Read::eInt, "LineWidth", "3", "ColorizeScale"}));
  later->ShowColorizeScale(1);
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eBool, "AllowColorizeScale", "1", "ColorizeScale"}));
  preferences.Set("UseMeshExtentsForHueRange", "0", "DenseStereo");
  later->UpdateRangeLables(&project, TarnOIColorizeScaleHUD::eHeightRange);
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eBool, "UseMeshExtentsForHueRange", "1", "DenseStereo"},
                          Read{Read::eBool, "UseProjectExtentsForHueRange", "1", "DenseStereo"}));
  preferences.Set("UseMeshExtentsForHueRange", "1", "DenseStereo");
  later->UpdateRangeLables(&project, TarnOIColorizeScaleHUD::eHeightRange);
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eBool, "UseMeshExtentsForHueRange", "1", "DenseStereo"}));
  later->UpdateRangeLables(&project, TarnOIColorizeScaleHUD::ePhotoOverlapRange);
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eInt, "MinNumPhotoRange", "0", "PhotoOverlap"}));
}
