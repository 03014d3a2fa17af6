// Lines of equal height, over triangles and over a cloud: their time must grow with the triangles
// and the points, and no faster.
#include "bench/MeshNodes.h"
#include "bench/Subject.h"
#include "host/model/HeightContours.h"
#include "host/model/HeightLevels.h"
#include "host/model/PlanTriangulation.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using bench::MeshProject;
using Terrain = std::shared_ptr<MeshProject>;

Terrain terrain(int triangles) { return MeshProject::ofTerrain(triangles); }

// As many levels for every size: twice as many triangles are crossed 1.4 times as often.
void trace(const tarn::PointMesh& mesh) {
  tarn::Point3DDouble low;
  tarn::Point3DDouble high;
  mesh.GetBoundingBox(low, high, nullptr, 0);
  std::vector<tarn::PointMesh::Corners> triangles(static_cast<std::size_t>(mesh.GetNumTriangles()));
  for (std::size_t i = 0; i < triangles.size(); ++i) {
    mesh.GetTriangleCorners(static_cast<int>(i), triangles[i]);
  }
  const std::vector<double> levels = tarn::HeightLevels::byCount(low.z, high.z, 20);
  if (tarn::HeightContours::trace(mesh, triangles, levels).empty()) {
    throw std::runtime_error("the terrain has no contours");
  }
}

void triangulate(const tarn::PointMesh& mesh) {
  if (tarn::PlanTriangulation::of(mesh, {}).triangles.empty()) {
    throw std::runtime_error("the terrain's points have no triangles");
  }
}

const bench::Subject contours("contours", "lines of equal height, of twice as many", [] {
  const auto row = [](std::string work, std::string size, void (*step)(const tarn::PointMesh&),
                      const Terrain& whole, const Terrain& half) {
    return bench::Row{.work = std::move(work),
                      .size = std::move(size),
                      .ours = bench::timeOf("ours", [=] { step(whole->mesh); }),
                      .against = bench::timeOf("half as many", [=] { step(half->mesh); }),
                      .target = 2.3};
  };
  return std::vector<bench::Row>{
      row("trace 20 levels", "1,000,000 triangles", trace, terrain(1'000'000), terrain(500'000)),
      row("triangulate in plan", "200,000 points", triangulate, terrain(400'000),
          terrain(200'000))};
});

}  // namespace
