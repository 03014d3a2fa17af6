#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/ThreeDPoint.h"

namespace tarn {

class PointMesh;

extern TARN_HOST_EXPORT VClass ThreeDPointFromPointMeshCls;

/// One point of a point mesh: it answers from the mesh's point array, and is good while that
/// is.
class TARN_HOST_EXPORT ThreeDPointFromPointMesh : public ThreeDPoint {
public:
  ThreeDPointFromPointMesh() = default;
  /// The point of that index, counted from 0; nowhere where the mesh has no such point.
  ThreeDPointFromPointMesh(const PointMesh* mesh, int index);

  /// The point with the mesh's local affine applied; its variances are not known. Returns 0
  /// where there is no such point.
  int GetApproximation(Point3DRandom& position) const override;
  int GetApproximationNoLocalAffine(Point3DDouble& position) const override;

  const PointMesh* GetPointMesh() const { return _mesh; }
  int GetIndex() const { return _index; }

  VClass* iam() const override { return &ThreeDPointFromPointMeshCls; }

private:
  const PointMesh* _mesh = nullptr;
  const float* _stored = nullptr;  // in the mesh's point array
  int _index = 0;
};

}  // namespace tarn
