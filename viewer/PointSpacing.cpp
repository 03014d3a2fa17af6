#include "viewer/PointSpacing.h"

#include "host/model/Project.h"

#include <algorithm>
#include <vector>

namespace PointSpacing {

namespace {

constexpr int samples = 64;
constexpr int none = -1;

// Among stored points, which a local affine moves but does not distort.
int nearestOf(float* const* points, int count, int index) {
  const float* point = points[index];
  int nearest = none;
  float least = 0.0F;
  for (int i = 0; i < count; ++i) {
    const float x = points[i][0] - point[0];
    const float y = points[i][1] - point[1];
    const float z = points[i][2] - point[2];
    const float squared = x * x + y * y + z * z;
    if (squared > 0.0F && (nearest == none || squared < least)) {
      nearest = i;
      least = squared;
    }
  }
  return nearest;
}

}  // namespace

double of(const tarn::Project& project) {
  const tarn::VOrdCollect& meshes = project.GetPointMeshes();
  long total = 0;
  for (int i = 0; i < meshes.size(); ++i) {
    total += static_cast<tarn::PointMesh*>(meshes.at(i))->GetNumPoints();
  }
  const long step = total / samples + 1;
  std::vector<double> distances;
  long next = step / 2;  // counted over all meshes
  long first = 0;
  for (int i = 0; i < meshes.size(); ++i) {
    const auto& mesh = *static_cast<tarn::PointMesh*>(meshes.at(i));
    const int count = mesh.GetNumPoints();
    for (; next < first + count; next += step) {
      const int index = static_cast<int>(next - first);
      const int nearest = nearestOf(mesh.GetPoints(), count, index);
      if (nearest == none) continue;
      distances.push_back((mesh.GetModelPoint(nearest) - mesh.GetModelPoint(index)).length());
    }
    first += count;
  }
  if (distances.empty()) return 0.0;
  const auto middle = distances.begin() + static_cast<long>(distances.size() / 2);
  std::ranges::nth_element(distances, middle);
  return *middle;
}

}  // namespace PointSpacing
