#include "host/model/LensDistortion.h"

#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>
#include <numbers>

using tarn::LensDistortion;
using tarn::Point2DDouble;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

void expectNear(const Point2DDouble& found, double x, double y, double tolerance = 1e-14) {
  EXPECT_NEAR(found.x, x, tolerance);
  EXPECT_NEAR(found.y, y, tolerance);
}

void expectRefused(const LensDistortion& lens, const Point2DDouble& distorted) {
  Point2DDouble ideal{7.0, 8.0};
  EXPECT_EQ(lens.Undistort(distorted, ideal), 0);
  EXPECT_EQ(ideal, (Point2DDouble{7.0, 8.0})) << "a refusal changed the point";
}

}  // namespace

class LensDistortionTest : public TarnTest {};

// Values: each by its published formula, written out for one point.

TEST_F(LensDistortionTest, NoneLeavesThePointAsItIs) {
  expectNear(LensDistortion().Distort({0.3, -0.4}), 0.3, -0.4, 0.0);
}

TEST_F(LensDistortionTest, RadialMultipliesByAPolynomialOfTheSquaredRadius) {
  // r^2 = 0.25: 1 - 0.2 * 0.25 + 0.08 * 0.0625 = 0.955
  const LensDistortion lens(LensDistortion::eRadial, {-0.2, 0.08});
  expectNear(lens.Distort({0.3, -0.4}), 0.2865, -0.382);
}

TEST_F(LensDistortionTest, OpenCVAddsTheTangentialTerms) {
  // x: 0.2865 + 2 * 0.01 * -0.12 + 0.02 * (0.25 + 0.18) = 0.2927
  // y: -0.382 + 0.01 * (0.25 + 0.32) + 2 * 0.02 * -0.12 = -0.3811
  const LensDistortion lens(LensDistortion::eOpenCV, {-0.2, 0.08, 0.01, 0.02});
  expectNear(lens.Distort({0.3, -0.4}), 0.2927, -0.3811);
}

TEST_F(LensDistortionTest, FullOpenCVDividesTheRadialPolynomials) {
  const double r2 = 0.25;
  const double factor = (1 - 0.2 * r2 + 0.08 * r2 * r2 + 0.16 * r2 * r2 * r2) /
                        (1 + 0.05 * r2 - 0.03 * r2 * r2 + 0.07 * r2 * r2 * r2);
  const LensDistortion lens(LensDistortion::eFullOpenCV,
                            {-0.2, 0.08, 0.01, 0.02, 0.16, 0.05, -0.03, 0.07});
  expectNear(lens.Distort({0.3, -0.4}), 0.3 * factor + 0.0062, -0.4 * factor + 0.0009);
}

TEST_F(LensDistortionTest, FieldOfViewBringsTheRadiusToItsAngle) {
  const double omega = 0.9;
  const double factor = std::atan(0.5 * 2.0 * std::tan(omega / 2.0)) / omega / 0.5;
  const LensDistortion lens(LensDistortion::eFieldOfView, {omega});
  expectNear(lens.Distort({0.3, -0.4}), 0.3 * factor, -0.4 * factor);
}

TEST_F(LensDistortionTest, FieldOfViewIsContinuousAtTheCentreAndAtOmegaZero) {
  const double slope = 2.0 * std::tan(0.45) / 0.9;
  const LensDistortion lens(LensDistortion::eFieldOfView, {0.9});
  expectNear(lens.Distort({1e-9, 0.0}), slope * 1e-9, 0.0, 1e-22);
  expectNear(lens.Distort({1.1e-6, 0.0}), slope * 1.1e-6, 0.0, 1e-17);
  expectNear(lens.Distort({0.0, 0.0}), 0.0, 0.0, 0.0);
  for (const double omega : {0.0, 1e-7, 2e-6}) {
    const LensDistortion nearlyNone(LensDistortion::eFieldOfView, {omega});
    expectNear(nearlyNone.Distort({0.3, -0.4}), 0.3, -0.4, 1e-11);
  }
}

TEST_F(LensDistortionTest, FisheyeActsOnTheAngle) {
  // (1, 1, 1) is atan(sqrt(2)) off the axis.
  const double theta = std::atan(std::numbers::sqrt2);
  const double t2 = theta * theta;
  const double bent =
      theta * (1 + 0.03 * t2 - 0.01 * t2 * t2 + 0.004 * t2 * t2 * t2 - 0.001 * t2 * t2 * t2 * t2);
  const LensDistortion lens(LensDistortion::eFisheye, {0.03, -0.01, 0.004, -0.001});
  expectNear(lens.Distort({1.0, 1.0}), bent / std::numbers::sqrt2, bent / std::numbers::sqrt2);
}

