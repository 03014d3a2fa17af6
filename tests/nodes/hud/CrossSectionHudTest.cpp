// What the cutter and the profile have in common.
#include "tests/nodes/hud/CrossSectionFixture.h"

#include <cmath>

namespace {

// The two set their second point alike but for the cutter's box.
void setSecond(TarnOIDSMCutterHUD& hud, int px, int py, int width, int height, int snap) {
  hud.SetSecondPos(px, py, width, height, snap, 0);
}
void setSecond(TarnOIDSMProfileHUD& hud, int px, int py, int width, int height, int snap) {
  hud.SetSecondPos(px, py, width, height, snap);
}

constexpr int planeLine(const TarnOIDSMCutterHUD&) { return 264; }
constexpr int planeLine(const TarnOIDSMProfileHUD&) { return 238; }

float ndc(int pixel, int size) {
  return static_cast<float>(
      static_cast<double>(static_cast<float>(pixel) / static_cast<float>(size)) * 2.0 - 1.0);
}

}  // namespace

template <typename Hud>
class CrossSectionHudTest : public TarnTest {
protected:
  // In a viewport of 2000 x 2000 pixels a pixel is 0.001; the first point is its middle.
  void dragTo(int dx, int dy, int snap = 1) {
    hud->SetFirstPos(1000, 1000, 2000, 2000);
    setSecond(*hud, 1000 + dx, 1000 + dy, 2000, 2000, snap);
  }
  SbVec3f drawnSecond() const { return MarkChildren(*hud).vertices().at(1); }
  void expectSecond(double x, double y) const {
    EXPECT_NEAR(drawnSecond()[0], x, 1e-6);
    EXPECT_NEAR(drawnSecond()[1], y, 1e-6);
    EXPECT_EQ(drawnSecond()[2], 0.0F);
  }

  NodeRef<Hud> hud = makeNode<Hud>();
};

using Huds = ::testing::Types<TarnOIDSMCutterHUD, TarnOIDSMProfileHUD>;
TYPED_TEST_SUITE(CrossSectionHudTest, Huds);

TYPED_TEST(CrossSectionHudTest, TheMarkIsHiddenAtFirst) {
  ASSERT_EQ(this->hud->getNumChildren(), 1);
  ASSERT_TRUE(this->hud->getChild(0)->isOfType(SoSwitch::getClassTypeId()));
  EXPECT_EQ(MarkChildren(*this->hud).overlay->whichChild.getValue(), SO_SWITCH_NONE);
  EXPECT_EQ(this->hud->HasFirstPoint(), 0);
}

TYPED_TEST(CrossSectionHudTest, UnderTheSwitchStandCameraMaterialCoordinatesAndLines) {
  const MarkChildren mark(*this->hud);
  ASSERT_EQ(mark.overlay->getNumChildren(), 1);
  ASSERT_EQ(mark.separator->getTypeId(), SoSeparator::getClassTypeId());
  ASSERT_EQ(mark.separator->getNumChildren(), 4);
  EXPECT_EQ(mark.camera->getTypeId(), SoOrthographicCamera::getClassTypeId());
  EXPECT_EQ(mark.material->getTypeId(), SoMaterial::getClassTypeId());
  EXPECT_EQ(mark.coordinates->getTypeId(), SoCoordinate3::getClassTypeId());
  EXPECT_EQ(mark.lines->getTypeId(), SoLineSet::getClassTypeId());
  EXPECT_EQ(mark.coordinates->point.getNum(), 0);
  ASSERT_EQ(mark.lines->numVertices.getNum(), 1);
  EXPECT_EQ(mark.lines->numVertices[0], 2);
}

