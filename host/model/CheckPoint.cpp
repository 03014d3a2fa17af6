#include "host/model/CheckPoint.h"

namespace tarn {

VClass CheckPointCls("CheckPoint", &ThreeDPointCls, []() -> VObject* { return new CheckPoint; });

Point3DDouble CheckPoint::GetPosition() const {
  Point3DRandom position;
  GetApproximation(position);
  return position.position();
}

}  // namespace tarn
