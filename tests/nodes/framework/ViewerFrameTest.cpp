#include "nodes/framework/ViewerFrame.h"

#include "nodes/framework/SceneColor.h"
#include "tests/support/TarnTest.h"

class ViewerFrameTest : public TarnTest {};

TEST_F(ViewerFrameTest, AModelPointIsShownLessTheOffsetWithZUp) {
  EXPECT_EQ(ViewerFrame::fromModel({1, 2, 3}),
            SbVec3f(1.0F - 10.5F, 3.0F - 30.125F, -(2.0F + 20.25F)));
}

TEST_F(ViewerFrameTest, TheOffsetIsTakenOffInDouble) {
  tarn::gThreeDViewOffset = {4500000.0, 5600000.0, 300.0};
  EXPECT_EQ(ViewerFrame::fromModel({4500000.0625, 5600000.125, 300.25}),
            SbVec3f(0.0625F, 0.25F, -0.125F));
}

TEST_F(ViewerFrameTest, BeforeItIsStoredAPointIsDouble) {
  const tarn::Point3DDouble point = ViewerFrame::exactFromModel({0.1, 0.2, 0.3});
  EXPECT_EQ(point, tarn::Point3DDouble(0.1 - 10.5, 0.3 - 30.125, -(0.2 + 20.25)));
  EXPECT_EQ(ViewerFrame::stored(point), ViewerFrame::fromModel({0.1, 0.2, 0.3}));
}

TEST_F(ViewerFrameTest, AScenePointGoesBackToTheModel) {
  const tarn::Point3DDouble point = ViewerFrame::toModel(SbVec3f(1, 2, 3));
  EXPECT_EQ(point, tarn::Point3DDouble(1 + 10.5, -3 - 20.25, 2 + 30.125));
}

TEST_F(ViewerFrameTest, ADirectionChangesItsAxesWithoutTheOffset) {
  EXPECT_EQ(ViewerFrame::directionFromModel({1, 2, 3}), SbVec3f(1, 3, -2));
}

TEST_F(ViewerFrameTest, TheAxesMatrixTakesAModelPointToTheViewer) {
  SbVec3f shown;
  ViewerFrame::axes().multVecMatrix(SbVec3f(1, 2, 3), shown);
  EXPECT_EQ(shown, SbVec3f(1, 3, -2));
}

TEST_F(ViewerFrameTest, ATransformOfTheModelActsInTheModelsAxes) {
  // A quarter turn about the model's Z takes X to Y; in the viewer (1, 0, 0) to (0, 0, -1).
  const SbMatrix turn(0, 1, 0, 0,   //
                      -1, 0, 0, 0,  //
                      0, 0, 1, 0,   //
                      5, 6, 7, 1);
  SbVec3f shown;
  ViewerFrame::transformFromModel(turn).multVecMatrix(SbVec3f(1, 0, 0), shown);
  EXPECT_EQ(shown, SbVec3f(5, 7, -7));
}

TEST_F(ViewerFrameTest, AHostColourIsReadFromBlueGreenRedBytes) {
  const tarn::Colour colour(10, 20, 30);
  ASSERT_EQ(colour.bytes()[0], 30);
  EXPECT_EQ(SceneColor::from(colour),
            SbColor(static_cast<float>(10 / 255.0), static_cast<float>(20 / 255.0),
                    static_cast<float>(30 / 255.0)));
}