TYPED_TEST(CrossSectionHudTest, ItsCameraIsLeftAloneAndShowsNormalisedDeviceCoordinates) {
  const auto* camera = static_cast<SoOrthographicCamera*>(MarkChildren(*this->hud).camera);
  EXPECT_EQ(camera->viewportMapping.getValue(), SoCamera::LEAVE_ALONE);
  const SbViewVolume volume = camera->getViewVolume();
  SbVec3f corner;
  volume.projectToScreen(SbVec3f(1.0F, -1.0F, 0.0F), corner);
  EXPECT_NEAR(corner[0], 1.0F, 1e-6F);
  EXPECT_NEAR(corner[1], 0.0F, 1e-6F);
}

TYPED_TEST(CrossSectionHudTest, TheColourIsReadOnceAtConstruction) {
  const auto colour = [](const TypeParam& hud) {
    return static_cast<SoMaterial*>(MarkChildren(hud).material)->diffuseColor[0];
  };
  EXPECT_EQ(colour(*this->hud),
            SbColor(static_cast<float>(200 / 255.0), static_cast<float>(10 / 255.0),
                    static_cast<float>(10 / 255.0)));
  this->preferences.Set("CrossSectionColor(RRRGGGBBB_0-255)", "044155066", "DenseStereo");
  this->dragTo(300, 200);
  EXPECT_NEAR(colour(*this->hud)[0], 200 / 255.0, 1e-6);
  const auto later = makeNode<TypeParam>();
  EXPECT_EQ(colour(*later), SbColor(static_cast<float>(44 / 255.0), static_cast<float>(155 / 255.0),
                                    static_cast<float>(66 / 255.0)));
}

TYPED_TEST(CrossSectionHudTest, ReadsNoOtherPreference) {
  this->preferences.takeReads();
  const auto later = makeNode<TypeParam>();
  later->SetFirstPos(300, 200, 800, 600);
  setSecond(*later, 310, 220, 800, 600, 1);
  using Read = PreferenceRead;
  EXPECT_THAT(this->preferences.takeReads(),
              ::testing::ElementsAre(Read{Read::eColour, "CrossSectionColor(RRRGGGBBB_0-255)",
                                          "200010010", "DenseStereo"}));
}

TYPED_TEST(CrossSectionHudTest, TheFirstPointIsRememberedAndDrawsNothing) {
  this->hud->SetFirstPos(300, 200, 800, 600);
  EXPECT_EQ(this->hud->HasFirstPoint(), 1);
  EXPECT_EQ(MarkChildren(*this->hud).overlay->whichChild.getValue(), SO_SWITCH_NONE);
  EXPECT_EQ(MarkChildren(*this->hud).coordinates->point.getNum(), 0);
}

TYPED_TEST(CrossSectionHudTest, WithoutSnapTheLineRunsBetweenBothPixels) {
  this->hud->SetFirstPos(300, 200, 811, 607);
  setSecond(*this->hud, 77, 501, 811, 607, 0);
  const MarkChildren mark(*this->hud);
  EXPECT_EQ(mark.overlay->whichChild.getValue(), SO_SWITCH_ALL);
  EXPECT_THAT(mark.vertices(), ::testing::ElementsAre(SbVec3f(ndc(300, 811), ndc(200, 607), 0.0F),
                                                      SbVec3f(ndc(77, 811), ndc(501, 607), 0.0F)));
  EXPECT_EQ(mark.lines->numVertices[0], 2);
}

TYPED_TEST(CrossSectionHudTest, TheMarkFollowsThePointer) {
  this->dragTo(300, 200, 0);
  setSecond(*this->hud, 10, 20, 2000, 2000, 0);
  EXPECT_THAT(MarkChildren(*this->hud).vertices(),
              ::testing::ElementsAre(SbVec3f(ndc(1000, 2000), ndc(1000, 2000), 0.0F),
                                     SbVec3f(ndc(10, 2000), ndc(20, 2000), 0.0F)));
}

TYPED_TEST(CrossSectionHudTest, SnapsToTheHorizontal) {
  this->dragTo(400, 100);
  this->expectSecond(0.4, 0.0);
  this->dragTo(-400, 100);
  this->expectSecond(-0.4, 0.0);
  this->dragTo(-400, -100);
  this->expectSecond(-0.4, 0.0);
}

