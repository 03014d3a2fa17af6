#include "nodes/hud/TarnOIDSMProfileHUD.h"

#include "tests/nodes/hud/CrossSectionFixture.h"

class TarnOIDSMProfileHUDTest : public TarnTest {
protected:
  NodeRef<TarnOIDSMProfileHUD> profile = makeNode<TarnOIDSMProfileHUD>();
};

TEST_F(TarnOIDSMProfileHUDTest, ResetHidesTheLineAndForgetsTheFirstPoint) {
  profile->SetFirstPos(250, 250, 1000, 1000);
  profile->SetSecondPos(500, 625, 1000, 1000, 0);
  profile->ResetCrossSection();
  EXPECT_EQ(MarkChildren(*profile).overlay->whichChild.getValue(), SO_SWITCH_NONE);
  EXPECT_EQ(profile->HasFirstPoint(), 0);
}

TEST_F(TarnOIDSMProfileHUDTest, ResetLeavesTheLineInTheCoordinates) {
  profile->SetFirstPos(250, 250, 1000, 1000);
  profile->SetSecondPos(500, 625, 1000, 1000, 0);
  profile->ResetCrossSection();
  EXPECT_THAT(MarkChildren(*profile).vertices(),
              ::testing::ElementsAre(SbVec3f(-0.5F, -0.5F, 0.0F), SbVec3f(0.0F, 0.25F, 0.0F)));
}

TEST_F(TarnOIDSMProfileHUDTest, TheNumberOfVerticesIsNeverTouched) {
  MarkChildren mark(*profile);
  mark.lines->numVertices.setValue(9);
  profile->SetFirstPos(250, 250, 1000, 1000);
  profile->SetSecondPos(500, 625, 1000, 1000, 0);
  EXPECT_EQ(mark.lines->numVertices[0], 9);
}
