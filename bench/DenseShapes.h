#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace bench {

/// What the benchmarks of clouds and meshes build and draw, in model coordinates (Z up):
/// the same on every machine and in every program, peers included.

/// Positions x, y, z of points in a unit cube, unrelated to each other in place: no cache
/// and no branch can guess the next one.
std::vector<float> cloudPositions(int count);

/// A surface with waves over the unit square.
struct Terrain {
  std::vector<float> positions;                ///< x, y, z of each vertex
  std::vector<std::array<double, 3>> normals;  ///< of each vertex, of length one
  std::vector<std::array<int, 3>> triangles;   ///< vertices, counter-clockwise seen from above
};

/// A terrain of as many triangles, or the few that a whole square grid has more or less.
Terrain terrain(int triangles);

}  // namespace bench
