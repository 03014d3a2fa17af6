#include "nodes/surfaces/PositionOrStored.h"

#include "host/model/ImportedPoint.h"

bool positionOrStored(const tarn::ThreeDPoint* point, tarn::Point3DDouble& position) {
  if (!point) return false;
  tarn::Point3DRandom approximation;
  if (!point->GetApproximation(approximation)) {
    if (!point->isA(tarn::ImportedPointCls)) return false;
    const auto* imported = static_cast<const tarn::ImportedPoint*>(point);
    if (imported->IsActive(1)) return false;
    approximation = imported->GetStoredPosition();
  }
  position = approximation.position();
  return true;
}
