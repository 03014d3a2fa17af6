#include "host/model/Camera.h"

#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>

using tarn::Camera;
using tarn::LensDistortion;
using tarn::Point2DDouble;

class CameraTest : public TarnTest {
protected:
  // 50 mm on 36 x 24 mm in 3600 x 2400 pixels: 5000 pixels each way.
  CameraTest() {
    camera.SetFocalLength(50.0);
    camera.SetFormatSize(36.0, 24.0);
    camera.SetImageSize(3600, 2400);
    camera.SetPrincipalPoint({1810.0, 1190.0});
  }

  Camera camera;
};

TEST_F(CameraTest, AnswersWhatWasSet) {
  EXPECT_EQ(camera.GetFocalLength(), 50.0);
  double formatWidth = 0;
  double formatHeight = 0;
  camera.GetFormatSize(formatWidth, formatHeight);
  EXPECT_EQ(formatWidth, 36.0);
  EXPECT_EQ(formatHeight, 24.0);
  int width = 0;
  int height = 0;
  camera.GetImageSize(width, height);
  EXPECT_EQ(width, 3600);
  EXPECT_EQ(height, 2400);
  EXPECT_EQ(camera.GetPrincipalPoint(), (Point2DDouble{1810.0, 1190.0}));
}

TEST_F(CameraTest, FocalLengthsInPixelsFollowTheFormatEachWay) {
  EXPECT_EQ(camera.focalLengthsInPixels(), (Point2DDouble{5000.0, 5000.0}));
  // Pixels that are not square: the same picture on a lower format.
  camera.SetFormatSize(36.0, 20.0);
  EXPECT_EQ(camera.focalLengthsInPixels(), (Point2DDouble{5000.0, 6000.0}));
}

TEST_F(CameraTest, ProjectsAPointAheadWithXToTheRightAndYDown) {
  // 10 ahead, 1 to the right, 2 up.
  const double point[3] = {1.0, 2.0, -10.0};
  Point2DDouble pixel;
  ASSERT_TRUE(camera.Project(point, pixel));
  EXPECT_NEAR(pixel.x, 1810.0 + 500.0, 1e-9);
  EXPECT_NEAR(pixel.y, 1190.0 - 1000.0, 1e-9);
}

TEST_F(CameraTest, ProjectsThroughTheLens) {
  camera.SetLensDistortion({LensDistortion::eRadial, {-0.2, 0.08}});
  // (0.3, -0.4) in the plane: times 0.955.
  const double point[3] = {3.0, 4.0, -10.0};
  Point2DDouble pixel;
  ASSERT_TRUE(camera.Project(point, pixel));
  EXPECT_NEAR(pixel.x, 1810.0 + 5000.0 * 0.2865, 1e-9);
  EXPECT_NEAR(pixel.y, 1190.0 - 5000.0 * 0.382, 1e-9);
}

TEST_F(CameraTest, APointBesideOrBehindTheCameraHasNoImage) {
  Point2DDouble pixel{7.0, 8.0};
  for (const double depth : {0.0, 10.0, std::numeric_limits<double>::quiet_NaN()}) {
    const double point[3] = {1.0, 2.0, depth};
    EXPECT_FALSE(camera.Project(point, pixel));
  }
  EXPECT_EQ(pixel, (Point2DDouble{7.0, 8.0}));
}

TEST_F(CameraTest, ARayThatTheLensDoesNotShowHasNoImage) {
  camera.SetLensDistortion({LensDistortion::eDivision, {0.25}});
  Point2DDouble pixel{7.0, 8.0};
  const double point[3] = {11.0, 0.0, -10.0};
  EXPECT_FALSE(camera.Project(point, pixel));
  EXPECT_EQ(pixel, (Point2DDouble{7.0, 8.0}));
}

TEST_F(CameraTest, ACameraWithoutFormatShowsNothing) {
  camera.SetFormatSize(0.0, 0.0);
  Point2DDouble pixel{7.0, 8.0};
  const double point[3] = {1.0, 2.0, -10.0};
  EXPECT_FALSE(camera.Project(point, pixel));
  camera.SetImageSize(0, 0);
  EXPECT_FALSE(camera.Project(point, pixel));
  EXPECT_FALSE(camera.IdealPixel({1.0, 2.0}, pixel));
  EXPECT_EQ(pixel, (Point2DDouble{7.0, 8.0}));
}

TEST_F(CameraTest, TheIdealPixelHasThePrincipalPointInTheMiddle) {
  Point2DDouble ideal;
  ASSERT_TRUE(camera.IdealPixel({1810.0, 1190.0}, ideal));
  EXPECT_NEAR(ideal.x, 1800.0, 1e-9);
  EXPECT_NEAR(ideal.y, 1200.0, 1e-9);
  ASSERT_TRUE(camera.IdealPixel({0.0, 0.0}, ideal));
  EXPECT_NEAR(ideal.x, -10.0, 1e-9);
  EXPECT_NEAR(ideal.y, 10.0, 1e-9);
}

TEST_F(CameraTest, TheIdealPixelIsWhereTheSameCameraWithoutLensErrorsProjects) {
  camera.SetFormatSize(36.0, 20.0);
  camera.SetLensDistortion({LensDistortion::eOpenCV, {-0.2, 0.08, 0.001, -0.002}});
  Camera pinhole;
  pinhole.SetFocalLength(50.0);
  pinhole.SetFormatSize(36.0, 20.0);
  pinhole.SetImageSize(3600, 2400);
  pinhole.SetPrincipalPoint({1800.0, 1200.0});
  for (const double x : {-3.0, 0.5, 2.0}) {
    for (const double y : {-1.5, 0.25, 1.0}) {
      const double point[3] = {x, y, -10.0};
      Point2DDouble seen;
      Point2DDouble ideal;
      Point2DDouble expected;
      ASSERT_TRUE(camera.Project(point, seen));
      ASSERT_TRUE(camera.IdealPixel(seen, ideal));
      ASSERT_TRUE(pinhole.Project(point, expected));
      EXPECT_NEAR(ideal.x, expected.x, 1e-8);
      EXPECT_NEAR(ideal.y, expected.y, 1e-8);
    }
  }
}

TEST_F(CameraTest, WhereTheLensCannotBeUndoneThereIsNoIdealPixel) {
  camera.SetLensDistortion({LensDistortion::eRadial, {-1.0 / 3.0}});
  Point2DDouble ideal{7.0, 8.0};
  EXPECT_FALSE(camera.IdealPixel({1810.0 + 5000.0 * 0.7, 1190.0}, ideal));
  EXPECT_EQ(ideal, (Point2DDouble{7.0, 8.0}));
}
