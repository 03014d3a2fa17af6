#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point3DDouble.h"

namespace tarn {

/// The global view offset, in model coordinates. It is subtracted from every model
/// point before it is narrowed to float, so that coordinates far from the origin
/// lose nothing. Set it before nodes are built; built nodes do not follow it.
extern TARN_HOST_EXPORT Point3DDouble gThreeDViewOffset;

}  // namespace tarn
