#include "host/model/PointMesh.h"

#include "host/model/ThreeDPointFromPointMesh.h"
#include "host/model/Triangle.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <malloc.h>
#include <memory>
#include <type_traits>
#include <vector>
#ifdef __SANITIZE_ADDRESS__
// GCC comes without the header that declares it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

using tarn::BasicAffine;
using tarn::Point3DDouble;
using tarn::PointMesh;
using tarn::VOrdCollect;

class PointMeshTest : public TarnTest {
protected:
  /// Four points; the box is (-7, -2, -3.5) to (4, 8, 6).
  void fill(int withColours = 0) {
    mesh.Allocate(4, withColours);
    const float numbers[] = {1, 2, 3, 4, -2, 6, -7, 8, 0.5F, 2, 5, -3.5F};
    std::ranges::copy(numbers, mesh.GetPointStorage().begin());
  }

  void shift(const Point3DDouble& by) {
    BasicAffine affine;
    affine.SetTranslation({}, by);
    mesh.SetLocalAffine(affine);
  }

  // Row vectors: (x, y, z) becomes (z, x, y).
  static BasicAffine turn() {
    tarn::MatrixDouble rotation(3, 3);
    rotation(1, 2) = rotation(2, 3) = rotation(3, 1) = 1.0;
    BasicAffine affine;
    affine.SetRotation(rotation);
    return affine;
  }

  void expectBox(BasicAffine* affine, int stored, const Point3DDouble& low,
                 const Point3DDouble& high) const {
    Point3DDouble minimum;
    Point3DDouble maximum;
    ASSERT_TRUE(mesh.GetBoundingBox(minimum, maximum, affine, stored));
    EXPECT_EQ(minimum, low);
    EXPECT_EQ(maximum, high);
  }

  void expectNoBox() const {
    Point3DDouble minimum{7, 8, 9};
    Point3DDouble maximum{10, 11, 12};
    BasicAffine affine = turn();
    for (BasicAffine* through : {static_cast<BasicAffine*>(nullptr), &affine}) {
      EXPECT_FALSE(mesh.GetBoundingBox(minimum, maximum, through, 0));
      EXPECT_FALSE(mesh.GetBoundingBox(minimum, maximum, through, 1));
    }
    EXPECT_EQ(minimum, Point3DDouble(7, 8, 9));
    EXPECT_EQ(maximum, Point3DDouble(10, 11, 12));
  }

  static std::size_t bytesInUse() {
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
  }

  PointMesh mesh;
};

// --- Points and colours

TEST_F(PointMeshTest, ANewMeshHasNothing) {
  EXPECT_EQ(mesh.GetPoints(), nullptr);
  EXPECT_EQ(mesh.GetRGBsForPoints(), nullptr);
  EXPECT_EQ(mesh.GetNumPoints(), 0);
  EXPECT_EQ(mesh.GetNumTriangles(), 0);
  EXPECT_EQ(mesh.HasLocalAffine(), 0);
  EXPECT_EQ(mesh.GetLocalAffine(), nullptr);
  EXPECT_EQ(mesh.GetContours().size(), 0);
  EXPECT_TRUE(mesh.GetName().isEmpty());
  EXPECT_TRUE(mesh.GetPointStorage().empty());
  EXPECT_TRUE(mesh.GetColourStorage().empty());
  EXPECT_EQ(mesh.GetTriangles()->size(), 0);
  expectNoBox();
}

TEST_F(PointMeshTest, IsASurfaceToTheClassSystem) {
  EXPECT_EQ(tarn::VClass::find("PointMesh"), &tarn::PointMeshCls);
  EXPECT_TRUE(mesh.isA(tarn::SurfaceCls));
  const std::unique_ptr<tarn::VObject> made(tarn::PointMeshCls.create());
  EXPECT_TRUE(made->isA(tarn::PointMeshCls));
}

TEST_F(PointMeshTest, StaysWhereItIsForItsPointsReferToIt) {
  EXPECT_FALSE(std::is_copy_constructible_v<PointMesh>);
  EXPECT_FALSE(std::is_copy_assignable_v<PointMesh>);
  EXPECT_FALSE(std::is_move_constructible_v<PointMesh>);
}

