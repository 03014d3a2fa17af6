#pragma once

#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"

namespace tarn {
class ThreeDPoint;
}  // namespace tarn

/// Where a corner or an end of something imported stands: the point's approximation or, where
/// an imported point has none because it is not active, its stored position. Returns false,
/// and changes nothing, where there is neither; null has neither.
TARNOI_EXPORT bool positionOrStored(const tarn::ThreeDPoint* point, tarn::Point3DDouble& position);