TYPED_TEST(CrossSectionHudTest, SnapsToTheVertical) {
  this->dragTo(100, 400);
  this->expectSecond(0.0, 0.4);
  this->dragTo(-100, -400);
  this->expectSecond(0.0, -0.4);
}

TYPED_TEST(CrossSectionHudTest, ADiagonalIsAsLongAsTheSmallerDifference) {
  this->dragTo(400, 300);
  this->expectSecond(0.3, 0.3);
}

TYPED_TEST(CrossSectionHudTest, AThirtyDegreeDragBecomesADiagonal) {
  this->dragTo(866, 500);
  this->expectSecond(0.5, 0.5);
}

// Of 0.4 and -0.3 the smaller is -0.3, of 0.3 and -0.4 it is -0.4.
TYPED_TEST(CrossSectionHudTest, TheSmallerDifferenceIsThatOfTheSignedOnes) {
  this->dragTo(400, -300);
  this->expectSecond(0.3, -0.3);
  this->dragTo(300, -400);
  this->expectSecond(0.4, -0.4);
  this->dragTo(-300, 400);
  this->expectSecond(-0.3, 0.3);
  this->dragTo(-400, 300);
  this->expectSecond(-0.4, 0.4);
  this->dragTo(-300, -400);
  this->expectSecond(-0.4, -0.4);
  this->dragTo(-400, -300);
  this->expectSecond(-0.4, -0.4);
}

TYPED_TEST(CrossSectionHudTest, From337AndAHalfDegreesOnTheLineIsHorizontal) {
  this->dragTo(500, -88);  // 350 degrees
  this->expectSecond(0.5, 0.0);
  this->dragTo(500, -206);  // 337.6 degrees
  this->expectSecond(0.5, 0.0);
  this->dragTo(500, -208);  // 337.4 degrees
  this->expectSecond(0.208, -0.208);
}

TYPED_TEST(CrossSectionHudTest, EachEighthOfTheCircleBeginsInTheMiddleBetweenTwoDirections) {
  this->dragTo(500, 206);  // 22.4 degrees
  this->expectSecond(0.5, 0.0);
  this->dragTo(500, 208);  // 22.6 degrees
  this->expectSecond(0.208, 0.208);
}

TYPED_TEST(CrossSectionHudTest, ASecondPointOnTheFirstMovesATenthOfAThousandthToTheRight) {
  this->dragTo(0, 0, 0);
  EXPECT_EQ(this->drawnSecond(), SbVec3f(0.0001F, 0.0F, 0.0F));
}

TYPED_TEST(CrossSectionHudTest, ASecondPointThatSnapsOntoTheFirstMovesToo) {
  this->hud->SetFirstPos(700, 1000, 2000, 2000);
  setSecond(*this->hud, 700, 1000, 2000, 2000, 1);
  EXPECT_EQ(this->drawnSecond(),
            SbVec3f(static_cast<float>(static_cast<double>(ndc(700, 2000)) + 0.0001), 0.0F, 0.0F));
}

TYPED_TEST(CrossSectionHudTest, ASecondPointCloseToTheFirstStays) {
  this->hud->SetFirstPos(1000, 1000, 2000, 2000);
  setSecond(*this->hud, 10001, 10000, 20000, 20000, 0);
  EXPECT_EQ(this->drawnSecond(), SbVec3f(ndc(10001, 20000), 0.0F, 0.0F));
}

TYPED_TEST(CrossSectionHudTest, AnUnknownViewportMappingIsReported) {
  ViewedModel model({"", true});
  model.camera->viewportMapping.setValue(77);
  this->dragTo(300, 200);
  const std::unique_ptr<tarn::Plane3D> plane(this->hud->GetCrossSectionPlane(
      model.camera.get(), &model.extents, model.viewport, model.matrix));
  EXPECT_TRUE(plane);
  const auto reports = this->takeAssertions();
  ASSERT_EQ(reports.size(), 1U);
  EXPECT_EQ(reports[0].condition, "0 && \"unknown viewport mapping\"");
  EXPECT_EQ(reports[0].line, planeLine(*this->hud));
}