TEST_F(PointMeshTest, WhatIsWrittenIntoItsStorageIsItsPoints) {
  fill();
  ASSERT_EQ(mesh.GetNumPoints(), 4);
  float** const rows = mesh.GetPoints();
  EXPECT_EQ(rows[2][0], -7.0F);
  EXPECT_EQ(rows[2][1], 8.0F);
  EXPECT_EQ(rows[2][2], 0.5F);
  EXPECT_EQ(mesh.GetPoint(3), Point3DDouble(2, 5, -3.5));
  EXPECT_EQ(mesh.GetRGBsForPoints(), nullptr);
  EXPECT_TRUE(mesh.GetColourStorage().empty());
}

TEST_F(PointMeshTest, WhatIsWrittenIntoItsColoursIsTheirBytes) {
  fill(1);
  ASSERT_EQ(mesh.GetColourStorage().size(), 12U);
  for (std::size_t i = 0; i < 12; ++i) {
    mesh.GetColourStorage()[i] = static_cast<unsigned char>(10 * i);
  }
  unsigned char** const rows = mesh.GetRGBsForPoints();
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(rows[1][0], 30);
  EXPECT_EQ(rows[3][2], 110);
}

TEST_F(PointMeshTest, AMeshOfNoPointsHasAPointArray) {
  mesh.Allocate(0, 1);
  EXPECT_NE(mesh.GetPoints(), nullptr);
  EXPECT_NE(mesh.GetRGBsForPoints(), nullptr);
  EXPECT_EQ(mesh.GetNumPoints(), 0);
  expectNoBox();
  mesh.Allocate(-3, 0);
  EXPECT_EQ(mesh.GetNumPoints(), 0);
}

