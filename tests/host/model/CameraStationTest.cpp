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
