#include "host/model/ShapeVertex.h"

namespace tarn {

VClass ShapeVertexCls("ShapeVertex", &ThreeDPointCls, []() -> VObject* { return new ShapeVertex; });

}  // namespace tarn
