#include "host/model/ThreeDPoint.h"

#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/ObjectPoint.h"
#include "host/model/Photograph.h"
#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;
using tarn::Point3DRandom;

class ThreeDPointTest : public TarnTest {
protected:
  tarn::ThreeDPoint point;
  Point3DRandom found{Point3DDouble{7.0, 8.0, 9.0}};
};

TEST_F(ThreeDPointTest, ANewPointHasNoPosition) {
  EXPECT_FALSE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(7.0, 8.0, 9.0));
  EXPECT_FALSE(point.IsProcessed());
}

TEST_F(ThreeDPointTest, GivesBackThePositionWithItsWholeCovariance) {
  point.SetApproximation(Point3DRandom({1.0, 2.0, 3.0}, 4.0, 5.0, 6.0, 0.1, 0.2, 0.3));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(1.0, 2.0, 3.0));
  EXPECT_TRUE(found.VariancesAreKnown());
  EXPECT_EQ(found.X().variance, 4.0);
  EXPECT_EQ(found.Y().variance, 5.0);
  EXPECT_EQ(found.Z().variance, 6.0);
  EXPECT_EQ(found.covarianceXY(), 0.1);
  EXPECT_EQ(found.covarianceXZ(), 0.2);
  EXPECT_EQ(found.covarianceYZ(), 0.3);
}

TEST_F(ThreeDPointTest, VariancesThatAreNotKnownStayUnknown) {
  point.SetApproximation(Point3DRandom({1.0, 2.0, 3.0}, 4.0, 5.0, 6.0, 0.1, 0.2, 0.3));
  point.SetApproximation(Point3DRandom(Point3DDouble{4.0, 5.0, 6.0}));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(4.0, 5.0, 6.0));
  EXPECT_FALSE(found.VariancesAreKnown());
}

TEST_F(ThreeDPointTest, AnyNonZeroFlagMeansProcessed) {
  point.SetProcessed(256);
  EXPECT_TRUE(point.IsProcessed());
  point.SetProcessed(0);
  EXPECT_FALSE(point.IsProcessed());
}
TEST_F(ThreeDPointTest, WithoutAMeshThePositionWithoutItsLocalAffineIsThePosition) {
  Point3DDouble stored{7.0, 8.0, 9.0};
  EXPECT_FALSE(point.GetApproximationNoLocalAffine(stored));
  EXPECT_EQ(stored, Point3DDouble(7.0, 8.0, 9.0));
  point.SetApproximation(Point3DRandom(Point3DDouble{1.0, 2.0, 3.0}));
  ASSERT_TRUE(point.GetApproximationNoLocalAffine(stored));
  EXPECT_EQ(stored, Point3DDouble(1.0, 2.0, 3.0));
}

class BestProjectionTest : public TarnTest {
protected:
  // 1000 pixels of focal length; it stands at (1, 2, 10) and looks down, +y up in its picture.
  BestProjectionTest() {
    camera.SetFocalLength(36.0);
    camera.SetFormatSize(36.0, 18.0);
    camera.SetImageSize(1000, 500);
    camera.SetPrincipalPoint({510.0, 240.0});
    station.SetOrientation({1.0, 2.0, 10.0}, tarn::MatrixDouble::Identity(3));
    station.SetCamera(&camera);
    photograph.SetCameraStation(&station);
  }

  tarn::Camera camera;
  tarn::CameraStation station;
  tarn::Photograph photograph;
  tarn::Point2DDouble pixel{7.0, 8.0};
};

TEST_F(BestProjectionTest, IsTheProjectionOfThePosition) {
  tarn::ThreeDPoint point;
  point.SetApproximation(Point3DRandom({1.5, 1.75, 5.0}));
  ASSERT_TRUE(point.BestProjectionOnto(&photograph, pixel));
  EXPECT_NEAR(pixel.x, 510.0 + 100.0, 1e-9);
  EXPECT_NEAR(pixel.y, 240.0 + 50.0, 1e-9);
}