TEST_F(LensDistortionTest, FisheyeWithoutTermsIsEquidistant) {
  const LensDistortion lens(LensDistortion::eFisheye, {});
  expectNear(lens.Distort({std::tan(1.2), 0.0}), 1.2, 0.0);
  expectNear(lens.Distort({0.0, 0.0}), 0.0, 0.0, 0.0);
}

TEST_F(LensDistortionTest, ThinPrismFisheyeAddsTangentialAndPrismTermsToTheAngles) {
  // The ray at the angle 0.5 in the direction (0.6, -0.8): (0.3, -0.4) in the angles.
  const double r = std::tan(0.5);
  const double r2 = 0.25;
  const double factor =
      1 - 0.2 * r2 + 0.08 * r2 * r2 + 0.05 * r2 * r2 * r2 - 0.02 * r2 * r2 * r2 * r2;
  const LensDistortion lens(LensDistortion::eThinPrismFisheye,
                            {-0.2, 0.08, 0.01, 0.02, 0.05, -0.02, 0.012, -0.016});
  expectNear(lens.Distort({0.6 * r, -0.8 * r}), 0.3 * factor + 0.0062 + 0.003,
             -0.4 * factor + 0.0009 - 0.004);
}

TEST_F(LensDistortionTest, RadTanThinPrismFisheyeAddsItsTermsAfterTheRadialOnes) {
  const double r = std::tan(0.5);
  const double r2 = 0.25;
  double factor = 1.0;
  double power = 1.0;
  for (const double k : {-0.2, 0.08, 0.05, -0.02, 0.01, -0.005}) factor += k * (power *= r2);
  const double x = 0.3 * factor;
  const double y = -0.4 * factor;
  const double s = x * x + y * y;
  const LensDistortion lens(
      LensDistortion::eRadTanThinPrismFisheye,
      {-0.2, 0.08, 0.05, -0.02, 0.01, -0.005, 0.02, 0.01, 0.012, 0.03, -0.016, 0.04});
  expectNear(lens.Distort({0.6 * r, -0.8 * r}),
             x + 2 * 0.01 * x * y + 0.02 * (s + 2 * x * x) + 0.012 * s + 0.03 * s * s,
             y + 2 * 0.02 * x * y + 0.01 * (s + 2 * y * y) - 0.016 * s + 0.04 * s * s);
}

TEST_F(LensDistortionTest, DivisionUndistortsByItsFormula) {
  // 1 - 0.2 * 0.25 = 0.95
  const LensDistortion lens(LensDistortion::eDivision, {-0.2});
  Point2DDouble ideal;
  ASSERT_TRUE(lens.Undistort({0.3, -0.4}, ideal));
  expectNear(ideal, 0.3 / 0.95, -0.4 / 0.95);
  expectNear(lens.Distort(ideal), 0.3, -0.4);
}

TEST_F(LensDistortionTest, EnhancedUnifiedDividesByTheBlendOfPlaneAndSphere) {
  // 0.6 * sqrt(1.44 * 0.25 + 1) + 0.4
  const double divisor = 0.6 * std::sqrt(1.36) + 0.4;
  const LensDistortion lens(LensDistortion::eEnhancedUnified, {0.6, 1.44});
  expectNear(lens.Distort({0.3, -0.4}), 0.3 / divisor, -0.4 / divisor);
}

// Every camera that a reconstruction may bring, with the widest ray it is tried for.

struct Lens {
  const char* name;
  LensDistortion::Kind kind;
  LensDistortion::Parameters parameters;
  double widestRadius;
  friend void PrintTo(const Lens& lens, std::ostream* out) { *out << lens.name; }
};

class LensRoundTrip : public TarnTest, public ::testing::WithParamInterface<Lens> {};

TEST_P(LensRoundTrip, UndistortIsTheInverseOverTheWholePicture) {
  const Lens& lens = GetParam();
  const LensDistortion distortion(lens.kind, lens.parameters);
  constexpr int steps = 24;
  for (int i = -steps; i <= steps; ++i) {
    for (int j = -steps; j <= steps; ++j) {
      const double side = lens.widestRadius / std::numbers::sqrt2;
      const Point2DDouble ideal{side * i / steps, side * j / steps};
      const Point2DDouble distorted = distortion.Distort(ideal);
      Point2DDouble back;
      ASSERT_TRUE(distortion.Undistort(distorted, back)) << ideal.x << ", " << ideal.y;
      // Wide rays lie dense in a fisheye's picture: the plane's radius grows by 1 + r^2 there.
      const double dense = 1.0 + ideal.x * ideal.x + ideal.y * ideal.y;
      EXPECT_NEAR(back.x, ideal.x, 2e-13 * dense * dense);
      EXPECT_NEAR(back.y, ideal.y, 2e-13 * dense * dense);
    }
  }
}

