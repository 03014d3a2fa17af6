#include "nodes/meshes/MeshFrame.h"

#include "host/general/ThreeDViewOffset.h"
#include "host/model/PointMesh.h"

#include <algorithm>
#include <typeinfo>

namespace {

// The points less an offset, the difference taken in Number. `more(i)` says whether the mesh
// has a point i. Returns how many were written.
template <typename Number, typename More>
int placePoints(const float* const* points, Number ox, Number oy, Number oz, SbVec3f* placed,
                More more) {
  int i = 0;
  for (; more(i); ++i) {
    const float* const point = points[i];
    placed[i] = SbVec3f(static_cast<float>(static_cast<Number>(point[0]) - ox),
                        static_cast<float>(static_cast<Number>(point[2]) - oz),
                        static_cast<float>(-(static_cast<Number>(point[1]) - oy)));
  }
  return i;
}

template <typename More>
int placePoints(const float* const* points, const tarn::Point3DDouble& offset, SbVec3f* placed,
                More more) {
  const auto x = static_cast<float>(offset.x);
  const auto y = static_cast<float>(offset.y);
  const auto z = static_cast<float>(offset.z);
  // The difference of two floats is the same float whether it is taken in float or in double
  // and narrowed, for a double has more than twice a float's digits. (S. A. Figueroa, When is
  // double rounding innocuous?, SIGNUM Newsletter 30(3), 1995.)
  if (tarn::Point3DDouble(x, y, z) == offset) return placePoints(points, x, y, z, placed, more);
  return placePoints(points, offset.x, offset.y, offset.z, placed, more);
}

}  // namespace

MeshFrame MeshFrame::lessViewOffset() {
  MeshFrame result;
  result.offset = tarn::gThreeDViewOffset;
  return result;
}

void MeshFrame::place(const tarn::PointMesh& mesh, SbVec3f* placed, int count) const {
  const float* const* points = mesh.GetPoints();
  int written = 0;
  if (typeid(mesh) == typeid(tarn::PointMesh)) {
    written = placePoints(points, offset, placed, [count](int i) { return i < count; });
  } else {
    written = placePoints(points, offset, placed,
                          [&mesh, count](int i) { return i < mesh.GetNumPoints() && i < count; });
  }
  std::fill(placed + written, placed + count, SbVec3f(0.0F, 0.0F, 0.0F));
}
