#include "host/model/ThreeDPoint.h"

namespace tarn {

VClass ThreeDPointCls("ThreeDPoint", &VObjectCls, []() -> VObject* { return new ThreeDPoint; });

int ThreeDPoint::GetApproximation(Point3DRandom& position) const {
  if (!_hasPosition) return 0;
  position = _position;
  return 1;
}

void ThreeDPoint::SetApproximation(const Point3DRandom& position) {
  _position = position;
  _hasPosition = 1;
}

}  // namespace tarn