TEST_P(LensRoundTrip, TheCentreOfDistortionStays) {
  const LensDistortion distortion(GetParam().kind, GetParam().parameters);
  expectNear(distortion.Distort({0.0, 0.0}), 0.0, 0.0, 0.0);
  Point2DDouble ideal{1.0, 1.0};
  ASSERT_TRUE(distortion.Undistort({0.0, 0.0}, ideal));
  expectNear(ideal, 0.0, 0.0, 1e-15);
}

TEST_P(LensRoundTrip, WhatIsNoPointIsRefused) {
  const LensDistortion distortion(GetParam().kind, GetParam().parameters);
  expectRefused(distortion, {notANumber, 0.1});
  expectRefused(distortion, {0.1, infinity});
}

INSTANTIATE_TEST_SUITE_P(
    LensDistortionTest, LensRoundTrip,
    ::testing::Values(
        Lens{"Pinhole", LensDistortion::eNone, {}, 3.0},
        Lens{"SimpleRadialBarrel", LensDistortion::eRadial, {-0.2}, 1.2},
        Lens{"SimpleRadialPincushion", LensDistortion::eRadial, {0.3}, 2.0},
        Lens{"Radial", LensDistortion::eRadial, {-0.25, 0.12}, 1.3},
        Lens{"OpenCV", LensDistortion::eOpenCV, {-0.28, 0.09, 0.0012, -0.0021}, 1.0},
        Lens{"FullOpenCVOfASampleCamera",
             LensDistortion::eFullOpenCV,
             {-0.280881925023, 0.0251775122318, 0.00121651641974, -0.0001355258499, 0.163435007944},
             0.9},
        Lens{"FullOpenCVRational",
             LensDistortion::eFullOpenCV,
             {0.4, 0.1, 0.0005, -0.0004, 0.02, 0.7, 0.2, 0.03},
             2.0},
        Lens{"FieldOfView", LensDistortion::eFieldOfView, {0.95}, 5.0},
        Lens{"FieldOfViewOmegaZero", LensDistortion::eFieldOfView, {0.0}, 2.0},
        Lens{"SimpleFisheye", LensDistortion::eFisheye, {}, 20.0},
        Lens{"SimpleRadialFisheye", LensDistortion::eFisheye, {-0.05}, 10.0},
        Lens{"RadialFisheye", LensDistortion::eFisheye, {-0.05, 0.01}, 10.0},
        Lens{"OpenCVFisheye", LensDistortion::eFisheye, {0.03, -0.01, 0.004, -0.001}, 10.0},
        Lens{"ThinPrismFisheye",
             LensDistortion::eThinPrismFisheye,
             {-0.03, 0.01, 0.0007, -0.0009, -0.002, 0.0003, 0.001, -0.0015},
             8.0},
        Lens{"RadTanThinPrismFisheye",
             LensDistortion::eRadTanThinPrismFisheye,
             {0.4, -0.45, 0.12, 0.03, -0.03, 0.005, 0.0006, -0.0003, 0.0005, -0.0001, -0.001,
              0.0002},
             2.0},
        Lens{"DivisionBarrel", LensDistortion::eDivision, {-0.2}, 5.0},
        Lens{"DivisionPincushion", LensDistortion::eDivision, {0.1}, 1.4},
        Lens{"EnhancedUnified", LensDistortion::eEnhancedUnified, {0.6, 1.1}, 20.0}),
    [](const ::testing::TestParamInfo<Lens>& info) { return std::string(info.param.name); });

// Refusals.

TEST_F(LensDistortionTest, WhereABarrelFoldsOverThePointIsRefused) {
  // r (1 - r^2 / 3) is largest, 2/3, at r = 1.
  const LensDistortion lens(LensDistortion::eRadial, {-1.0 / 3.0});
  Point2DDouble ideal;
  ASSERT_TRUE(lens.Undistort({0.6666, 0.0}, ideal));
  EXPECT_LT(ideal.x, 1.0);
  EXPECT_GT(ideal.x, 0.98);
  expectRefused(lens, {0.6668, 0.0});
  expectRefused(lens, {3.0, 4.0});
}

