#include "host/model/ThreeDPointFromPointMesh.h"

#include "host/model/PointMesh.h"

namespace tarn {

VClass ThreeDPointFromPointMeshCls("ThreeDPointFromPointMesh", &ThreeDPointCls,
                                   []() -> VObject* { return new ThreeDPointFromPointMesh; });

int ThreeDPointFromPointMesh::GetApproximation(Point3DRandom& position) const {
  if (!isOfMesh()) return 0;
  position = Point3DRandom(_mesh->GetModelPoint(_index));
  return 1;
}

int ThreeDPointFromPointMesh::GetApproximationNoLocalAffine(Point3DDouble& position) const {
  if (!isOfMesh()) return 0;
  position = _mesh->GetPoint(_index);
  return 1;
}

bool ThreeDPointFromPointMesh::isOfMesh() const {
  return _mesh && _index >= 0 && _index < _mesh->GetNumPoints();
}

}  // namespace tarn
