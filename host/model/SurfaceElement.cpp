#include "host/model/SurfaceElement.h"

namespace tarn {

VClass SurfaceElementCls("SurfaceElement", &FeatureCls,
                         []() -> VObject* { return new SurfaceElement; });

}  // namespace tarn
