#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/LineSegment.h"
#include "nodes/framework/NodeRef.h"

class SoCoordinate3;
class SoGroup;
class SoLineSet;

/// The 3D extension of a straight feature (a line, an edge, a cylinder's axis): one that is
/// drawn longer than it was measured gets a dashed line over its whole length, measured part
/// and prolongations. It is shown while the feature's factor is above 1.
///
///     const ThreeDExtension extension{lineExtensionPos, lineExtensionSet};
///     if (!ThreeDExtension::isShown(factor)) {
///       extension.removeFrom(*this);
///       return;
///     }
///     if (!lineExtensionPos) extension.appendTo(*this);
///     extension.place(ends, factor);
struct TARNOI_EXPORT ThreeDExtension {
  NodeRef<SoCoordinate3>& coordinates;  ///< the node's member; null while nothing is shown
  NodeRef<SoLineSet>& lines;            ///< likewise

  static bool isShown(double factor) { return factor > 1.0; }

  /// Makes both members, and appends to `parent` the coordinates, a dashed draw style and the
  /// line set.
  void appendTo(SoGroup& parent) const;

  /// Takes both members' nodes out of `node`, where they are its children, and clears the
  /// members. The draw style stays behind: hosts rely on it.
  void removeFrom(SoGroup& node) const;

  /// Writes the prolonged ends; nothing where there are no coordinates.
  void place(const LineSegment::Ends& measured, double factor) const;

  /// The ends of a segment of `factor` times the length with the same middle, in the model
  /// frame. Half of the surplus factor, and the margin along each axis, are narrowed to float:
  /// hosts rely on it.
  static LineSegment::Ends prolonged(const LineSegment::Ends& measured, double factor);
};
