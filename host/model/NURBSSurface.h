#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/TessellatedSurface.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass NURBSSurfaceCls;

/// A smooth surface, fitted to measured points.
class TARN_HOST_EXPORT NURBSSurface : public TessellatedSurface {
public:
  VClass* iam() const override { return &NURBSSurfaceCls; }
};

}  // namespace tarn
