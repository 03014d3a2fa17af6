#include "host/model/NURBSSurface.h"

namespace tarn {

VClass NURBSSurfaceCls("NURBSSurface", &TessellatedSurfaceCls,
                       []() -> VObject* { return new NURBSSurface; });

}  // namespace tarn
