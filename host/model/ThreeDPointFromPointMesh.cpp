#include "host/model/ThreeDPointFromPointMesh.h"

#include "host/model/PointMesh.h"

namespace tarn {

VClass ThreeDPointFromPointMeshCls("ThreeDPointFromPointMesh", &ThreeDPointCls,
                                   []() -> VObject* { return new ThreeDPointFromPointMesh; });

ThreeDPointFromPointMesh::ThreeDPointFromPointMesh(const PointMesh* mesh, int index)
    : _mesh(mesh), _index(index) {
  float** const points = mesh ? mesh->GetPoints() : nullptr;
  if (points && index >= 0 && index < mesh->GetNumPoints()) _stored = points[index];
}

int ThreeDPointFromPointMesh::GetApproximation(Point3DRandom& position) const {
  if (!_stored) return 0;
  position = Point3DRandom(_mesh->GetModelPoint(_index));
  return 1;
}

int ThreeDPointFromPointMesh::GetApproximationNoLocalAffine(Point3DDouble& position) const {
  // Asked three times for each triangle that is drawn: read here, without the mesh.
  if (!_stored) return 0;
  position = {static_cast<double>(_stored[0]), static_cast<double>(_stored[1]),
              static_cast<double>(_stored[2])};
  return 1;
}

}  // namespace tarn
