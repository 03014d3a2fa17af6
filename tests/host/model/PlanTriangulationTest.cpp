#include "host/model/PlanTriangulation.h"

#include "tests/support/MeshPoints.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <set>
#include <utility>
#include <vector>

using tarn::PlanTriangulation;
using tarn::Point3DDouble;
using tarn::PointMesh;
using ::testing::Each;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

class PlanTriangulationTest : public TarnTest {
protected:
  struct Whole {
    std::int64_t x;
    std::int64_t y;
  };

  /// Points with whole coordinates of up to `size`, each place once.
  void setRandomPoints(int count, int size, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> coordinate(-size, size);
    std::set<std::pair<int, int>> places;
    while (static_cast<int>(places.size()) < count) {
      places.emplace(coordinate(random), coordinate(random));
    }
    std::vector<Point3DDouble> points;
    for (const auto& [x, y] : places) points.emplace_back(x, y, coordinate(random));
    std::ranges::shuffle(points, random);
    setPoints(mesh, points);
  }

  Whole whole(int point) const {
    const Point3DDouble stored = mesh.GetPoint(point);
    return {std::llround(stored.x), std::llround(stored.y)};
  }

  /// Twice the area; positive where the corners run counter-clockwise.
  std::int64_t doubleArea(const PointMesh::Corners& corners) const {
    const auto [a, b, c] = std::array{whole(corners[0]), whole(corners[1]), whole(corners[2])};
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
  }

  /// Whether the point lies inside the circle through the corners, exactly.
  bool isInCircle(const PointMesh::Corners& corners, int point) const {
    const Whole p = whole(point);
    std::array<std::array<std::int64_t, 3>, 3> m{};
    for (std::size_t k = 0; k < 3; ++k) {
      const Whole corner = whole(corners[k]);
      const std::int64_t x = corner.x - p.x;
      const std::int64_t y = corner.y - p.y;
      m[k] = {x, y, x * x + y * y};
    }
    const auto minor = [&m](std::size_t i, std::size_t k) {
      return m[i][0] * m[k][1] - m[k][0] * m[i][1];
    };
    return m[0][2] * minor(1, 2) - m[1][2] * minor(0, 2) + m[2][2] * minor(0, 1) > 0;
  }

  /// Checks turn, emptiness of all circles, and that the convex hull is covered once.
  void expectDelaunay(const PlanTriangulation& found) const {
    std::int64_t area = 0;
    for (const PointMesh::Corners& corners : found.triangles) {
      ASSERT_GT(doubleArea(corners), 0);
      area += doubleArea(corners);
      for (int i = 0; i < mesh.GetNumPoints(); ++i) ASSERT_FALSE(isInCircle(corners, i));
    }
    EXPECT_EQ(area, doubleHullArea());
  }

  std::int64_t doubleHullArea() const {
    std::vector<Whole> points;
    for (int i = 0; i < mesh.GetNumPoints(); ++i) points.push_back(whole(i));
    std::ranges::sort(
        points, [](const Whole& a, const Whole& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    // Andrew's monotone chain, once along the lower side and once along the upper.
    std::int64_t area = 0;
    for (int side = 0; side < 2; ++side) {
      std::vector<Whole> chain;
      for (const Whole& p : points) {
        while (chain.size() > 1) {
          const Whole& a = chain[chain.size() - 2];
          const Whole& b = chain.back();
          if ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x) > 0) break;
          chain.pop_back();
        }
        chain.push_back(p);
      }
      for (std::size_t i = 1; i < chain.size(); ++i) {
        area += chain[i - 1].x * chain[i].y - chain[i].x * chain[i - 1].y;
      }
      std::ranges::reverse(points);
    }
    return area;
  }

  PlanTriangulation triangulateAll() const {
    return PlanTriangulation::of(mesh, {.longestEdge = 0.0, .mostPoints = 1'000'000});
  }

  /// Which points the triangles use.
  static std::set<int> cornersOf(const PlanTriangulation& found) {
    std::set<int> corners;
    for (const PointMesh::Corners& triangle : found.triangles) {
      corners.insert(triangle.begin(), triangle.end());
    }
    return corners;
  }

