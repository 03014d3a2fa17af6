#include "bench/MeshNodes.h"

#include "bench/DenseShapes.h"
#include "bench/PointNodes.h"
#include "host/general/Point3DDouble.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <stdexcept>
#include <utility>
#include <vector>

namespace bench {

std::unique_ptr<MeshProject> MeshProject::ofCloud(int points) {
  initialiseNodes();
  auto made = std::make_unique<MeshProject>();
  made->mesh.Allocate(points, 1);
  std::ranges::copy(cloudPositions(points), made->mesh.GetPointStorage().begin());
  std::mt19937 random(54321);
  for (unsigned char& byte : made->mesh.GetColourStorage()) {
    byte = static_cast<unsigned char>(random() >> 24);
  }
  return made;
}

std::unique_ptr<MeshProject> MeshProject::ofTerrain(int triangles) {
  initialiseNodes();
  auto made = std::make_unique<MeshProject>();
  Terrain data = terrain(triangles);
  made->mesh.Allocate(static_cast<int>(data.positions.size() / 3), 0);
  std::ranges::copy(data.positions, made->mesh.GetPointStorage().begin());
  std::vector<tarn::Point3DDouble> normals;
  normals.reserve(data.normals.size());
  for (const auto& [x, y, z] : data.normals) normals.emplace_back(x, y, z);
  if (!made->mesh.SetTriangles(std::move(data.triangles), std::move(normals))) {
    throw std::logic_error("the terrain's triangles do not fit its vertices");
  }
  made->mesh.GetTriangles();  // makes the objects: the host's work, and not the node's
  return made;
}

}  // namespace bench
