#include "host/model/CameraStation.h"

#include "host/model/Camera.h"
#include "host/model/Photograph.h"
#include "tests/support/TarnTest.h"

using tarn::CameraStation;
using tarn::MatrixDouble;
using tarn::Point3DDouble;

class CameraStationTest : public TarnTest {
protected:
  CameraStation station;
};

TEST_F(CameraStationTest, ANewStationIsNotOrientedAndHasNothing) {
  EXPECT_FALSE(station.IsOriented());
  EXPECT_EQ(station.GetPosition(), Point3DDouble());
  EXPECT_EQ(station.GetRotationMatrix(), MatrixDouble::Identity(3));
  EXPECT_EQ(station.GetCamera(1), nullptr);
  EXPECT_EQ(station.GetPhotograph(), nullptr);
  EXPECT_TRUE(station.GetName().isEmpty());
}

TEST_F(CameraStationTest, AnOrientationMakesItOriented) {
  MatrixDouble rotation(3, 3);
  rotation(1, 2) = rotation(2, 3) = rotation(3, 1) = 1.0;
  station.SetOrientation({1.0, 2.0, 3.0}, rotation);
  EXPECT_TRUE(station.IsOriented());
  EXPECT_EQ(station.GetPosition(), Point3DDouble(1.0, 2.0, 3.0));
  EXPECT_EQ(station.GetRotationMatrix(), rotation);
}

TEST_F(CameraStationTest, KeepsItsOrientationWhenItIsDeclaredNotOriented) {
  station.SetOrientation({1.0, 2.0, 3.0}, MatrixDouble::Identity(3));
  station.SetOriented(0);
  EXPECT_FALSE(station.IsOriented());
  EXPECT_EQ(station.GetPosition(), Point3DDouble(1.0, 2.0, 3.0));
}

TEST_F(CameraStationTest, WithoutSatellitePositionTheAnswerIsNoAndNothingIsChanged) {
  Point3DDouble position{7.0, 8.0, 9.0};
  EXPECT_FALSE(station.GetGPSPosition(position));
  EXPECT_EQ(position, Point3DDouble(7.0, 8.0, 9.0));
  station.SetGPSPosition({1.0, 2.0, 3.0});
  EXPECT_TRUE(station.GetGPSPosition(position));
  EXPECT_EQ(position, Point3DDouble(1.0, 2.0, 3.0));
  EXPECT_FALSE(station.IsOriented()) << "a satellite tells no direction";
}

TEST_F(CameraStationTest, GivesItsCameraPhotographAndName) {
  tarn::Camera camera;
  tarn::Photograph photograph;
  station.SetCamera(&camera);
  station.SetPhotograph(&photograph);
  station.SetName("left eye.jpg");
  EXPECT_EQ(station.GetCamera(0), &camera);
  EXPECT_EQ(station.GetCamera(1), &camera);
  EXPECT_EQ(station.GetPhotograph(), &photograph);
  EXPECT_STREQ(station.GetName().text(), "left eye.jpg");
}

class ProjectPointTest : public CameraStationTest {
protected:
  // 5000 pixels of focal length each way; it stands at (10, 20, 30) and looks along +x, +z up.
  ProjectPointTest() {
    camera.SetFocalLength(50.0);
    camera.SetFormatSize(36.0, 24.0);
    camera.SetImageSize(3600, 2400);
    camera.SetPrincipalPoint({1810.0, 1190.0});
    MatrixDouble rotation(3, 3);
    rotation(1, 2) = -1.0;  // right is -y
    rotation(2, 3) = 1.0;   // up is z
    rotation(3, 1) = -1.0;  // back is -x
    station.SetOrientation({10.0, 20.0, 30.0}, rotation);
    station.SetCamera(&camera);
  }

  tarn::Camera camera;
  tarn::Point2DDouble pixel{7.0, 8.0};
};

TEST_F(ProjectPointTest, GoesThroughPositionAndRotation) {
  // 10 ahead, 1 to the right, 2 up.
  ASSERT_TRUE(station.ProjectPoint({20.0, 19.0, 32.0}, pixel));
  EXPECT_NEAR(pixel.x, 1810.0 + 500.0, 1e-9);
  EXPECT_NEAR(pixel.y, 1190.0 - 1000.0, 1e-9);
}

TEST_F(ProjectPointTest, GoesThroughTheLens) {
  camera.SetLensDistortion({tarn::LensDistortion::eRadial, {-0.2, 0.08}});
  // (0.3, -0.4) in the plane at distance 1: r = 0.5, times 1 - 0.2 / 4 + 0.08 / 16 = 0.955.
  ASSERT_TRUE(station.ProjectPoint({20.0, 17.0, 34.0}, pixel));
  EXPECT_NEAR(pixel.x, 1810.0 + 5000.0 * 0.3 * 0.955, 1e-9);
  EXPECT_NEAR(pixel.y, 1190.0 - 5000.0 * 0.4 * 0.955, 1e-9);
}

TEST_F(ProjectPointTest, APointThatIsNotInFrontLeavesThePixel) {
  EXPECT_FALSE(station.ProjectPoint({9.0, 20.0, 30.0}, pixel)) << "behind";
  EXPECT_FALSE(station.ProjectPoint({10.0, 25.0, 30.0}, pixel)) << "beside";
  EXPECT_FALSE(station.ProjectPoint({10.0, 20.0, 30.0}, pixel)) << "the projection centre";
  EXPECT_EQ(pixel, (tarn::Point2DDouble{7.0, 8.0}));
}

TEST_F(ProjectPointTest, WithoutOrientationOrCameraThereIsNone) {
  station.SetOriented(0);
  EXPECT_FALSE(station.ProjectPoint({20.0, 19.0, 32.0}, pixel));
  station.SetOriented(1);
  station.SetCamera(nullptr);
  EXPECT_FALSE(station.ProjectPoint({20.0, 19.0, 32.0}, pixel));
  EXPECT_EQ(pixel, (tarn::Point2DDouble{7.0, 8.0}));
}

TEST_F(ProjectPointTest, AsksWhatAHostAnswersItself) {
  struct HostStation : CameraStation {
    Point3DDouble GetPosition() const override { return {1.0, 2.0, 13.0}; }
    MatrixDouble GetRotationMatrix() const override { return MatrixDouble::Identity(3); }
  } ofHost;
  ofHost.SetOriented(1);
  ofHost.SetCamera(&camera);
  ASSERT_TRUE(ofHost.ProjectPoint({2.0, 4.0, 3.0}, pixel));
  EXPECT_NEAR(pixel.x, 1810.0 + 500.0, 1e-9);
  EXPECT_NEAR(pixel.y, 1190.0 - 1000.0, 1e-9);
}
