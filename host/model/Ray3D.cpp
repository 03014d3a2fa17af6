#include "host/model/Ray3D.h"

namespace tarn {

VClass Ray3DCls("Ray3D", &VObjectCls, []() -> VObject* { return new Ray3D; });

}  // namespace tarn
