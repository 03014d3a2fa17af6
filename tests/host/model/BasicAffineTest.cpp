#include "host/model/BasicAffine.h"

#include "tests/support/TarnTest.h"

#include <limits>

using tarn::BasicAffine;
using tarn::MatrixDouble;
using tarn::Point3DDouble;

class BasicAffineTest : public TarnTest {
protected:
  // Row vectors: (x, y, z) becomes (z, x, y).
  static MatrixDouble cycle() {
    MatrixDouble rotation(3, 3);
    rotation(1, 2) = rotation(2, 3) = rotation(3, 1) = 1.0;
    return rotation;
  }

  void fill() {
    affine.SetScale(2.0);
    affine.SetTranslation({10.0, 20.0, 30.0}, {100.0, 200.0, 300.0});
    affine.SetRotation(cycle());
  }

  static void expectPoint(const Point3DDouble& found, double x, double y, double z) {
    EXPECT_NEAR(found.x, x, 1e-12);
    EXPECT_NEAR(found.y, y, 1e-12);
    EXPECT_NEAR(found.z, z, 1e-12);
  }

  BasicAffine affine;
};

TEST_F(BasicAffineTest, ANewAffineHasNoPartsAndConvertsNothing) {
  EXPECT_FALSE(affine.HasScale());
  EXPECT_FALSE(affine.HasTranslation());
  EXPECT_FALSE(affine.HasRotation());
  EXPECT_FALSE(affine.IsInverted());
  EXPECT_TRUE(affine.SetupAffine());
  Point3DDouble point{1.0, 2.0, 3.0};
  affine.ConvertPoint(point);
  EXPECT_EQ(point, Point3DDouble(1.0, 2.0, 3.0));
}

TEST_F(BasicAffineTest, AnAbsentPartIsNotGiven) {
  double scale = 7.0;
  Point3DDouble before{7.0, 7.0, 7.0};
  Point3DDouble after{8.0, 8.0, 8.0};
  MatrixDouble* rotation = nullptr;
  EXPECT_FALSE(affine.GetScale(scale));
  EXPECT_FALSE(affine.GetTranslation(before, after));
  EXPECT_FALSE(affine.GetRotation(&rotation));
  EXPECT_EQ(scale, 7.0);
  EXPECT_EQ(before, Point3DDouble(7.0, 7.0, 7.0));
  EXPECT_EQ(after, Point3DDouble(8.0, 8.0, 8.0));
  EXPECT_EQ(rotation, nullptr);
}

TEST_F(BasicAffineTest, GivesItsParts) {
  fill();
  double scale = 0.0;
  Point3DDouble before;
  Point3DDouble after;
  MatrixDouble* rotation = nullptr;
  ASSERT_TRUE(affine.GetScale(scale));
  ASSERT_TRUE(affine.GetTranslation(before, after));
  ASSERT_TRUE(affine.GetRotation(&rotation));
  EXPECT_EQ(scale, 2.0);
  EXPECT_EQ(before, Point3DDouble(10.0, 20.0, 30.0));
  EXPECT_EQ(after, Point3DDouble(100.0, 200.0, 300.0));
  EXPECT_EQ(*rotation, cycle());
}

TEST_F(BasicAffineTest, ScalesMovesTurnsAndMovesAgain) {
  fill();
  ASSERT_TRUE(affine.SetupAffine());
  Point3DDouble point{1.0, 2.0, 3.0};  // (2, 4, 6), (12, 24, 36), (36, 12, 24)
  affine.ConvertPoint(point);
  expectPoint(point, 136.0, 212.0, 324.0);
}

TEST_F(BasicAffineTest, InvertedItTakesTheStepsBack) {
  fill();
  affine.DoInversion(1);
  EXPECT_TRUE(affine.IsInverted());
  ASSERT_TRUE(affine.SetupAffine());
  Point3DDouble point{136.0, 212.0, 324.0};
  affine.ConvertPoint(point);
  expectPoint(point, 1.0, 2.0, 3.0);
  affine.DoInversion(0);
  affine.ConvertPoint(point);
  expectPoint(point, 136.0, 212.0, 324.0);
}

TEST_F(BasicAffineTest, TheMatrixHandedOutCanBeInvertedWithoutChangingTheAffine) {
  fill();
  MatrixDouble* rotation = nullptr;
  ASSERT_TRUE(affine.GetRotation(&rotation));
  ASSERT_TRUE(rotation->invert());
  EXPECT_EQ(*rotation, cycle().transposed());
  Point3DDouble point{1.0, 2.0, 3.0};
  affine.ConvertPoint(point);
  expectPoint(point, 136.0, 212.0, 324.0);
  ASSERT_TRUE(affine.GetRotation(&rotation));
  EXPECT_EQ(*rotation, cycle());
}

TEST_F(BasicAffineTest, AScaleThatIsNotPositiveAndFiniteIsRefused) {
  for (const double scale : {0.0, -1.0, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
    affine.SetScale(scale);
    EXPECT_FALSE(affine.SetupAffine()) << scale;
  }
}

TEST_F(BasicAffineTest, ATranslationThatIsNotFiniteIsRefused) {
  const double infinity = std::numeric_limits<double>::infinity();
  affine.SetTranslation({0.0, infinity, 0.0}, {});
  EXPECT_FALSE(affine.SetupAffine());
  affine.SetTranslation({}, {0.0, 0.0, -infinity});
  EXPECT_FALSE(affine.SetupAffine());
}

TEST_F(BasicAffineTest, ARotationThatIsNotThreeByThreeOrSingularIsRefusedAndConvertsNothing) {
  for (const MatrixDouble& bad : {MatrixDouble(3, 3), MatrixDouble::Identity(2), MatrixDouble(3, 4),
                                  MatrixDouble::Identity(4), MatrixDouble()}) {
    affine.SetRotation(bad);
    EXPECT_FALSE(affine.SetupAffine());
    Point3DDouble point{1.0, 2.0, 3.0};
    affine.ConvertPoint(point);
    affine.DoInversion(!affine.IsInverted());
    affine.ConvertPoint(point);
    EXPECT_EQ(point, Point3DDouble(1.0, 2.0, 3.0));
  }
  affine.SetRotation(cycle());
  EXPECT_TRUE(affine.SetupAffine());
}