  static constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  PointMesh mesh;
};

// --- The triangulation

TEST_F(PlanTriangulationTest, ThreePointsAreATriangleCounterClockwise) {
  setPoints(mesh, {{0, 0, 5}, {0, 2, 6}, {4, 0, 7}});
  const PlanTriangulation found = triangulateAll();
  ASSERT_THAT(found.triangles, SizeIs(1));
  EXPECT_THAT(found.triangles[0], UnorderedElementsAre(0, 1, 2));
  expectDelaunay(found);
  EXPECT_EQ(found.usedPoints, 3);
  EXPECT_EQ(found.places, 3);
}

TEST_F(PlanTriangulationTest, CirclesAreEmptyAndTheHullIsCovered) {
  for (unsigned seed = 1; seed <= 10; ++seed) {
    setRandomPoints(300, 5000, seed);
    const PlanTriangulation found = triangulateAll();
    expectDelaunay(found);
    EXPECT_THAT(cornersOf(found), SizeIs(300));
  }
}

TEST_F(PlanTriangulationTest, ManyPlacesOnOneCircleOrLineAreTriangulatedToo) {
  // Nearly every place of a small square: most circles and lines have several.
  for (unsigned seed = 1; seed <= 10; ++seed) {
    setRandomPoints(200, 8, seed);
    const PlanTriangulation found = triangulateAll();
    expectDelaunay(found);
    EXPECT_THAT(cornersOf(found), SizeIs(200));
  }
}

TEST_F(PlanTriangulationTest, AGridHasTwoTrianglesACell) {
  std::vector<Point3DDouble> points;
  for (int row = 0; row < 30; ++row) {
    for (int column = 0; column < 40; ++column) points.emplace_back(column, row, row * column);
  }
  setPoints(mesh, points);
  const PlanTriangulation found = triangulateAll();
  EXPECT_THAT(found.triangles, SizeIs(2 * 29 * 39));
  expectDelaunay(found);
  EXPECT_DOUBLE_EQ(found.typicalEdge, 1.0);
}

TEST_F(PlanTriangulationTest, PlacesOnACircleAreAllUsed) {
  // The twelve whole points at distance 5 from the origin.
  setPoints(mesh, {{5, 0, 1},
                   {4, 3, 1},
                   {3, 4, 1},
                   {0, 5, 1},
                   {-3, 4, 1},
                   {-4, 3, 1},
                   {-5, 0, 1},
                   {-4, -3, 1},
                   {-3, -4, 1},
                   {0, -5, 1},
                   {3, -4, 1},
                   {4, -3, 1}});
  const PlanTriangulation found = triangulateAll();
  EXPECT_THAT(found.triangles, SizeIs(10));
  expectDelaunay(found);
}

TEST_F(PlanTriangulationTest, PlacesOnOneLineHaveNoTriangles) {
  std::vector<Point3DDouble> points;
  for (int i = 0; i < 50; ++i) points.emplace_back(3 * i, 2 * i, i % 7);
  setPoints(mesh, points);
  const PlanTriangulation found = triangulateAll();
  EXPECT_THAT(found.triangles, IsEmpty());
  EXPECT_EQ(found.usedPoints, 50);
  EXPECT_EQ(found.typicalEdge, 0.0);
}

TEST_F(PlanTriangulationTest, FewerThanThreePlacesHaveNoTriangles) {
  EXPECT_THAT(triangulateAll().triangles, IsEmpty());
  setPoints(mesh, {});
  EXPECT_THAT(triangulateAll().triangles, IsEmpty());
  setPoints(mesh, {{1, 2, 3}});
  EXPECT_THAT(triangulateAll().triangles, IsEmpty());
  setPoints(mesh, {{1, 2, 3}, {4, 5, 6}});
  EXPECT_THAT(triangulateAll().triangles, IsEmpty());
  setPoints(mesh, std::vector<Point3DDouble>(20, {1, 2, 3}));
  const PlanTriangulation found = triangulateAll();
  EXPECT_THAT(found.triangles, IsEmpty());
  EXPECT_EQ(found.places, 1);
}

