#include "bench/DenseShapes.h"

#include <cmath>
#include <random>

namespace bench {

std::vector<float> cloudPositions(int count) {
  std::vector<float> positions(3 * static_cast<std::size_t>(count));
  std::mt19937 random(12345);
  // The upper 24 bits: exact in a float.
  for (float& value : positions) value = static_cast<float>(random() >> 8) / 16777216.0F;
  return positions;
}

Terrain terrain(int triangles) {
  const int cells = static_cast<int>(std::lround(std::sqrt(triangles / 2.0)));
  const int row = cells + 1;
  Terrain made;
  made.positions.reserve(3 * static_cast<std::size_t>(row) * static_cast<std::size_t>(row));
  made.normals.reserve(static_cast<std::size_t>(row) * static_cast<std::size_t>(row));
  made.triangles.reserve(2 * static_cast<std::size_t>(cells) * static_cast<std::size_t>(cells));
  for (int j = 0; j < row; ++j) {
    for (int i = 0; i < row; ++i) {
      const double x = i / static_cast<double>(cells);
      const double y = j / static_cast<double>(cells);
      const double z = 0.5 + 0.15 * std::sin(9 * x) * std::cos(7 * y) + 0.01 * std::sin(90 * x);
      for (const double value : {x, y, z}) made.positions.push_back(static_cast<float>(value));
      const double slopeX = 1.35 * std::cos(9 * x) * std::cos(7 * y) + 0.9 * std::cos(90 * x);
      const double slopeY = -1.05 * std::sin(9 * x) * std::sin(7 * y);
      const double length = std::sqrt(slopeX * slopeX + slopeY * slopeY + 1);
      made.normals.push_back({-slopeX / length, -slopeY / length, 1 / length});
    }
  }
  for (int j = 0; j < cells; ++j) {
    for (int i = 0; i < cells; ++i) {
      const int corner = j * row + i;
      made.triangles.push_back({corner, corner + 1, corner + row + 1});
      made.triangles.push_back({corner, corner + row + 1, corner + row});
    }
  }
  return made;
}

}  // namespace bench
