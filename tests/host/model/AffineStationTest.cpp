#include "host/model/AffineStation.h"

#include "host/model/BasicAffine.h"
#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/Photograph.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <memory>

using tarn::AffineStation;
using tarn::BasicAffine;
using tarn::CameraStation;
using tarn::MatrixDouble;
using tarn::Point3DDouble;

class AffineStationTest : public TarnTest {
protected:
  AffineStationTest() {
    affine.SetScale(2.5);
    affine.SetTranslation({10.0, 20.0, 30.0}, {1000.0, 2000.0, 3000.0});
    affine.SetRotation(turn(0.7, 0.3));
    station.SetOrientation({1.0, 2.0, 3.0}, turn(-0.4, 1.1));
    station.SetCamera(&camera);
    station.SetPhotograph(&photograph);
    station.SetName("a.jpg");
  }

  // A turn about z, then about x.
  static MatrixDouble turn(double z, double x) {
    MatrixDouble first = MatrixDouble::Identity(3);
    first(1, 1) = first(2, 2) = std::cos(z);
    first(1, 2) = std::sin(z);
    first(2, 1) = -std::sin(z);
    MatrixDouble second = MatrixDouble::Identity(3);
    second(2, 2) = second(3, 3) = std::cos(x);
    second(2, 3) = std::sin(x);
    second(3, 2) = -std::sin(x);
    return first * second;
  }

  std::unique_ptr<CameraStation> converted() const {
    CameraStation* result = nullptr;
    EXPECT_TRUE(AffineStation(&affine).ConvertStation(&station, &result));
    return std::unique_ptr<CameraStation>(result);
  }

  // A point in the frame of a station (right, up, back).
  static Point3DDouble seenFrom(const CameraStation& from, const Point3DDouble& point) {
    const Point3DDouble ray = point - from.GetPosition();
    const MatrixDouble rows = from.GetRotationMatrix();
    return {rows(1, 1) * ray.x + rows(1, 2) * ray.y + rows(1, 3) * ray.z,
            rows(2, 1) * ray.x + rows(2, 2) * ray.y + rows(2, 3) * ray.z,
            rows(3, 1) * ray.x + rows(3, 2) * ray.y + rows(3, 3) * ray.z};
  }

  BasicAffine affine;
  CameraStation station;
  tarn::Camera camera;
  tarn::Photograph photograph;
};

TEST_F(AffineStationTest, SeesTheConvertedPointsAsTheStationSawThePoints) {
  const auto result = converted();
  ASSERT_NE(result, nullptr);
  for (const Point3DDouble& point : {Point3DDouble(5, -3, 8), Point3DDouble(-2, 7, 1)}) {
    Point3DDouble moved = point;
    affine.ConvertPoint(moved);
    const Point3DDouble before = seenFrom(station, point);
    const Point3DDouble after = seenFrom(*result, moved);
    EXPECT_NEAR(after.x, 2.5 * before.x, 1e-10);
    EXPECT_NEAR(after.y, 2.5 * before.y, 1e-10);
    EXPECT_NEAR(after.z, 2.5 * before.z, 1e-10);
  }
}

TEST_F(AffineStationTest, KeepsARotationsRowsAtUnitLength) {
  const auto result = converted();
  ASSERT_NE(result, nullptr);
  const MatrixDouble rows = result->GetRotationMatrix();
  const MatrixDouble product = rows * rows.transposed();
  for (int i = 1; i <= 3; ++i) {
    for (int j = 1; j <= 3; ++j) EXPECT_NEAR(product(i, j), i == j ? 1.0 : 0.0, 1e-12);
  }
}

TEST_F(AffineStationTest, AnInvertedAffineBringsTheStationBack) {
  const auto there = converted();
  ASSERT_NE(there, nullptr);
  affine.DoInversion(1);
  CameraStation* result = nullptr;
  ASSERT_TRUE(AffineStation(&affine).ConvertStation(there.get(), &result));
  const std::unique_ptr<CameraStation> back(result);
  EXPECT_NEAR((back->GetPosition() - station.GetPosition()).length(), 0.0, 1e-10);
  for (int i = 1; i <= 3; ++i) {
    for (int j = 1; j <= 3; ++j) {
      EXPECT_NEAR(back->GetRotationMatrix()(i, j), station.GetRotationMatrix()(i, j), 1e-10);
    }
  }
}

TEST_F(AffineStationTest, KeepsCameraPhotographNameAndState) {
  auto result = converted();
  EXPECT_EQ(result->GetCamera(1), &camera);
  EXPECT_EQ(result->GetPhotograph(), &photograph);
  EXPECT_STREQ(result->GetName().text(), "a.jpg");
  EXPECT_TRUE(result->IsOriented());
  station.SetOriented(0);
  EXPECT_FALSE(converted()->IsOriented());
}

TEST_F(AffineStationTest, ConvertsTheSatellitePosition) {
  Point3DDouble found{7.0, 8.0, 9.0};
  EXPECT_FALSE(converted()->GetGPSPosition(found));
  Point3DDouble expected{4.0, 5.0, 6.0};
  station.SetGPSPosition(expected);
  affine.ConvertPoint(expected);
  ASSERT_TRUE(converted()->GetGPSPosition(found));
  EXPECT_EQ(found, expected);
}

TEST_F(AffineStationTest, WithoutStationOrAffineNothingIsMade) {
  CameraStation* result = nullptr;
  EXPECT_FALSE(AffineStation(&affine).ConvertStation(nullptr, &result));
  EXPECT_FALSE(AffineStation(nullptr).ConvertStation(&station, &result));
  EXPECT_FALSE(AffineStation(&affine).ConvertStation(&station, nullptr));
  EXPECT_EQ(result, nullptr);
}

TEST_F(AffineStationTest, AStationWithoutDirectionsIsNotConverted) {
  station.SetOrientation({1.0, 2.0, 3.0}, MatrixDouble(3, 3));
  CameraStation* result = nullptr;
  EXPECT_FALSE(AffineStation(&affine).ConvertStation(&station, &result));
  EXPECT_EQ(result, nullptr);
}