TEST_F(PointMeshTest, PointsOutOfRangeAreTheOrigin) {
  fill();
  shift({100, 200, 300});
  for (const int index : {-1, 4, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(mesh.GetPoint(index), Point3DDouble());
  }
  EXPECT_EQ(PointMesh().GetPoint(0), Point3DDouble());
}

TEST_F(PointMeshTest, AllocatingAgainDropsColoursTrianglesAndContours) {
  fill(1);
  ASSERT_TRUE(mesh.SetTriangles({{0, 1, 2}}));
  mesh.AddContour();
  expectBox(nullptr, 1, {-7, -2, -3.5}, {4, 8, 6});
  mesh.Allocate(1, 0);
  std::ranges::copy(std::initializer_list<float>{10, 20, 30}, mesh.GetPointStorage().begin());
  EXPECT_EQ(mesh.GetNumPoints(), 1);
  EXPECT_EQ(mesh.GetRGBsForPoints(), nullptr);
  EXPECT_EQ(mesh.GetNumTriangles(), 0);
  EXPECT_EQ(mesh.GetTriangles()->size(), 0);
  EXPECT_EQ(mesh.GetContours().size(), 0);
  expectBox(nullptr, 1, {10, 20, 30}, {10, 20, 30});
}

TEST_F(PointMeshTest, TruncatingKeepsTheFirstPointsWithTheirColours) {
  fill(1);
  std::ranges::fill(mesh.GetColourStorage(), static_cast<unsigned char>(9));
  ASSERT_TRUE(mesh.SetTriangles({{0, 1, 3}}));
  expectBox(nullptr, 1, {-7, -2, -3.5}, {4, 8, 6});
  mesh.Truncate(2);
  EXPECT_EQ(mesh.GetNumPoints(), 2);
  EXPECT_EQ(mesh.GetPoint(1), Point3DDouble(4, -2, 6));
  EXPECT_EQ(mesh.GetColourStorage().size(), 6U);
  EXPECT_EQ(mesh.GetNumTriangles(), 0);
  expectBox(nullptr, 1, {1, -2, 3}, {4, 2, 6});
}

TEST_F(PointMeshTest, TruncatingToAsManyOrMoreChangesNothing) {
  fill();
  ASSERT_TRUE(mesh.SetTriangles({{0, 1, 3}}));
  for (const int refused : {4, 5, -1}) {
    mesh.Truncate(refused);
    EXPECT_EQ(mesh.GetNumPoints(), 4);
    EXPECT_EQ(mesh.GetNumTriangles(), 1);
  }
}

TEST_F(PointMeshTest, KeepingPointsMovesThemTogetherWithColoursNormalsAndTriangles) {
  fill(1);
  for (int i = 0; i < 12; ++i) {
    mesh.GetColourStorage()[static_cast<std::size_t>(i)] = static_cast<unsigned char>(i);
  }
  ASSERT_TRUE(
      mesh.SetTriangles({{0, 1, 2}, {3, 1, 2}}, {{0, 0, 1}, {0, 0, 2}, {0, 0, 3}, {0, 0, 4}}));
  expectBox(nullptr, 1, {-7, -2, -3.5}, {4, 8, 6});
  mesh.AddContour();
  mesh.KeepPoints({false, true, true, true});
  ASSERT_EQ(mesh.GetNumPoints(), 3);
  EXPECT_EQ(mesh.GetPoint(0), Point3DDouble(4, -2, 6));
  EXPECT_EQ(mesh.GetPoint(2), Point3DDouble(2, 5, -3.5));
  EXPECT_EQ(mesh.GetRGBsForPoints()[2][1], 10);
  ASSERT_EQ(mesh.GetNumTriangles(), 1);
  PointMesh::Corners corners;
  ASSERT_TRUE(mesh.GetTriangleCorners(0, corners));
  EXPECT_EQ(corners, (PointMesh::Corners{2, 0, 1}));
  const auto* triangle = static_cast<tarn::Triangle*>(mesh.GetTriangles()->at(0));
  EXPECT_EQ(*triangle->GetNormal(0), Point3DDouble(0, 0, 4));
  EXPECT_EQ(mesh.GetContours().size(), 0);
  expectBox(nullptr, 1, {-7, -2, -3.5}, {4, 8, 6});
  mesh.KeepPoints({true});
  expectBox(nullptr, 1, {4, -2, 6}, {4, -2, 6});
}

TEST_F(PointMeshTest, KeepingNoPointLeavesAnEmptyMesh) {
  fill();
  mesh.KeepPoints({});
  EXPECT_EQ(mesh.GetNumPoints(), 0);
  expectNoBox();
}

TEST_F(PointMeshTest, APointTakesTwentyBytesAndItsColourElevenMore) {
  constexpr int points = 1'000'000;
  constexpr std::size_t slack = 1 << 16;  // pages and heads of the blocks
  const std::size_t before = bytesInUse();
  mesh.Allocate(points, 0);
  const std::size_t plain = bytesInUse() - before;
  EXPECT_GE(plain, 20U * points);
  EXPECT_LE(plain, 20U * points + slack);
  mesh.Allocate(points, 1);
  const std::size_t coloured = bytesInUse() - before;
  EXPECT_GE(coloured, 31U * points);
  EXPECT_LE(coloured, 31U * points + slack);
  mesh.Allocate(0, 0);
  EXPECT_LE(bytesInUse() - before, slack);
}

// --- Triangles

TEST_F(PointMeshTest, GivesCornersAsIndexesAndAsStoredPoints) {
  fill();
  shift({100, 200, 300});
  ASSERT_TRUE(mesh.SetTriangles({{0, 1, 2}, {3, 2, 1}}));
  ASSERT_EQ(mesh.GetNumTriangles(), 2);
  PointMesh::Corners corners{};
  ASSERT_TRUE(mesh.GetTriangleCorners(1, corners));
  EXPECT_EQ(corners, (PointMesh::Corners{3, 2, 1}));
  Point3DDouble points[3];
  ASSERT_TRUE(mesh.GetTrianglePoints(1, points));
  EXPECT_EQ(points[0], Point3DDouble(2, 5, -3.5));
  EXPECT_EQ(points[1], Point3DDouble(-7, 8, 0.5));
  EXPECT_EQ(points[2], Point3DDouble(4, -2, 6));
}

TEST_F(PointMeshTest, TrianglesOutOfRangeAreRefusedAndChangeNothing) {
  fill();
  ASSERT_TRUE(mesh.SetTriangles({{0, 1, 2}}));
  PointMesh::Corners corners{7, 8, 9};
  Point3DDouble points[3] = {{1, 1, 1}, {2, 2, 2}, {3, 3, 3}};
  for (const int index : {-1, 1}) {
    EXPECT_FALSE(mesh.GetTriangleCorners(index, corners));
    EXPECT_FALSE(mesh.GetTrianglePoints(index, points));
  }
  EXPECT_EQ(corners, (PointMesh::Corners{7, 8, 9}));
  EXPECT_EQ(points[1], Point3DDouble(2, 2, 2));
}

TEST_F(PointMeshTest, TrianglesWithACornerThatIsNoPointAreRefusedAsAWhole) {
  fill();
  ASSERT_TRUE(mesh.SetTriangles({{0, 1, 2}}));
  EXPECT_FALSE(mesh.SetTriangles({{1, 2, 3}, {0, 1, 4}}));
  EXPECT_FALSE(mesh.SetTriangles({{-1, 2, 3}}));
  EXPECT_EQ(mesh.GetNumTriangles(), 1);
  EXPECT_FALSE(PointMesh().SetTriangles({{0, 0, 0}}));
}

TEST_F(PointMeshTest, NormalsMustBeOneForEachPointOrNone) {
  fill();
  EXPECT_FALSE(mesh.SetTriangles({{0, 1, 2}}, std::vector<Point3DDouble>(3)));
  EXPECT_EQ(mesh.GetNumTriangles(), 0);
  EXPECT_TRUE(mesh.SetTriangles({{0, 1, 2}}, std::vector<Point3DDouble>(4)));
  EXPECT_TRUE(mesh.SetTriangles({{0, 1, 2}}));
}

TEST_F(PointMeshTest, TriangleObjectsShareThePointsOfTheMesh) {
  fill();
  shift({100, 200, 300});
  ASSERT_TRUE(mesh.SetTriangles({{0, 1, 2}, {3, 2, 1}}));
  VOrdCollect& triangles = *mesh.GetTriangles();
  ASSERT_EQ(triangles.size(), 2);
  const auto& first = static_cast<const tarn::Triangle&>(*triangles.at(0));
  const auto& second = static_cast<const tarn::Triangle&>(*triangles.at(1));
  EXPECT_TRUE(first.isA(tarn::TriangleCls));
  EXPECT_TRUE(first.GetPoint(0)->isA(tarn::ThreeDPointFromPointMeshCls));
  EXPECT_EQ(first.GetPoint(1), second.GetPoint(2));
  EXPECT_EQ(first.GetPoint(2), second.GetPoint(1));
  EXPECT_NE(first.GetPoint(0), second.GetPoint(0));
  tarn::Point3DRandom position;
  ASSERT_TRUE(second.GetPoint(0)->GetApproximation(position));
  EXPECT_EQ(position.position(), Point3DDouble(102, 205, 296.5));
  EXPECT_EQ(first.GetNormal(0), nullptr);
}

TEST_F(PointMeshTest, TriangleObjectsCarryTheNormalsOfTheirPoints) {
  fill();
  ASSERT_TRUE(
      mesh.SetTriangles({{0, 1, 2}, {3, 2, 1}}, {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0.6, 0.8, 0}}));
  const auto& second = static_cast<const tarn::Triangle&>(*mesh.GetTriangles()->at(1));
  EXPECT_EQ(*second.GetNormal(0), Point3DDouble(0.6, 0.8, 0));
  EXPECT_EQ(*second.GetNormal(1), Point3DDouble(0, 0, 1));
  EXPECT_EQ(*second.GetNormal(2), Point3DDouble(0, 1, 0));
}

