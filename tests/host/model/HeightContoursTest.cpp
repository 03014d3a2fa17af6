#include "host/model/HeightContours.h"

#include "tests/support/MeshPoints.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

using tarn::Point3DDouble;
using tarn::PointMesh;
using tarn::HeightContours::Line;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class HeightContoursTest : public TarnTest {
protected:
  using Triangles = std::vector<PointMesh::Corners>;

  /// Heights over a square from -1 to 1 with `cells` cells a side, two triangles each.
  void setGrid(int cells, const std::function<double(double x, double y)>& height) {
    std::vector<Point3DDouble> points;
    for (int row = 0; row <= cells; ++row) {
      for (int column = 0; column <= cells; ++column) {
        const double x = -1.0 + 2.0 * column / cells;
        const double y = -1.0 + 2.0 * row / cells;
        points.emplace_back(x, y, height(x, y));
      }
    }
    setPoints(mesh, points);
    triangles.clear();
    for (int row = 0; row < cells; ++row) {
      for (int column = 0; column < cells; ++column) {
        const int a = row * (cells + 1) + column;
        const int b = a + cells + 1;
        triangles.push_back({a, a + 1, b + 1});
        triangles.push_back({a, b + 1, b});
      }
    }
  }

  /// A ring of radii 3 and 1 whose points `place` puts from (around the ring, up its axis,
  /// around the ring's other axis).
  void setTorus(const std::function<Point3DDouble(double, double, double)>& place) {
    constexpr int around = 40;
    constexpr int across = 20;
    std::vector<Point3DDouble> points;
    triangles.clear();
    for (int i = 0; i < around; ++i) {
      for (int k = 0; k < across; ++k) {
        const double u = 2 * std::numbers::pi * i / around;
        const double v = 2 * std::numbers::pi * (k + 0.5) / across;
        const double radius = 3 + std::cos(v);
        points.push_back(place(radius * std::cos(u), std::sin(v), radius * std::sin(u)));
        const auto index = [](int row, int column) {
          return row % around * across + column % across;
        };
        triangles.push_back({index(i, k), index(i + 1, k), index(i + 1, k + 1)});
        triangles.push_back({index(i, k), index(i + 1, k + 1), index(i, k + 1)});
      }
    }
    setPoints(mesh, points);
  }

  std::vector<Line> trace(std::vector<double> levels) const {
    std::vector<Line> lines = tarn::HeightContours::trace(mesh, triangles, levels);
    for (const Line& line : lines) expectSound(line);
    return lines;
  }

  static void expectSound(const Line& line) {
    ASSERT_GE(line.points.size(), 2U);
    for (std::size_t i = 0; i < line.points.size(); ++i) {
      EXPECT_EQ(line.points[i].z, line.height);
    }
    EXPECT_EQ(std::ranges::adjacent_find(line.points), line.points.end());
    EXPECT_EQ(line.closed, line.points.front() == line.points.back());
  }

  static double lengthOf(const Line& line) {
    double length = 0.0;
    for (std::size_t i = 1; i < line.points.size(); ++i) {
      length += (line.points[i] - line.points[i - 1]).length();
    }
    return length;
  }

  static constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  PointMesh mesh;
  Triangles triangles;
};

// --- Surfaces that are known

TEST_F(HeightContoursTest, OneTriangleIsCrossedOnItsTwoEdges) {
  setPoints(mesh, {{0, 0, 0}, {4, 0, 8}, {0, 4, 0}});
  triangles = {{0, 1, 2}};
  const auto lines = trace({2.0});
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_FALSE(lines[0].closed);
  EXPECT_THAT(lines[0].points,
              ::testing::UnorderedElementsAre(Point3DDouble(1, 0, 2), Point3DDouble(1, 3, 2)));
}

TEST_F(HeightContoursTest, APlaneHasOneStraightLineFromBorderToBorder) {
  setGrid(20, [](double x, double y) { return 10 + 2 * x + y; });
  const auto lines = trace({9.97, 10.53});
  ASSERT_THAT(lines, SizeIs(2));
  for (const Line& line : lines) {
    EXPECT_FALSE(line.closed);
    for (const Point3DDouble& point : line.points) {
      EXPECT_NEAR(10 + 2 * point.x + point.y, line.height, 1e-6);  // float heights
    }
    EXPECT_NEAR(std::abs(line.points.front().y), 1.0, 1e-12);
    EXPECT_NEAR(std::abs(line.points.back().y), 1.0, 1e-12);
    EXPECT_NEAR(lengthOf(line), std::sqrt(5.0), 1e-5);
  }
}

