#include "host/model/PointMeshTempSubPoints.h"

namespace tarn {

VClass PointMeshTempSubPointsCls("PointMeshTempSubPoints", &VObjectCls,
                                 []() -> VObject* { return new PointMeshTempSubPoints; });

}  // namespace tarn