TEST_F(PointMeshTest, TriangleObjectsAreMadeWhenFirstAskedForAndThenKept) {
  constexpr int count = 100'000;
  fill();
  const std::size_t before = bytesInUse();
  ASSERT_TRUE(mesh.SetTriangles(std::vector<PointMesh::Corners>(count, {0, 1, 2})));
  const std::size_t indexesOnly = bytesInUse() - before;
  EXPECT_LE(indexesOnly, 12U * count + (1 << 16));
  VOrdCollect* const triangles = mesh.GetTriangles();
  EXPECT_GT(bytesInUse() - before, indexesOnly + 32U * count);
  const tarn::VObject* const last = triangles->at(count - 1);
  EXPECT_EQ(mesh.GetTriangles(), triangles);
  EXPECT_EQ(triangles->at(count - 1), last);
}

TEST_F(PointMeshTest, NewTrianglesMeanNewObjects) {
  fill();
  ASSERT_TRUE(mesh.SetTriangles({{0, 1, 2}, {3, 2, 1}}));
  ASSERT_EQ(mesh.GetTriangles()->size(), 2);
  ASSERT_TRUE(mesh.SetTriangles({{3, 1, 0}}));
  ASSERT_EQ(mesh.GetTriangles()->size(), 1);
  const auto& triangle = static_cast<const tarn::Triangle&>(*mesh.GetTriangles()->at(0));
  EXPECT_EQ(static_cast<tarn::ThreeDPointFromPointMesh*>(triangle.GetPoint(0))->GetIndex(), 3);
}