TEST_F(HeightContoursTest, AConeHasOneCircleAtEachLevel) {
  constexpr int cells = 100;
  setGrid(cells, [](double x, double y) { return -std::hypot(x, y); });
  const auto lines = trace({-0.8, -0.5, -0.25});
  ASSERT_THAT(lines, SizeIs(3));
  for (const Line& line : lines) {
    const double radius = -line.height;
    EXPECT_TRUE(line.closed);
    // A chord of a circle's radius r and length h leaves it by h h / 8 r at most.
    const double edge = 2.0 * std::numbers::sqrt2 / cells;
    for (const Point3DDouble& point : line.points) {
      EXPECT_NEAR(std::hypot(point.x, point.y), radius, edge * edge / (8 * (radius - edge)));
    }
    EXPECT_NEAR(lengthOf(line), 2 * std::numbers::pi * radius, 0.01);
  }
}

TEST_F(HeightContoursTest, ASaddleHasTwoBranchesOnEitherSide) {
  setGrid(51, [](double x, double y) { return x * y; });
  for (const double height : {0.25, -0.25}) {
    const auto lines = trace({height});
    ASSERT_THAT(lines, SizeIs(2));
    for (const Line& line : lines) {
      EXPECT_FALSE(line.closed);
      for (const Point3DDouble& point : line.points) {
        EXPECT_NEAR(point.x * point.y, height, 1e-3);
      }
    }
    EXPECT_LT(lines[0].points[0].x * lines[1].points[0].x, 0.0) << "one branch on each side";
  }
}

TEST_F(HeightContoursTest, AtTheHeightOfTheSaddleItselfBothAxesAreGoneAlongOnce) {
  setGrid(50, [](double x, double y) { return x * y; });  // with points on the axes
  const auto lines = trace({0.0});
  ASSERT_THAT(lines, SizeIs(2));
  for (const Line& line : lines) {
    EXPECT_FALSE(line.closed);
    // At the middle each goes along the long side of a triangle that is flat at the level.
    const double cell = 2.0 / 50;
    EXPECT_NEAR(lengthOf(line), 2.0 - (2.0 - std::numbers::sqrt2) * cell, 1e-6);
    for (const Point3DDouble& point : line.points) EXPECT_EQ(point.x * point.y, 0.0);
  }
}

TEST_F(HeightContoursTest, ALyingTorusHasTwoCircles) {
  setTorus([](double x, double up, double y) { return Point3DDouble(x, y, up); });
  const auto lines = trace({0.3});
  ASSERT_THAT(lines, SizeIs(2));
  double lengths = 0.0;
  for (const Line& line : lines) {
    EXPECT_TRUE(line.closed);
    lengths += lengthOf(line);
  }
  EXPECT_NEAR(lengths, 2 * 2 * std::numbers::pi * 3, 0.3);
}

TEST_F(HeightContoursTest, AStandingTorusHasOneLoopAboveItsHoleAndTwoBesideIt) {
  setTorus([](double x, double up, double y) { return Point3DDouble(up, x, y); });
  const std::vector<std::pair<double, std::size_t>> loops{
      {-5.0, 0}, {-3.1, 1}, {-1.3, 2}, {0.1, 2}, {1.7, 2}, {2.6, 1}, {3.7, 1}, {4.2, 0}};
  for (const auto& [height, count] : loops) {
    const auto lines = trace({height});
    EXPECT_THAT(lines, SizeIs(count)) << height;
    for (const Line& line : lines) EXPECT_TRUE(line.closed) << height;
  }
}

// --- Corners exactly at the level

TEST_F(HeightContoursTest, ALineThroughCornersGoesThroughThemOnce) {
  setGrid(10, [](double x, double) { return x; });
  const auto lines = trace({0.0});
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_THAT(lines[0].points, SizeIs(11));
  for (const Point3DDouble& point : lines[0].points) EXPECT_EQ(point.x, 0.0);
  EXPECT_DOUBLE_EQ(lengthOf(lines[0]), 2.0);
}

TEST_F(HeightContoursTest, AFlatTopIsGoneAroundOnce) {
  setGrid(10, [](double x, double y) { return std::abs(x) + std::abs(y) < 0.7 ? 5.0 : 0.0; });
  const auto lines = trace({5.0});
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_TRUE(lines[0].closed);
}