TEST_F(BestProjectionTest, HasLensDistortionAsTheMarksHave) {
  camera.SetLensDistortion({tarn::LensDistortion::eRadial, {-0.2, 0.08}});
  tarn::ThreeDPoint point;
  point.SetApproximation(Point3DRandom({1.0 + 3.0, 2.0 + 4.0, 0.0}));  // r = 0.5: times 0.955
  ASSERT_TRUE(point.BestProjectionOnto(&photograph, pixel));
  EXPECT_NEAR(pixel.x, 510.0 + 300.0 * 0.955, 1e-9);
  EXPECT_NEAR(pixel.y, 240.0 - 400.0 * 0.955, 1e-9);
}

TEST_F(BestProjectionTest, WithoutPositionPhotographOrStationThereIsNone) {
  tarn::ThreeDPoint point;
  EXPECT_FALSE(point.BestProjectionOnto(&photograph, pixel)) << "no position";
  point.SetApproximation(Point3DRandom({1.5, 1.75, 5.0}));
  EXPECT_FALSE(point.BestProjectionOnto(nullptr, pixel)) << "no photograph";
  photograph.SetCameraStation(nullptr);
  EXPECT_FALSE(point.BestProjectionOnto(&photograph, pixel)) << "no station";
  EXPECT_EQ(pixel, (tarn::Point2DDouble{7.0, 8.0}));
}

TEST_F(BestProjectionTest, APointBehindThePhotographHasNone) {
  tarn::ThreeDPoint point;
  point.SetApproximation(Point3DRandom({1.5, 1.75, 11.0}));
  EXPECT_FALSE(point.BestProjectionOnto(&photograph, pixel));
  EXPECT_EQ(pixel, (tarn::Point2DDouble{7.0, 8.0}));
}

TEST_F(BestProjectionTest, OfAnObjectPointIsItsMarkBeforeItsProjection) {
  tarn::ObjectPoint point;
  point.SetApproximation(Point3DRandom({1.5, 1.75, 5.0}));
  point.AddMarkedPoint(&photograph.AddMarkedPoint({612.25, 288.5}));
  ASSERT_TRUE(point.BestProjectionOnto(&photograph, pixel));
  EXPECT_EQ(pixel, (tarn::Point2DDouble{612.25, 288.5}));
}

TEST_F(BestProjectionTest, OfAMarkedPointNeedsNeitherPositionNorStation) {
  tarn::ObjectPoint point;
  point.AddMarkedPoint(&photograph.AddMarkedPoint({612.25, 288.5}));
  photograph.SetCameraStation(nullptr);
  ASSERT_TRUE(point.BestProjectionOnto(&photograph, pixel));
  EXPECT_EQ(pixel, (tarn::Point2DDouble{612.25, 288.5}));
}

TEST_F(BestProjectionTest, AMarkOnAnotherPhotographTellsNothing) {
  tarn::Photograph other;
  tarn::ObjectPoint point;
  point.SetApproximation(Point3DRandom({1.5, 1.75, 5.0}));
  point.AddMarkedPoint(&other.AddMarkedPoint({612.25, 288.5}));
  ASSERT_TRUE(point.BestProjectionOnto(&photograph, pixel));
  EXPECT_NEAR(pixel.x, 610.0, 1e-9);
  EXPECT_FALSE(point.BestProjectionOnto(nullptr, pixel));
}

TEST_F(BestProjectionTest, OfTwoMarksOnOnePhotographItIsTheFirst) {
  tarn::ObjectPoint point;
  point.AddMarkedPoint(&photograph.AddMarkedPoint({1.5, 2.5}));
  point.AddMarkedPoint(&photograph.AddMarkedPoint({3.5, 4.5}));
  ASSERT_TRUE(point.BestProjectionOnto(&photograph, pixel));
  EXPECT_EQ(pixel, (tarn::Point2DDouble{1.5, 2.5}));
}
