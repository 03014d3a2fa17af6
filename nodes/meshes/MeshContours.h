#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"

class SbColor;
class SoGroup;
class SoSeparator;

namespace tarn {
class PointMeshContour;
}

/// The lines of contours: what a mesh node draws under itself, and what a contour's own node
/// shares with that.
///
/// Preferences, all of section "DenseStereo" and read at each call:
/// "ContourColor(RRRGGGBBB_0-255)" (0, 128, 128), "IncludePointsInContours" (0),
/// "ContoursUseFixedColor" (here 1, but 0 in a contour's own node: hosts rely on it).
namespace MeshContours {

/// The separator that takes a mesh's contours, with a material of the contour colour as its
/// only child where "ContoursUseFixedColor" is on.
TARNOI_EXPORT NodeRef<SoSeparator> makeSeparator();

/// Appends one contour: its SoCoordinate3, an SoPointSet where points are included, and an
/// SoLineSet, which draws from the coordinate node just before it. After the contour's points
/// comes its first one again, without the view offset: hosts rely on it, although it stands
/// apart from the others unless the offset is zero. A contour without points has no
/// coordinates.
TARNOI_EXPORT void append(SoSeparator& separator, const tarn::PointMeshContour& contour);

/// The contour colour that is preferred.
TARNOI_EXPORT SbColor preferredColor();

/// Appends the shapes of a contour: an SoPointSet where points are included, and an SoLineSet.
TARNOI_EXPORT void appendShapes(SoGroup& node);

}  // namespace MeshContours
