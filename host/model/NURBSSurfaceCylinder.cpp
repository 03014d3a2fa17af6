#include "host/model/NURBSSurfaceCylinder.h"

namespace tarn {

VClass NURBSSurfaceCylinderCls("NURBSSurfaceCylinder", &NURBSSurfaceCls,
                               []() -> VObject* { return new NURBSSurfaceCylinder; });

}  // namespace tarn
