#pragma once

#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"

class SoCoordinate3;
class SoGroup;

/// The one coordinate of a point node: where it stands among the children, and what is
/// written into it.
namespace PointCoordinate {

/// The last child derived from SoCoordinate3, which a setter called again writes into;
/// null when there is none.
TARNOI_EXPORT SoCoordinate3* find(const SoGroup& node);

/// Writes the model point, brought into the viewer frame, as the first coordinate.
TARNOI_EXPORT void place(SoCoordinate3& coordinate, const tarn::Point3DDouble& modelPoint);

}  // namespace PointCoordinate
