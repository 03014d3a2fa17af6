#include "nodes/meshes/MeshFrame.h"

#include "host/general/ThreeDViewOffset.h"
#include "nodes/meshes/MeshRows.h"

#include <algorithm>

MeshFrame MeshFrame::lessViewOffset() {
  MeshFrame result;
  result.offset = tarn::gThreeDViewOffset;
  return result;
}

void MeshFrame::place(tarn::PointMesh& mesh, SbVec3f* placed, int count) const {
  int written = 0;
  MeshRows::withPositions(mesh, [&](auto rowOf) {
    const auto isThere = [&](int i) {
      return i < count && (rowOf.areTheLibrarys || i < mesh.GetNumPoints());
    };
    int i = 0;
    for (; isThere(i); ++i) {
      const float* const row = rowOf(i);
      placed[i] = at(
          {static_cast<double>(row[0]), static_cast<double>(row[1]), static_cast<double>(row[2])});
    }
    written = i;
  });
  std::fill(placed + written, placed + count, SbVec3f(0.0F, 0.0F, 0.0F));
}