TEST_F(LensDistortionTest, AnImageThatTwoRaysShareGoesToTheNearerRay) {
  // 1.5 lies beyond the fold at 1 and falls on 0.375, as a nearer ray does.
  const LensDistortion lens(LensDistortion::eRadial, {-1.0 / 3.0});
  const Point2DDouble folded = lens.Distort({0.0, 1.5});
  EXPECT_NEAR(folded.y, 0.375, 1e-15);
  Point2DDouble ideal;
  ASSERT_TRUE(lens.Undistort(folded, ideal));
  EXPECT_LT(ideal.y, 1.0);
  EXPECT_NEAR(lens.Distort(ideal).y, 0.375, 1e-14);
}

TEST_F(LensDistortionTest, BeyondTheFoldOfATangentialLensThePointIsRefused) {
  const LensDistortion lens(LensDistortion::eOpenCV, {-1.0 / 3.0, 0.0, 0.001, -0.002});
  expectRefused(lens, {0.5, 0.6});
  expectRefused(lens, {-40.0, 10.0});
}

TEST_F(LensDistortionTest, BeyondAPoleOfTheRationalFormThePointIsRefused) {
  // The divisor 1 - r^2 is zero at r = 1; whatever lies beyond is no picture.
  const LensDistortion lens(LensDistortion::eFullOpenCV, {0, 0, 0, 0, 0, -1.0});
  Point2DDouble ideal;
  ASSERT_TRUE(lens.Undistort({50.0, 0.0}, ideal));
  EXPECT_LT(ideal.x, 1.0);
  EXPECT_NEAR(lens.Distort(ideal).x, 50.0, 1e-9);
}

TEST_F(LensDistortionTest, AFisheyesRayAtARightAngleOrBehindIsRefused) {
  const LensDistortion lens(LensDistortion::eFisheye, {});
  Point2DDouble ideal;
  ASSERT_TRUE(lens.Undistort({1.57, 0.0}, ideal));
  EXPECT_NEAR(ideal.x, std::tan(1.57), 1e-6);
  expectRefused(lens, {std::numbers::pi / 2.0, 0.0});
  expectRefused(lens, {2.0, 0.0});
}

TEST_F(LensDistortionTest, AFieldOfViewsRayAtARightAngleIsRefused) {
  const LensDistortion lens(LensDistortion::eFieldOfView, {0.9});
  expectRefused(lens, {std::numbers::pi / 2.0 / 0.9 + 1e-9, 0.0});
}

TEST_F(LensDistortionTest, ADivisionThatLeavesTheHalfSpaceIsRefused) {
  // 1 - 0.25 r^2 reaches zero at r = 2.
  const LensDistortion barrel(LensDistortion::eDivision, {-0.25});
  expectRefused(barrel, {2.0, 0.0});
  expectRefused(barrel, {2.5, 0.0});
  // 1 + 0.25 r^2: beyond r = 2 the ideal radius falls again.
  const LensDistortion pincushion(LensDistortion::eDivision, {0.25});
  expectRefused(pincushion, {2.001, 0.0});
}

TEST_F(LensDistortionTest, ARayThatADivisionDoesNotShowHasNoImage) {
  // With k = 0.25 no ray further out than 1 / (2 sqrt(k)) = 1 is shown.
  const LensDistortion lens(LensDistortion::eDivision, {0.25});
  expectNear(lens.Distort({1.0, 0.0}), 2.0, 0.0);
  const Point2DDouble none = lens.Distort({1.0001, 0.0});
  EXPECT_TRUE(std::isnan(none.x));
  EXPECT_TRUE(std::isnan(none.y));
}

TEST_F(LensDistortionTest, AnEnhancedUnifiedRayBehindTheCameraIsRefused) {
  const LensDistortion lens(LensDistortion::eEnhancedUnified, {0.6, 1.0});
  expectRefused(lens, {1.0 / 0.6 + 1e-9, 0.0});
  expectRefused(lens, {5.0, 0.0});
}

TEST_F(LensDistortionTest, ALensOfNonFiniteTermsUndistortsNothing) {
  expectRefused(LensDistortion(LensDistortion::eRadial, {notANumber}), {0.1, 0.2});
  expectRefused(LensDistortion(LensDistortion::eOpenCV, {0.1, 0.0, notANumber}), {0.1, 0.2});
  expectRefused(LensDistortion(LensDistortion::eFisheye, {infinity}), {0.1, 0.2});
  expectRefused(LensDistortion(LensDistortion::eDivision, {notANumber}), {0.1, 0.2});
  expectRefused(LensDistortion(LensDistortion::eFieldOfView, {notANumber}), {0.1, 0.2});
}
