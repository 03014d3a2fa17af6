#include "host/model/PolygonTriangulation.h"

#include "host/general/VectorProducts.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>
#include <numbers>

using tarn::Point3DDouble;
using tarn::PolygonTriangulation;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Contour = PolygonTriangulation::Contour;

class PolygonTriangulationTest : public TarnTest {
protected:
  void cut(const Contour& outline, const std::vector<Contour>& holes = {}) {
    result = PolygonTriangulation::of(outline, holes);
    corners = outline;
    for (const Contour& hole : holes) corners.insert(corners.end(), hole.begin(), hole.end());
  }
  // Of a triangle seen against the normal: negative where it is clockwise.
  double areaOf(const std::array<int, 3>& triangle) const {
    const auto& a = corners.at(static_cast<std::size_t>(triangle[0]));
    const Point3DDouble b = corners.at(static_cast<std::size_t>(triangle[1])) - a;
    const Point3DDouble c = corners.at(static_cast<std::size_t>(triangle[2])) - a;
    return 0.5 * dot(result.normal, cross(b, c));
  }
  double area() const {
    double sum = 0.0;
    for (const auto& triangle : result.triangles) sum += areaOf(triangle);
    return sum;
  }
  // Whether a triangle covers that place of the plane z = 0.
  bool isCovered(double x, double y) const {
    return std::ranges::any_of(result.triangles, [&](const std::array<int, 3>& triangle) {
      bool inside = true;
      for (std::size_t k = 0; k < 3; ++k) {
        const auto& from = corners.at(static_cast<std::size_t>(triangle[k]));
        const auto& to = corners.at(static_cast<std::size_t>(triangle[(k + 1) % 3]));
        inside &= (to.x - from.x) * (y - from.y) - (to.y - from.y) * (x - from.x) > 0.0;
      }
      return inside;
    });
  }
  static Contour square(double x, double y, double side) {
    return {{x, y, 0}, {x + side, y, 0}, {x + side, y + side, 0}, {x, y + side, 0}};
  }
  static Contour reversed(Contour contour) {
    std::ranges::reverse(contour);
    return contour;
  }

  // An L, its inner corner at (2, 2).
  const Contour concave{{0, 0, 0}, {6, 0, 0}, {6, 2, 0}, {2, 2, 0}, {2, 5, 0}, {0, 5, 0}};
  PolygonTriangulation result;
  std::vector<Point3DDouble> corners;
};

TEST_F(PolygonTriangulationTest, ATriangleIsItself) {
  cut({{1, 0, 0}, {4, 0, 0}, {1, 2, 0}});
  ASSERT_THAT(result.triangles, SizeIs(1));
  EXPECT_EQ(area(), 3.0);
  EXPECT_EQ(result.normal, Point3DDouble(0, 0, 1));
}

TEST_F(PolygonTriangulationTest, AConcaveOutlineIsFilledInsideOnly) {
  cut(concave);
  EXPECT_THAT(result.triangles, SizeIs(4));
  EXPECT_DOUBLE_EQ(area(), 18.0);
  EXPECT_TRUE(isCovered(5.5, 1.9));
  EXPECT_TRUE(isCovered(0.1, 4.8));
  EXPECT_FALSE(isCovered(2.5, 2.5));
}

TEST_F(PolygonTriangulationTest, TheNormalFollowsTheOutlinesDirection) {
  cut(reversed(concave));
  EXPECT_EQ(result.normal, Point3DDouble(0, 0, -1));
  EXPECT_DOUBLE_EQ(area(), 18.0);
  for (const auto& triangle : result.triangles) EXPECT_GT(areaOf(triangle), 0.0);
}

TEST_F(PolygonTriangulationTest, HolesStayOpenWhicheverWayTheyStand) {
  const std::vector<Contour> holes{square(1, 1, 2), reversed(square(5, 5, 3))};
  cut(square(0, 0, 10), holes);
  EXPECT_DOUBLE_EQ(area(), 100.0 - 4.0 - 9.0);
  EXPECT_THAT(result.triangles, SizeIs(4 + 2 * 4 + 2)) << "n + 2h - 2";
  EXPECT_FALSE(isCovered(2, 2.1));
  EXPECT_FALSE(isCovered(6, 6.3));
  EXPECT_TRUE(isCovered(4.1, 4));
}

TEST_F(PolygonTriangulationTest, AHoleThatTouchesTheOutlineInACornerStaysOpen) {
  cut(square(0, 0, 10), {{{0, 0, 0}, {4, 1, 0}, {1, 4, 0}}});
  EXPECT_DOUBLE_EQ(area(), 100.0 - 7.5);
  EXPECT_FALSE(isCovered(1.5, 1.5));
}

TEST_F(PolygonTriangulationTest, AHoleThatTouchesASideStaysOpen) {
  cut(square(0, 0, 10), {{{4, 0, 0}, {6, 3, 0}, {2, 3, 0}}});
  EXPECT_DOUBLE_EQ(area(), 100.0 - 6.0);
  EXPECT_FALSE(isCovered(4, 2));
}

