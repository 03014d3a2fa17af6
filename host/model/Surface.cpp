#include "host/model/Surface.h"

namespace tarn {

VClass SurfaceCls("Surface", &VObjectCls, []() -> VObject* { return new Surface; });

}  // namespace tarn