TYPED_TEST(CrossSectionHudTest, WithoutExtentsThereIsNoPlane) {
  ViewedModel model({"", true});
  tarn::Extents empty;
  this->dragTo(300, 200);
  EXPECT_FALSE(
      this->hud->GetCrossSectionPlane(model.camera.get(), &empty, model.viewport, model.matrix));
  EXPECT_FALSE(
      this->hud->GetCrossSectionPlane(model.camera.get(), nullptr, model.viewport, model.matrix));
  EXPECT_FALSE(
      this->hud->GetCrossSectionPlane(nullptr, &model.extents, model.viewport, model.matrix));
}

TYPED_TEST(CrossSectionHudTest, ACopyMadeByCoinDrawsForItself) {
  this->dragTo(300, 200, 0);
  const NodeRef<TypeParam> copy(static_cast<TypeParam*>(this->hud->copy()));
  ASSERT_EQ(copy->getNumChildren(), 1);
  EXPECT_EQ(copy->HasFirstPoint(), 1);
  EXPECT_NE(MarkChildren(*copy).coordinates, MarkChildren(*this->hud).coordinates);
  setSecond(*copy, 10, 20, 2000, 2000, 0);
  EXPECT_EQ(MarkChildren(*copy).vertices().at(1), SbVec3f(ndc(10, 2000), ndc(20, 2000), 0.0F));
  this->expectSecond(0.3, 0.2);
}

TYPED_TEST(CrossSectionHudTest, CopyConstructionSharesTheMark) {
  this->dragTo(300, 200, 0);
  const auto copy = makeNode<TypeParam>(*this->hud);
  EXPECT_EQ(copy->HasFirstPoint(), 1);
  setSecond(*copy, 1500, 1250, 2000, 2000, 0);
  this->expectSecond(0.5, 0.25);
}

template <typename Hud>
class CrossSectionGeometry : public CrossSectionHudTest<Hud> {
protected:
  // In pixels of a viewport of 1000 x 1000, whatever the viewport's real proportions are.
  void expectDrawnLineLiesInItsPlane(const CrossSectionView& view) {
    SCOPED_TRACE(view.name);
    ViewedModel model(view);
    this->hud->SetFirstPos(210, 330, 1000, 1000);
    setSecond(*this->hud, 850, 720, 1000, 1000, 0);
    const std::unique_ptr<tarn::Plane3D> plane(this->hud->GetCrossSectionPlane(
        model.camera.get(), &model.extents, model.viewport, model.matrix));
    ASSERT_TRUE(plane);
    for (const float along : {0.0F, 0.25F, 0.5F, 1.0F}) {
      for (const float depth : {-0.9F, 0.0F, 0.5F, 0.8F}) {
        const float x = ndc(210, 1000) + along * (ndc(850, 1000) - ndc(210, 1000));
        const float y = ndc(330, 1000) + along * (ndc(720, 1000) - ndc(330, 1000));
        EXPECT_NEAR(plane->GetSignedDistance(model.drawnAt(x, y, depth)), 0.0, 2e-3)
            << along << ' ' << depth;
      }
    }
    // And a point that is not on the line does not.
    EXPECT_GT(std::abs(plane->GetSignedDistance(model.drawnAt(0.6F, -0.5F, 0.5F))), 5.0);
  }
};
TYPED_TEST_SUITE(CrossSectionGeometry, Huds);

TYPED_TEST(CrossSectionGeometry, WhatIsDrawnOnTheLineLiesInThePlane) {
  for (const CrossSectionView& view : crossSectionViews())
    this->expectDrawnLineLiesInItsPlane(view);
}
