#include "host/model/ImportedPoint.h"

namespace tarn {

VClass ImportedPointCls("ImportedPoint", &ThreeDPointCls,
                        []() -> VObject* { return new ImportedPoint; });

int ImportedPoint::GetApproximation(Point3DRandom& position) const {
  if (ThreeDPoint::GetApproximation(position)) return 1;
  if (!_hasStored || !IsActive(1)) return 0;
  position = GetStoredPosition();
  return 1;
}

int ImportedPoint::IsActive(int) const { return _active; }

void ImportedPoint::SetStoredPosition(const Point3DRandom& position) {
  _stored = position;
  _hasStored = 1;
}

}  // namespace tarn