TEST_F(HeightContoursTest, FlatGroundBelowHasNoLine) {
  setGrid(10, [](double x, double y) { return std::abs(x) + std::abs(y) < 0.7 ? 0.0 : 5.0; });
  EXPECT_THAT(trace({0.0}), IsEmpty());
  setGrid(10, [](double, double) { return 3.0; });
  EXPECT_THAT(trace({3.0}), IsEmpty());
}

TEST_F(HeightContoursTest, ASummitAtTheLevelHasNoLine) {
  setGrid(2, [](double x, double y) { return x == 0.0 && y == 0.0 ? 1.0 : 0.0; });
  EXPECT_THAT(trace({1.0}), IsEmpty());
  EXPECT_THAT(trace({0.999}), SizeIs(1));
}

TEST_F(HeightContoursTest, ARidgeAtTheLevelIsGoneAlongThereAndBack) {
  setGrid(10, [](double x, double y) { return x == 0.0 && std::abs(y) < 0.5 ? 1.0 : 0.0; });
  const auto lines = trace({1.0});
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_TRUE(lines[0].closed);
  EXPECT_NEAR(lengthOf(lines[0]), 2 * 0.8, 1e-6);
}

TEST_F(HeightContoursTest, ClosedSurfacesOfManyEqualHeightsHaveClosedLinesOnly) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> height(0, 3);
  for (int round = 0; round < 20; ++round) {
    setTorus([&](double x, double, double y) { return Point3DDouble(x, y, height(random)); });
    const auto lines = trace({0.0, 1.0, 1.5, 2.0, 3.0});
    EXPECT_FALSE(lines.empty());
    for (const Line& line : lines) ASSERT_TRUE(line.closed);
  }
}

// --- Frames

TEST_F(HeightContoursTest, FarCoordinatesLoseNothing) {
  setGrid(30, [](double x, double y) { return -std::hypot(x, y); });
  const auto near = trace({-0.6, -0.3});
  tarn::BasicAffine shift;
  shift.SetTranslation({}, {5'000'000, 4'000'000, 100});
  mesh.SetLocalAffine(shift);
  const auto far = trace({99.4, 99.7});
  ASSERT_EQ(far.size(), near.size());
  for (std::size_t i = 0; i < far.size(); ++i) {
    ASSERT_EQ(far[i].points.size(), near[i].points.size());
    for (std::size_t k = 0; k < far[i].points.size(); ++k) {
      const Point3DDouble back = far[i].points[k] - Point3DDouble(5'000'000, 4'000'000, 100);
      EXPECT_LT((back - near[i].points[k]).length(), 1e-8);  // doubles there are 1e-9 apart
    }
  }
}

TEST_F(HeightContoursTest, HeightsAreThoseOfTheModel) {
  setGrid(10, [](double, double) { return 0.0; });
  tarn::MatrixDouble rotation(3, 3);  // (x, y, z) becomes (z, x, y)
  rotation(1, 2) = rotation(2, 3) = rotation(3, 1) = 1.0;
  tarn::BasicAffine turn;
  turn.SetRotation(rotation);
  mesh.SetLocalAffine(turn);
  const auto lines = trace({0.5});
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_NEAR(lengthOf(lines[0]), 2.0, 1e-6);
}

// --- Meshes that are not sound

TEST_F(HeightContoursTest, LinesEndAtAnEdgeOfThreeTriangles) {
  setPoints(mesh, {{0, 0, 0}, {0, 0, 2}, {4, 0, 0}, {0, 4, 0}, {-4, -4, 0}});
  triangles = {{0, 1, 2}, {0, 1, 3}, {0, 1, 4}};
  const auto lines = trace({1.0});
  ASSERT_THAT(lines, SizeIs(3));
  for (const Line& line : lines) {
    EXPECT_THAT(line.points, ::testing::Contains(Point3DDouble(0, 0, 1)));
    EXPECT_THAT(line.points, SizeIs(2));
  }
}

TEST_F(HeightContoursTest, ATriangleThatComesTwiceLeavesNoGap) {
  setGrid(4, [](double x, double) { return x; });
  triangles.push_back(triangles[5]);
  double length = 0.0;
  for (const Line& line : trace({0.1, -0.3})) length += lengthOf(line);
  EXPECT_GE(length, 4.0 - 1e-6);
}

TEST_F(HeightContoursTest, NeighboursOfOppositeTurnAreJoined) {
  setGrid(4, [](double x, double) { return x; });
  for (std::size_t i = 0; i < triangles.size(); i += 3) std::swap(triangles[i][0], triangles[i][1]);
  EXPECT_THAT(trace({0.1}), SizeIs(1));
}