// --- The local affine

TEST_F(PointMeshTest, TheLocalAffineIsHandedOutAsACopyOfTheCallers) {
  shift({100, 200, 300});
  EXPECT_TRUE(mesh.HasLocalAffine());
  const std::unique_ptr<BasicAffine> first(mesh.GetLocalAffine());
  const std::unique_ptr<BasicAffine> second(mesh.GetLocalAffine());
  ASSERT_NE(first, nullptr);
  EXPECT_NE(first, second);
  first->SetTranslation({}, {1, 1, 1});
  Point3DDouble before;
  Point3DDouble after;
  ASSERT_TRUE(second->GetTranslation(before, after));
  EXPECT_EQ(after, Point3DDouble(100, 200, 300));
  mesh.ClearLocalAffine();
  EXPECT_FALSE(mesh.HasLocalAffine());
  EXPECT_EQ(mesh.GetLocalAffine(), nullptr);
}

TEST_F(PointMeshTest, TheLocalAffineMovesPointsInItsDirection) {
  fill();
  BasicAffine affine;
  affine.SetScale(2.0);
  affine.SetTranslation({}, {5000000, 0, 10});
  mesh.SetLocalAffine(affine);
  EXPECT_EQ(mesh.GetPoint(1), Point3DDouble(4, -2, 6));
  EXPECT_EQ(mesh.GetModelPoint(1), Point3DDouble(5000008, -4, 22));
  affine.DoInversion(1);
  mesh.SetLocalAffine(affine);
  EXPECT_EQ(mesh.GetModelPoint(1), Point3DDouble(-2499998, -1, -2));
  const std::unique_ptr<BasicAffine> copy(mesh.GetLocalAffine());
  EXPECT_TRUE(copy->IsInverted());
}

TEST_F(PointMeshTest, ALocalAffineThatCannotBeSetUpIsHandedOutAndMovesNothing) {
  fill();
  BasicAffine affine;
  affine.SetScale(0.0);
  mesh.SetLocalAffine(affine);
  EXPECT_TRUE(mesh.HasLocalAffine());
  const std::unique_ptr<BasicAffine> copy(mesh.GetLocalAffine());
  EXPECT_FALSE(copy->SetupAffine());
  EXPECT_EQ(mesh.GetModelPoint(1), Point3DDouble(4, -2, 6));
  expectBox(nullptr, 0, {-7, -2, -3.5}, {4, 8, 6});
  affine.SetScale(2.0);
  mesh.SetLocalAffine(affine);
  EXPECT_EQ(mesh.GetModelPoint(1), Point3DDouble(8, -4, 12));
}

// --- Boxes

TEST_F(PointMeshTest, TheBoxIsOfThePointsInTheModelOrAsStored) {
  fill();
  expectBox(nullptr, 0, {-7, -2, -3.5}, {4, 8, 6});
  shift({5000000, 200, 300});
  expectBox(nullptr, 0, {4999993, 198, 296.5}, {5000004, 208, 306});
  expectBox(nullptr, 1, {-7, -2, -3.5}, {4, 8, 6});
}

TEST_F(PointMeshTest, TheBoxGoesThroughTheAffineAfterTheLocalOne) {
  fill();
  shift({100, 200, 300});
  BasicAffine affine;
  affine.SetScale(2.0);
  expectBox(&affine, 0, {186, 396, 593}, {208, 416, 612});
  expectBox(&affine, 1, {-14, -4, -7}, {8, 16, 12});
  affine.DoInversion(1);
  expectBox(&affine, 1, {-3.5, -1, -1.75}, {2, 4, 3});
}

