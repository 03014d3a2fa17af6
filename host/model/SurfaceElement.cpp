#include "host/model/SurfaceElement.h"

namespace tarn {

VClass SurfaceElementCls("SurfaceElement", &TriangleCls,
                         []() -> VObject* { return new SurfaceElement; });

}  // namespace tarn