TEST_F(PolygonTriangulationTest, AFaceThatLeansFarFromTheOriginIsCutAsWell) {
  Contour leaning;
  for (const Point3DDouble& p : concave) {
    leaning.push_back(Point3DDouble(4512345.0, 512345.0, 345.0) +
                      Point3DDouble(p.x, 0.6 * p.y, 0.8 * p.y));
  }
  cut(leaning);
  EXPECT_THAT(result.triangles, SizeIs(4));
  EXPECT_NEAR(result.normal.y, -0.8, 1e-9);
  EXPECT_NEAR(result.normal.z, 0.6, 1e-9);
  EXPECT_NEAR(area(), 18.0, 1e-6);
}

// Measured corners are never exactly in a plane.
TEST_F(PolygonTriangulationTest, CornersBesideThePlaneAreJoinedWhereTheyAre) {
  Contour measured = concave;
  for (std::size_t i = 0; i < measured.size(); ++i) measured[i].z = i % 2 ? 0.01 : -0.02;
  cut(measured);
  EXPECT_THAT(result.triangles, SizeIs(4));
  EXPECT_NEAR(area(), 18.0, 0.01);
}

TEST_F(PolygonTriangulationTest, TheLargestTriangleIsTheFirst) {
  cut({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {9, 1, 0}, {9, 9, 0}, {1, 9, 0}});
  for (const auto& triangle : result.triangles) {
    EXPECT_LE(areaOf(triangle), areaOf(result.triangles.front()));
  }
}

TEST_F(PolygonTriangulationTest, CornersInTheMiddleOfAStraightSideAreCornersOfTriangles) {
  cut({{0, 0, 0},
       {5, 0, 0},
       {10, 0, 0},
       {10, 5, 0},
       {10, 10, 0},
       {5, 10, 0},
       {0, 10, 0},
       {0, 5, 0}});
  EXPECT_DOUBLE_EQ(area(), 100.0);
  for (int corner = 0; corner < 8; ++corner) {
    EXPECT_TRUE(std::ranges::any_of(
        result.triangles,
        [corner](const auto& triangle) { return std::ranges::count(triangle, corner) == 1; }))
        << "corner " << corner;
  }
}

TEST_F(PolygonTriangulationTest, AGearOfManyTeethIsFilled) {
  Contour gear;
  constexpr int teeth = 500;
  double expected = 0.0;
  for (int i = 0; i < 2 * teeth; ++i) {
    const double angle = std::numbers::pi * i / teeth;
    const double radius = i % 2 ? 8.0 : 10.0;
    gear.push_back({radius * std::cos(angle), radius * std::sin(angle), 0.0});
    expected += 0.5 * 8.0 * 10.0 * std::sin(std::numbers::pi / teeth);
  }
  cut(gear);
  EXPECT_THAT(result.triangles, SizeIs(2 * teeth - 2));
  EXPECT_NEAR(area(), expected, 1e-9);
}

// What cannot be filled has no triangles: every case is its own test.
struct Unfillable {
  const char* name;
  Contour outline;
  std::vector<Contour> holes;
  friend void PrintTo(const Unfillable& one, std::ostream* out) { *out << one.name; }
};
class UnfillablePolygonTest : public TarnTest, public ::testing::WithParamInterface<Unfillable> {};

TEST_P(UnfillablePolygonTest, HasNoTriangles) {
  EXPECT_THAT(PolygonTriangulation::of(GetParam().outline, GetParam().holes).triangles, IsEmpty());
}

namespace {
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();
const Contour ten{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};
const Contour two{{1, 1, 0}, {3, 1, 0}, {3, 3, 0}, {1, 3, 0}};
const Contour shifted{{2, 2, 0}, {4, 2, 0}, {4, 4, 0}, {2, 4, 0}};
}  // namespace

INSTANTIATE_TEST_SUITE_P(
    PolygonTriangulationTest, UnfillablePolygonTest,
    ::testing::Values(
        Unfillable{"Nothing", {}, {}}, Unfillable{"Point", {{1, 2, 3}}, {}},
        Unfillable{"Line", {{1, 2, 3}, {4, 5, 6}}, {}},
        Unfillable{"ThreeOnALine", {{0, 0, 0}, {1, 1, 1}, {2, 2, 2}}, {}},
        Unfillable{"ThereAndBack", {{0, 0, 0}, {5, 1, 0}, {7, 2, 0}, {5, 1, 0}}, {}},
        Unfillable{"Crossed", {{0, 0, 0}, {10, 6, 0}, {10, 0, 0}, {0, 8, 0}}, {}},
        Unfillable{"NotANumber", {{0, 0, 0}, {5, notANumber, 0}, {5, 5, 0}}, {}},
        Unfillable{"Infinite", {{0, 0, 0}, {infinite, 0, 0}, {5, 5, 0}}, {}},
        Unfillable{"HoleNotANumber", ten, {{{1, 1, 0}, {2, 1, notANumber}, {2, 2, 0}}}},
        Unfillable{"HoleBeside", ten, {{{20, 0, 0}, {21, 0, 0}, {21, 1, 0}}}},
        Unfillable{"HoleAcrossTheOutline", ten, {{{9, 4, 0}, {12, 4, 0}, {12, 6, 0}, {9, 6, 0}}}},
        Unfillable{"HolesAcrossEachOther", ten, {two, shifted}},
        Unfillable{"HoleInAHole", ten, {{{1, 1, 0}, {8, 1, 0}, {8, 8, 0}, {1, 8, 0}}, shifted}},
        Unfillable{"HoleAsLargeAsTheOutline", ten, {ten}}),
    [](const auto& tested) { return std::string(tested.param.name); });
