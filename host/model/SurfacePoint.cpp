#include "host/model/SurfacePoint.h"

namespace tarn {

VClass SurfacePointCls("SurfacePoint", &ObjectPointCls,
                       []() -> VObject* { return new SurfacePoint; });

}  // namespace tarn
