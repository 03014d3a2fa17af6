#include "host/model/Photograph.h"

#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/ObjectPoint.h"
#include "tests/support/TarnTest.h"

#include <vector>

using tarn::MarkedPoint;

class PhotographTest : public TarnTest {
protected:
  tarn::Photograph photograph;
};

TEST_F(PhotographTest, ANewPhotographHasNoPictureStationOrMarks) {
  EXPECT_EQ(photograph.GetNumber(), 0);
  EXPECT_EQ(photograph.GetImage(), nullptr);
  EXPECT_EQ(photograph.GetCameraStation(), nullptr);
  EXPECT_EQ(photograph.GetAllMarkedPoints(0, 1).size(), 0);
}

TEST_F(PhotographTest, GivesThePictureOfItsFile) {
  tarn::CameraStation station;
  photograph.SetNumber(3);
  photograph.SetImageFile("photos\\left eye.jpg");
  photograph.SetCameraStation(&station);
  EXPECT_EQ(photograph.GetNumber(), 3);
  ASSERT_NE(photograph.GetImage(), nullptr);
  EXPECT_STREQ(photograph.GetImage()->GetFileName()->text(), "photos/left eye.jpg");
  EXPECT_EQ(photograph.GetCameraStation(), &station);
}

TEST_F(PhotographTest, ListsItsMarksInTheOrderOfMarking) {
  MarkedPoint& first = photograph.AddMarkedPoint({1.0, 2.0});
  MarkedPoint& second = photograph.AddMarkedPoint({3.0, 4.0}, 1);
  const tarn::VOrdCollect& all = photograph.GetAllMarkedPoints(0, 1);
  ASSERT_EQ(all.size(), 2);
  EXPECT_EQ(all.at(0), &first);
  EXPECT_EQ(all.at(1), &second);
  EXPECT_EQ(first.GetPhotograph(), &photograph);
  EXPECT_TRUE(second.IsSubPixel());
}

TEST_F(PhotographTest, SelectsTheMarksOfObjectPoints) {
  tarn::ObjectPoint point;
  photograph.AddMarkedPoint({1.0, 2.0});
  MarkedPoint& referenced = photograph.AddMarkedPoint({3.0, 4.0});
  point.AddMarkedPoint(&referenced);
  const tarn::VOrdCollect& selected = photograph.GetAllMarkedPoints(1, 1);
  ASSERT_EQ(selected.size(), 1);
  EXPECT_EQ(selected.at(0), &referenced);
  referenced.SetObjectPoint(nullptr);
  EXPECT_EQ(photograph.GetAllMarkedPoints(1, 1).size(), 0);
  EXPECT_EQ(photograph.GetAllMarkedPoints(0, 1).size(), 2);
}

TEST_F(PhotographTest, MarksStayWhereTheyAreWhileMoreAreAdded) {
  std::vector<MarkedPoint*> marks;
  for (int i = 0; i < 1000; ++i) {
    marks.push_back(&photograph.AddMarkedPoint({1.0 * i, 2.0 * i}));
  }
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(photograph.GetAllMarkedPoints(0, 1).at(i), marks[static_cast<std::size_t>(i)]);
    ASSERT_EQ(marks[static_cast<std::size_t>(i)]->GetPosition().y, 2.0 * i);
  }
}

TEST_F(PhotographTest, PixelsAreBroughtToTextureSpaceByTheCamerasSize) {
  tarn::Camera camera;
  tarn::CameraStation station;
  camera.SetImageSize(4000, 2500);
  station.SetCamera(&camera);
  photograph.SetCameraStation(&station);
  EXPECT_EQ(photograph.GetPixelToTextureNormalizedSpace(),
            (tarn::Point2DDouble{1.0 / 4000, 1.0 / 2500}));
}

TEST_F(PhotographTest, WithoutCameraThePicturesSizeTells) {
  EXPECT_EQ(photograph.GetPixelToTextureNormalizedSpace(), (tarn::Point2DDouble{1.0, 1.0}))
      << "neither camera nor picture";
  tarn::CameraStation station;
  photograph.SetCameraStation(&station);
  photograph.SetImageFile("left.jpg");
  EXPECT_EQ(photograph.GetPixelToTextureNormalizedSpace(), (tarn::Point2DDouble{1.0, 1.0}))
      << "a picture that is not loaded";
  const std::vector<std::uint8_t> black(8 * 5 * 3);
  photograph.GetImage()->SetPixels(black.data(), 8, 5, 3);
  EXPECT_EQ(photograph.GetPixelToTextureNormalizedSpace(), (tarn::Point2DDouble{0.125, 0.2}));
}

TEST_F(PhotographTest, ACameraWithoutSizeLeavesPixelsAsTheyAre) {
  tarn::Camera camera;
  tarn::CameraStation station;
  camera.SetImageSize(0, 2500);
  station.SetCamera(&camera);
  photograph.SetCameraStation(&station);
  EXPECT_EQ(photograph.GetPixelToTextureNormalizedSpace(), (tarn::Point2DDouble{1.0, 1.0}));
}
