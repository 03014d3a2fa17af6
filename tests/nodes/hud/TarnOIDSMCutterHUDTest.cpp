#include "nodes/hud/TarnOIDSMCutterHUD.h"

#include "host/classes/VOrdCollect.h"
#include "tests/nodes/hud/CrossSectionFixture.h"

#include <array>

using ::testing::ElementsAre;

class TarnOIDSMCutterHUDTest : public TarnTest {
protected:
  using Planes = std::vector<std::unique_ptr<tarn::Plane3D>>;

  // Corners in thousandths of the viewport.
  void drawBox(int x0, int y0, int x1, int y1, int snap = 0) {
    cutter->SetFirstPos(x0, y0, 1000, 1000);
    cutter->SetSecondPos(x1, y1, 1000, 1000, snap, 1);
  }
  Planes boxPlanes(ViewedModel& model) {
    const std::unique_ptr<tarn::VOrdCollect> collection(
        cutter->GetBoxPlanes(model.camera.get(), &model.extents, model.viewport, model.matrix));
    Planes planes;
    for (int i = 0; i < collection->size(); ++i) {
      planes.emplace_back(static_cast<tarn::Plane3D*>(collection->at(i)));
    }
    return planes;
  }

  NodeRef<TarnOIDSMCutterHUD> cutter = makeNode<TarnOIDSMCutterHUD>();
};

TEST_F(TarnOIDSMCutterHUDTest, ABoxIsAClosedLineOfFiveVertices) {
  drawBox(750, 250, 500, 625);
  const MarkChildren mark(*cutter);
  EXPECT_THAT(mark.vertices(), ElementsAre(SbVec3f(0.0F, -0.5F, 0.0F), SbVec3f(0.5F, -0.5F, 0.0F),
                                           SbVec3f(0.5F, 0.25F, 0.0F), SbVec3f(0.0F, 0.25F, 0.0F),
                                           SbVec3f(0.0F, -0.5F, 0.0F)));
  ASSERT_EQ(mark.lines->numVertices.getNum(), 1);
  EXPECT_EQ(mark.lines->numVertices[0], 5);
  EXPECT_EQ(mark.overlay->whichChild.getValue(), SO_SWITCH_ALL);
}

TEST_F(TarnOIDSMCutterHUDTest, ABoxIgnoresSnap) {
  drawBox(500, 500, 1000, 625, 1);
  EXPECT_EQ(MarkChildren(*cutter).vertices().at(2)[1], 0.25F);
}

TEST_F(TarnOIDSMCutterHUDTest, ALineAfterABoxHasTwoVerticesAgain) {
  drawBox(250, 250, 500, 625);
  cutter->SetSecondPos(750, 750, 1000, 1000, 0, 0);
  const MarkChildren mark(*cutter);
  EXPECT_EQ(mark.coordinates->point.getNum(), 2);
  ASSERT_EQ(mark.lines->numVertices.getNum(), 1);
  EXPECT_EQ(mark.lines->numVertices[0], 2);
}

TEST_F(TarnOIDSMCutterHUDTest, ABoxOfOnePixelIsATenthOfAThousandthWide) {
  drawBox(500, 500, 500, 500);
  EXPECT_THAT(MarkChildren(*cutter).vertices(),
              ElementsAre(SbVec3f(0.0F, 0.0F, 0.0F), SbVec3f(0.0001F, 0.0F, 0.0F),
                          SbVec3f(0.0001F, 0.0F, 0.0F), SbVec3f(0.0F, 0.0F, 0.0F),
                          SbVec3f(0.0F, 0.0F, 0.0F)));
}

TEST_F(TarnOIDSMCutterHUDTest, ResetEmptiesAndHidesTheMarkAndForgetsTheFirstPoint) {
  drawBox(250, 250, 500, 625);
  cutter->ResetCutter();
  const MarkChildren mark(*cutter);
  EXPECT_EQ(mark.coordinates->point.getNum(), 0);
  EXPECT_EQ(mark.overlay->whichChild.getValue(), SO_SWITCH_NONE);
  EXPECT_EQ(cutter->HasFirstPoint(), 0);
}