// --- Which points

TEST_F(PlanTriangulationTest, OfSeveralPointsAtOnePlaceTheHighestIsUsed) {
  setPoints(mesh, {{0, 0, 1}, {4, 0, 1}, {0, 4, 1}, {0, 0, 9}, {0, 0, -3}, {4, 0, 1}});
  const PlanTriangulation found = triangulateAll();
  EXPECT_THAT(cornersOf(found), UnorderedElementsAre(1, 2, 3)) << "of two alike the first";
  EXPECT_EQ(found.places, 3);
  EXPECT_EQ(found.usedPoints, 3);
}

TEST_F(PlanTriangulationTest, PointsThatAreNotFiniteAreNotUsed) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  setPoints(mesh, {{0, 0, 1}, {4, 0, 1}, {0, 4, 1}, {1, 1, nan}, {nan, 1, 1}, {1, infinity, 1}});
  const PlanTriangulation found = triangulateAll();
  EXPECT_THAT(cornersOf(found), UnorderedElementsAre(0, 1, 2));
  setPoints(mesh, {{nan, 0, 0}, {0, nan, 0}, {0, 0, nan}});
  EXPECT_THAT(triangulateAll().triangles, IsEmpty());
}

TEST_F(PlanTriangulationTest, ThePlanIsThatOfTheModel) {
  setPoints(mesh, {{0, 0, 0}, {0, 1, 0}, {0, 0, 1}});  // stored upright
  EXPECT_THAT(triangulateAll().triangles, IsEmpty());
  tarn::MatrixDouble rotation(3, 3);  // (x, y, z) becomes (z, x, y)
  rotation(1, 2) = rotation(2, 3) = rotation(3, 1) = 1.0;
  tarn::BasicAffine turn;
  turn.SetRotation(rotation);
  turn.SetTranslation({}, {5'000'000, 4'000'000, 0});
  setPoints(mesh, {{0, 0, 0}, {1, 0, 0}, {0, 0, 1}});
  mesh.SetLocalAffine(turn);
  const PlanTriangulation found = triangulateAll();
  EXPECT_THAT(found.triangles, SizeIs(1));
  EXPECT_NEAR(found.typicalEdge, 1.0, 1e-9);
}

TEST_F(PlanTriangulationTest, FarCoordinatesLoseNothing) {
  setRandomPoints(300, 5000, 3);
  const PlanTriangulation near = triangulateAll();
  tarn::BasicAffine shift;
  shift.SetTranslation({}, {5'000'000, 4'000'000, 0});
  mesh.SetLocalAffine(shift);
  const PlanTriangulation far = triangulateAll();
  EXPECT_EQ(far.triangles, near.triangles);
  EXPECT_EQ(far.typicalEdge, near.typicalEdge);
}

TEST_F(PlanTriangulationTest, ExtremeExtentsAreHarmless) {
  for (const double size : {1e-40, 1e-20, 1e20, 1e37}) {
    setPoints(mesh, {{0, 0, 1}, {size, 0, 1}, {0, size, 1}});
    const PlanTriangulation found = triangulateAll();
    EXPECT_THAT(found.triangles, SizeIs(1)) << size;
    EXPECT_NEAR(found.typicalEdge / size, 1.0, 1e-3) << size;
  }
}

TEST_F(PlanTriangulationTest, AVanishingCloudIsOnePlace) {
  setPoints(mesh, {{0, 0, 1}, {1, 0, 1}, {0, 1, 1}});
  tarn::BasicAffine vanishing;
  vanishing.SetScale(1e-100);
  mesh.SetLocalAffine(vanishing);
  const PlanTriangulation found = triangulateAll();
  EXPECT_EQ(found.places, 1);
  EXPECT_THAT(found.triangles, IsEmpty());
}

// --- Long edges

