#include "host/model/Cylinder.h"

namespace tarn {

VClass CylinderCls("Cylinder", &VObjectCls, []() -> VObject* { return new Cylinder; });

void Cylinder::GetEndPoints(Point3DDouble ends[2]) const {
  ends[0] = _ends[0];
  ends[1] = _ends[1];
}

}  // namespace tarn