TEST_F(TarnOIDSMCutterHUDTest, ThePlanesOfABoxComeInTheOrderOfItsSides) {
  ViewedModel model({"", true});
  drawBox(200, 300, 800, 600);
  const Planes planes = boxPlanes(model);
  ASSERT_EQ(planes.size(), 4U);
  // Left, bottom, top, right: a point of the middle of each side.
  const std::array<SbVec2f, 4> onSides = {SbVec2f(-0.6F, -0.1F), SbVec2f(0.1F, -0.4F),
                                          SbVec2f(0.1F, 0.2F), SbVec2f(0.6F, -0.1F)};
  for (std::size_t side = 0; side < 4; ++side) {
    for (std::size_t plane = 0; plane < 4; ++plane) {
      const double distance =
          planes[plane]->GetSignedDistance(model.drawnAt(onSides[side][0], onSides[side][1], 0.5F));
      if (side == plane) {
        EXPECT_NEAR(distance, 0.0, 2e-3) << side;
      } else {
        EXPECT_GT(std::abs(distance), 1.0) << side << ' ' << plane;
      }
    }
  }
}

TEST_F(TarnOIDSMCutterHUDTest, WhatIsDrawnInsideTheBoxIsOnTheInnerSideOfAllFourPlanes) {
  for (const CrossSectionView& view : crossSectionViews()) {
    SCOPED_TRACE(view.name);
    ViewedModel model(view);
    drawBox(200, 300, 800, 600);
    const Planes planes = boxPlanes(model);
    ASSERT_EQ(planes.size(), 4U);
    // Drawn from the lower left, the normals point out of the box.
    for (const auto& [x, y] :
         {std::pair(-0.59F, -0.39F), std::pair(0.59F, -0.39F), std::pair(0.59F, 0.19F),
          std::pair(-0.59F, 0.19F), std::pair(0.0F, 0.0F)}) {
      for (const auto& plane : planes) {
        EXPECT_LT(plane->GetSignedDistance(model.drawnAt(x, y, 0.5F)), 0.0) << x << ' ' << y;
      }
    }
    for (const auto& [x, y] : {std::pair(-0.61F, 0.0F), std::pair(0.0F, -0.41F),
                               std::pair(0.0F, 0.21F), std::pair(0.61F, 0.0F)}) {
      int outside = 0;
      for (const auto& plane : planes) {
        outside += plane->GetSignedDistance(model.drawnAt(x, y, 0.5F)) > 0.0;
      }
      EXPECT_EQ(outside, 1) << x << ' ' << y;
    }
  }
}

TEST_F(TarnOIDSMCutterHUDTest, TheNormalsTurnTogetherWithTheDirectionOfTheDrag) {
  ViewedModel model({"", true});
  for (const auto& [x0, y0, x1, y1, sign] :
       {std::tuple(200, 300, 800, 600, -1.0), std::tuple(800, 600, 200, 300, -1.0),
        std::tuple(800, 300, 200, 600, 1.0), std::tuple(200, 600, 800, 300, 1.0)}) {
    drawBox(x0, y0, x1, y1);
    for (const auto& plane : boxPlanes(model)) {
      EXPECT_GT(sign * plane->GetSignedDistance(model.drawnAt(0.0F, 0.0F, 0.5F)), 0.0)
          << x0 << ' ' << y0;
    }
  }
}

TEST_F(TarnOIDSMCutterHUDTest, SidesWithoutAPlaneAreLeftOut) {
  ViewedModel model({"", true});
  // No height: the left and the right side are points.
  drawBox(200, 300, 800, 300);
  EXPECT_EQ(boxPlanes(model).size(), 2U);
  tarn::Extents empty;
  model.extents = empty;
  EXPECT_EQ(boxPlanes(model).size(), 0U);
}

TEST_F(TarnOIDSMCutterHUDTest, AnUnknownViewportMappingOfABoxIsReportedOnce) {
  ViewedModel model({"", true});
  model.camera->viewportMapping.setValue(-5);
  drawBox(200, 300, 800, 600);
  EXPECT_EQ(boxPlanes(model).size(), 4U);
  const auto reports = takeAssertions();
  ASSERT_EQ(reports.size(), 1U);
  EXPECT_EQ(reports[0].condition, "0 && \"unknown viewport mapping\"");
  EXPECT_EQ(reports[0].file, "TarnOIDSMCutterHUD");
  EXPECT_EQ(reports[0].line, 368);
}

TEST_F(TarnOIDSMCutterHUDTest, WithoutACameraABoxHasNoPlanes) {
  ViewedModel model({"", true});
  drawBox(200, 300, 800, 600);
  model.camera = NodeRef<SoCamera>();
  EXPECT_EQ(boxPlanes(model).size(), 0U);
}