TEST_F(PointMeshTest, ARotationTurnsPointsAndNotTheBox) {
  fill();
  BasicAffine affine = turn();
  expectBox(&affine, 1, {-3.5, -7, -2}, {6, 4, 8});
  // By 45 degrees about z the box of the points is smaller than that of the turned box.
  const double half = std::sqrt(0.5);
  tarn::MatrixDouble rotation = tarn::MatrixDouble::Identity(3);
  rotation(1, 1) = rotation(2, 2) = rotation(1, 2) = half;
  rotation(2, 1) = -half;
  affine.SetRotation(rotation);
  Point3DDouble minimum;
  Point3DDouble maximum;
  ASSERT_TRUE(mesh.GetBoundingBox(minimum, maximum, &affine, 1));
  EXPECT_NEAR(minimum.x, -15 * half, 1e-12);
  EXPECT_NEAR(maximum.x, 6 * half, 1e-12);
  EXPECT_NEAR(minimum.y, half, 1e-12);
  EXPECT_NEAR(maximum.y, 7 * half, 1e-12);
}

TEST_F(PointMeshTest, ALocalRotationTurnsThePointsInTheModelOnly) {
  fill();
  mesh.SetLocalAffine(turn());
  expectBox(nullptr, 0, {-3.5, -7, -2}, {6, 4, 8});
  expectBox(nullptr, 1, {-7, -2, -3.5}, {4, 8, 6});
}

TEST_F(PointMeshTest, AnAffineThatCannotBeSetUpDoesNotChangeTheBox) {
  fill();
  BasicAffine affine;
  affine.SetTranslation({}, {1, 1, 1});
  affine.SetScale(-1.0);
  expectBox(&affine, 0, {-7, -2, -3.5}, {4, 8, 6});
}

TEST_F(PointMeshTest, PointsThatAreNotFiniteAreLeftOutOfTheBox) {
  fill();
  mesh.GetPoints()[1][0] = std::numeric_limits<float>::quiet_NaN();
  mesh.GetPoints()[2][2] = std::numeric_limits<float>::infinity();
  BasicAffine affine = turn();
  expectBox(nullptr, 0, {1, 2, -3.5}, {2, 5, 3});
  expectBox(&affine, 0, {-3.5, 1, 2}, {3, 2, 5});
  mesh.GetPoints()[0][0] = mesh.GetPoints()[3][1] = std::numeric_limits<float>::quiet_NaN();
  mesh.PointsChanged();
  expectNoBox();
}

TEST_F(PointMeshTest, PointsWrittenLaterCountOnceTheyWereAnnounced) {
  fill();
  expectBox(nullptr, 1, {-7, -2, -3.5}, {4, 8, 6});
  mesh.GetPoints()[0][1] = 50;
  mesh.PointsChanged();
  expectBox(nullptr, 1, {-7, -2, -3.5}, {4, 50, 6});
}

TEST_F(PointMeshTest, ADerivedMeshAnswersFromItsOwnPoints) {
  class OwnPoints : public PointMesh {
  public:
    float** GetPoints() const override { return const_cast<float**>(rows); }
    int GetNumPoints() const override { return 2; }
    float numbers[6] = {1, 2, 3, -4, 5, 6};
    float* rows[2] = {numbers, numbers + 3};
  };
  const OwnPoints derived;
  EXPECT_EQ(derived.GetPoint(1), Point3DDouble(-4, 5, 6));
  EXPECT_EQ(derived.GetPoint(2), Point3DDouble());
  Point3DDouble minimum;
  Point3DDouble maximum;
  BasicAffine affine = turn();
  ASSERT_TRUE(derived.GetBoundingBox(minimum, maximum, nullptr, 1));
  EXPECT_EQ(minimum, Point3DDouble(-4, 2, 3));
  ASSERT_TRUE(derived.GetBoundingBox(minimum, maximum, &affine, 1));
  EXPECT_EQ(minimum, Point3DDouble(3, -4, 2));
}

// --- Contours and name

TEST_F(PointMeshTest, ContoursAreListedInTheOrderOfAddingAndStayInPlace) {
  std::vector<tarn::PointMeshContour*> added;
  for (int i = 0; i < 1000; ++i) added.push_back(&mesh.AddContour());
  ASSERT_EQ(mesh.GetContours().size(), 1000);
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(mesh.GetContours().at(i), added[static_cast<std::size_t>(i)]);
  }
  mesh.ClearContours();
  EXPECT_EQ(mesh.GetContours().size(), 0);
}

TEST_F(PointMeshTest, AnswersItsName) {
  mesh.SetName("fused.ply");
  EXPECT_STREQ(mesh.GetName().text(), "fused.ply");
}