TEST_F(HeightContoursTest, TrianglesWithACornerThatIsNotFiniteAreLeftOut) {
  setGrid(4, [](double x, double) { return x; });
  for (const std::size_t coordinate : {0U, 1U, 2U}) {
    mesh.GetPoints()[12][coordinate] = nan;  // the middle
    EXPECT_THAT(trace({0.1}), SizeIs(2)) << "a line on each side of the gap";
    mesh.GetPoints()[12][coordinate] = std::numeric_limits<float>::infinity();
    EXPECT_THAT(trace({0.1}), SizeIs(2));
    mesh.GetPoints()[12][coordinate] = 0.0F;
  }
  EXPECT_THAT(trace({0.1}), SizeIs(1));
}

TEST_F(HeightContoursTest, CornersOutOfRangeOrTwiceAreLeftOut) {
  setPoints(mesh, {{0, 0, 0}, {4, 0, 8}, {0, 4, 0}});
  triangles = {{0, 1, 3}, {-1, 1, 2}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}};
  EXPECT_THAT(trace({2.0}), IsEmpty());
}

TEST_F(HeightContoursTest, ATriangleWithACornerTwiceDoesNotBreakTheLineThroughItsEdge) {
  setGrid(4, [](double x, double) { return x; });
  triangles.push_back({12, 12, 13});  // an edge that two others share
  EXPECT_THAT(trace({0.1}), SizeIs(1));
}

TEST_F(HeightContoursTest, NothingToCrossGivesNoLines) {
  EXPECT_THAT(trace({1.0}), IsEmpty());
  setGrid(4, [](double x, double) { return x; });
  EXPECT_THAT(trace({}), IsEmpty());
  EXPECT_THAT(trace({2.0, -2.0}), IsEmpty());
  triangles.clear();
  EXPECT_THAT(trace({0.0}), IsEmpty());
}

// --- Levels

TEST_F(HeightContoursTest, LevelsComeInAscendingOrderAndOnce) {
  setGrid(4, [](double x, double) { return x; });
  std::vector<double> heights;
  for (const Line& line : trace({0.3, -0.3, std::nan(""), 0.3, 0.1, HUGE_VAL})) {
    heights.push_back(line.height);
  }
  EXPECT_THAT(heights, ElementsAre(-0.3, 0.1, 0.3));
}

TEST_F(HeightContoursTest, OneTriangleMayCrossManyLevels) {
  setPoints(mesh, {{0, 0, 0}, {1, 0, 1000}, {0, 1, 0}});
  triangles = {{0, 1, 2}};
  std::vector<double> levels;
  for (int i = 0; i <= 1000; ++i) levels.push_back(i);
  EXPECT_THAT(trace(levels), SizeIs(999)) << "none at the bottom, a mere point at the top";
}

// --- As contours of the mesh

TEST_F(HeightContoursTest, LinesBecomeContoursOfTheMesh) {
  setGrid(20, [](double x, double y) { return -std::hypot(x, y); });
  ASSERT_TRUE(mesh.SetTriangles(triangles));
  const auto lines = trace({-0.5, -1.2});
  ASSERT_THAT(lines, SizeIs(5)) << "four corners and a circle";
  const std::vector<double> levels{-0.5, -1.2};
  tarn::HeightContours::addTo(mesh, levels);
  ASSERT_EQ(mesh.GetContours().size(), 5);
  for (int i = 0; i < 5; ++i) {
    const auto* contour = static_cast<const tarn::PointMeshContour*>(mesh.GetContours().at(i));
    const Line& line = lines[static_cast<std::size_t>(i)];
    EXPECT_EQ(contour->GetHeight(), line.height);
    EXPECT_EQ(contour->IsClosed(), line.closed);
    ASSERT_EQ(contour->GetNumberOfPoints(), static_cast<int>(line.points.size()));
    for (std::size_t k = 0; k < line.points.size(); ++k) {
      const double* row = contour->GetPoints(1)[k];
      EXPECT_EQ(Point3DDouble(row[0], row[1], row[2]), line.points[k]);
    }
  }
}

TEST_F(HeightContoursTest, ACloudTakesTheTrianglesThatAreGiven) {
  setGrid(20, [](double x, double y) { return -std::hypot(x, y); });
  const std::vector<double> levels{-0.5};
  tarn::HeightContours::addTo(mesh, levels);
  EXPECT_EQ(mesh.GetContours().size(), 0);
  tarn::HeightContours::addTo(mesh, triangles, levels);
  EXPECT_EQ(mesh.GetContours().size(), 1);
  EXPECT_EQ(mesh.GetNumTriangles(), 0);
}
