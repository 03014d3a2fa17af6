#include "bench/DenseShapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

TEST(DenseShapesTest, CloudFillsTheUnitCubeAndIsTheSameEveryTime) {
  const std::vector<float> positions = bench::cloudPositions(10000);
  ASSERT_EQ(positions.size(), 30000U);
  EXPECT_GE(*std::ranges::min_element(positions), 0.0F);
  EXPECT_LT(*std::ranges::max_element(positions), 1.0F);
  EXPECT_LT(*std::ranges::min_element(positions), 0.001F);
  EXPECT_GT(*std::ranges::max_element(positions), 0.999F);
  EXPECT_EQ(bench::cloudPositions(10000), positions);
}

TEST(DenseShapesTest, TerrainHasAboutAsManyTrianglesAsWereAskedFor) {
  for (const int asked : {2, 1000, 500000}) {
    const bench::Terrain terrain = bench::terrain(asked);
    EXPECT_NEAR(static_cast<double>(terrain.triangles.size()), asked, 2 * std::sqrt(2.0 * asked));
    EXPECT_EQ(terrain.positions.size(), 3 * terrain.normals.size());
  }
}

TEST(DenseShapesTest, TerrainsTrianglesTurnTheSideOfTheirNormalsUp) {
  const bench::Terrain terrain = bench::terrain(2000);
  const auto coordinate = [&terrain](int vertex, int axis) {
    return static_cast<double>(terrain.positions[static_cast<std::size_t>(3 * vertex + axis)]);
  };
  double area = 0;
  for (const auto& [a, b, c] : terrain.triangles) {
    const double twice =
        (coordinate(b, 0) - coordinate(a, 0)) * (coordinate(c, 1) - coordinate(a, 1)) -
        (coordinate(b, 1) - coordinate(a, 1)) * (coordinate(c, 0) - coordinate(a, 0));
    EXPECT_GT(twice, 0);
    area += twice / 2;
  }
  EXPECT_NEAR(area, 1, 1e-5) << "the unit square, seen from above";
  for (const auto& [x, y, z] : terrain.normals) {
    EXPECT_NEAR(x * x + y * y + z * z, 1, 1e-12);
    EXPECT_GT(z, 0);
  }
}
