#include "host/model/ImportedSurface.h"

namespace tarn {

VClass ImportedSurfaceCls("ImportedSurface", &TessellatedSurfaceCls,
                          []() -> VObject* { return new ImportedSurface; });

}  // namespace tarn
