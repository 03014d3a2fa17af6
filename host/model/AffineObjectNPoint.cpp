#include "host/model/AffineObjectNPoint.h"

namespace tarn {

VClass AffineObjectNPointCls("AffineObjectNPoint", &AffineObjectCls,
                             []() -> VObject* { return new AffineObjectNPoint; });

void AffineObjectNPoint::SetPosition(const Point3DDouble& position) {
  _position = position;
  _hasPosition = 1;
}

}  // namespace tarn
