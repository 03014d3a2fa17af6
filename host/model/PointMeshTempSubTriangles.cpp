#include "host/model/PointMeshTempSubTriangles.h"

namespace tarn {

VClass PointMeshTempSubTrianglesCls("PointMeshTempSubTriangles", &VObjectCls,
                                    []() -> VObject* { return new PointMeshTempSubTriangles; });

}  // namespace tarn