TEST_F(PlanTriangulationTest, TrianglesAcrossAGapAreLeftOut) {
  std::vector<Point3DDouble> points;
  for (int row = 0; row < 20; ++row) {
    for (int column = 0; column < 20; ++column) {
      points.emplace_back(column, row, 0);
      points.emplace_back(column + 40, row, 0);
    }
  }
  setPoints(mesh, points);
  const PlanTriangulation found =
      PlanTriangulation::of(mesh, {.longestEdge = 5.0, .mostPoints = 1'000'000});
  EXPECT_THAT(found.triangles, SizeIs(2 * 2 * 19 * 19));
  for (const PointMesh::Corners& corners : found.triangles) {
    const bool left = mesh.GetPoint(corners[0]).x < 30;
    for (const int corner : corners) ASSERT_EQ(mesh.GetPoint(corner).x < 30, left);
  }
  EXPECT_GT(triangulateAll().triangles.size(), found.triangles.size());
}

TEST_F(PlanTriangulationTest, AnEdgeAsLongAsAllowedStays) {
  setPoints(mesh, {{0, 0, 0}, {3, 0, 0}, {0, 4, 0}});
  const auto count = [this](double longest) {
    return PlanTriangulation::of(mesh, {.longestEdge = longest, .mostPoints = 10}).triangles.size();
  };
  EXPECT_EQ(count(1.25), 1U) << "3, 4 and 5: the typical one is 4";
  EXPECT_EQ(count(1.24), 0U);
}

// --- Thinning

TEST_F(PlanTriangulationTest, ACloudOfTooManyPlacesIsThinnedEvenly) {
  std::vector<Point3DDouble> points;
  for (int row = 0; row < 100; ++row) {
    for (int column = 0; column < 100; ++column) points.emplace_back(column, row, 0);
  }
  setPoints(mesh, points);
  const PlanTriangulation found =
      PlanTriangulation::of(mesh, {.longestEdge = 0.0, .mostPoints = 1000});
  EXPECT_EQ(found.places, 10'000);
  EXPECT_LE(found.usedPoints, 1000);
  EXPECT_GE(found.usedPoints, 900);
  EXPECT_THAT(cornersOf(found), SizeIs(static_cast<std::size_t>(found.usedPoints)));
  // Each part of the ground has its share.
  std::array<int, 16> inPart{};
  for (const int corner : cornersOf(found)) {
    const Point3DDouble point = mesh.GetPoint(corner);
    ++inPart[static_cast<std::size_t>(point.x / 25) + 4 * static_cast<std::size_t>(point.y / 25)];
  }
  EXPECT_THAT(inPart, Each(::testing::AllOf(::testing::Ge(40), ::testing::Le(90))));
}

TEST_F(PlanTriangulationTest, ThinningLeavesOutliersOut) {
  std::vector<Point3DDouble> points;
  for (int row = 0; row < 50; ++row) {
    for (int column = 0; column < 50; ++column) {
      const bool wild = (row * 50 + column) % 97 == 0;
      points.emplace_back(column, row, wild ? 1000 : 10 + 0.01 * column);
    }
  }
  setPoints(mesh, points);
  const PlanTriangulation found =
      PlanTriangulation::of(mesh, {.longestEdge = 0.0, .mostPoints = 400});
  EXPECT_GT(found.usedPoints, 300);
  for (const int corner : cornersOf(found)) EXPECT_LT(mesh.GetPoint(corner).z, 11.0);
}

TEST_F(PlanTriangulationTest, ACloudOfAsManyPlacesAsAllowedIsNotThinned) {
  setRandomPoints(300, 5000, 5);
  EXPECT_EQ(PlanTriangulation::of(mesh, {.longestEdge = 0.0, .mostPoints = 300}).usedPoints, 300);
  EXPECT_LE(PlanTriangulation::of(mesh, {.longestEdge = 0.0, .mostPoints = 299}).usedPoints, 299);
  for (const int none : {0, -1}) {
    const auto found = PlanTriangulation::of(mesh, {.longestEdge = 0.0, .mostPoints = none});
    EXPECT_EQ(found.usedPoints, 1);
    EXPECT_THAT(found.triangles, IsEmpty());
  }
}
