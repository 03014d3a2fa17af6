#include "io/FaceTriangles.h"

#include "host/general/VectorProducts.h"
#include "tests/support/TarnTest.h"

#include <cmath>

using tarn::Point3DDouble;

namespace {

std::vector<std::array<int, 3>> cut(const std::vector<Point3DDouble>& polygon) {
  std::vector<std::array<int, 3>> triangles{{7, 8, 9}};
  tarn::faceTriangles(polygon, triangles);
  return triangles;
}

// The area that the triangles have, each counted as it turns about the direction.
double areaOf(const std::vector<Point3DDouble>& polygon, const Point3DDouble& direction,
              bool absolute) {
  double area = 0.0;
  for (const auto& triangle : cut(polygon)) {
    const auto corner = [&](std::size_t k) {
      return polygon[static_cast<std::size_t>(triangle[k])];
    };
    const Point3DDouble across = tarn::cross(corner(1) - corner(0), corner(2) - corner(0));
    const double turned = 0.5 * tarn::dot(direction, across);
    area += absolute ? std::abs(turned) : turned;
  }
  return area;
}

// Triangles of which none is turned over have the polygon's area whichever way it is counted.
void expectArea(const std::vector<Point3DDouble>& polygon, const Point3DDouble& direction,
                double area) {
  EXPECT_NEAR(areaOf(polygon, direction, false), area, 1e-9);
  EXPECT_NEAR(areaOf(polygon, direction, true), area, 1e-9);
}

// A comb with that many teeth, 1 wide and 2 high, 1 apart, on a back of 1.
std::vector<Point3DDouble> comb(int teeth) {
  std::vector<Point3DDouble> corners{{0, 0, 0}, {2.0 * teeth - 1, 0, 0}};
  for (int i = teeth - 1; i >= 0; --i) {
    corners.emplace_back(2.0 * i + 1, 3, 0);
    corners.emplace_back(2.0 * i, 3, 0);
    if (i > 0) corners.emplace_back(2.0 * i, 1, 0);
    if (i > 0) corners.emplace_back(2.0 * i - 1, 1, 0);
  }
  return corners;
}

}  // namespace

class FaceTrianglesTest : public TarnTest {};

TEST_F(FaceTrianglesTest, ATriangleIsItself) {
  EXPECT_THAT(cut({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}), ::testing::ElementsAre(std::array{0, 1, 2}));
}

TEST_F(FaceTrianglesTest, AConvexFaceIsAFanFromItsFirstCorner) {
  EXPECT_THAT(
      cut({{0, 0, 0}, {2, 0, 0}, {3, 1, 0}, {2, 2, 0}, {0, 2, 0}}),
      ::testing::ElementsAre(std::array{0, 1, 2}, std::array{0, 2, 3}, std::array{0, 3, 4}));
}

TEST_F(FaceTrianglesTest, ASquareIsTwoTriangles) {
  expectArea({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {0, 0, 1}, 1.0);
}

TEST_F(FaceTrianglesTest, PolygonsStandInAnyPlane) {
  const std::vector<Point3DDouble> flat = comb(2);
  for (const double sign : {1.0, -1.0}) {
    std::vector<Point3DDouble> alongX;
    std::vector<Point3DDouble> alongY;
    std::vector<Point3DDouble> alongZ;
    for (const Point3DDouble& p : flat) {
      alongX.emplace_back(5.0, p.x, sign * p.y);
      alongY.emplace_back(sign * p.y, 5.0, p.x);
      alongZ.emplace_back(p.x, sign * p.y, 5.0);
    }
    expectArea(alongX, {sign, 0, 0}, 7.0);
    expectArea(alongY, {0, sign, 0}, 7.0);
    expectArea(alongZ, {0, 0, sign}, 7.0);
  }
}

TEST_F(FaceTrianglesTest, InletsStayOutside) { expectArea(comb(20), {0, 0, 1}, 20 * 2 + 39); }

TEST_F(FaceTrianglesTest, WhereTheInletIsDoesNotMatter) {
  const std::vector<Point3DDouble> arrow{{0, 1, 0}, {1, 0, 0}, {0, -1, 0}, {2, 0, 0}};
  for (std::size_t first = 0; first < 4; ++first) {
    std::vector<Point3DDouble> turned;
    for (std::size_t i = 0; i < 4; ++i) turned.push_back(arrow[(first + i) % 4]);
    expectArea(turned, {0, 0, 1}, 1.0);
  }
}

TEST_F(FaceTrianglesTest, AHoleIsReachedAlongAnEdgeAndLeftAlongTheSame) {
  expectArea({{0, 0, 0},
              {4, 0, 0},
              {4, 4, 0},
              {0, 4, 0},
              {0, 0, 0},
              {1, 1, 0},
              {1, 3, 0},
              {3, 3, 0},
              {3, 1, 0},
              {1, 1, 0}},
             {0, 0, 1}, 12.0);
}

TEST_F(FaceTrianglesTest, CornersOnAStraightEdgeAreKept) {
  expectArea({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 2, 0}, {1, 2, 0}, {0, 2, 0}}, {0, 0, 1}, 4.0);
}

TEST_F(FaceTrianglesTest, FarFromTheOriginNothingIsLost) {
  std::vector<Point3DDouble> far = comb(3);
  for (Point3DDouble& p : far) p = 0.01 * p + Point3DDouble(500000.0, 4000000.0, 100.0);
  EXPECT_NEAR(areaOf(far, {0, 0, 1}, true), 11e-4, 1e-8);
}

TEST_F(FaceTrianglesTest, AFaceThatCrossesItselfIsAFan) {
  // A bow.
  EXPECT_EQ(cut({{0, 0, 0}, {1, 1, 0}, {1, 0, 0}, {0, 1, 0}}).size(), 2U);
}

TEST_F(FaceTrianglesTest, AFaceWithoutAreaIsAFan) {
  EXPECT_EQ(cut({{1, 2, 3}, {1, 2, 3}, {1, 2, 3}, {1, 2, 3}}).size(), 2U);
}
