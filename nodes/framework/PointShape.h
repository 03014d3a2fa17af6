#pragma once

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoPointSet.h>

#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"

/// What every point node draws its point with: one coordinate in the viewer frame, and the
/// shape that comes after it among the children. An empty one stands for a node that is not
/// built.
struct TARNOI_EXPORT PointShape {
  NodeRef<SoCoordinate3> pointPos;
  NodeRef<SoPointSet> markerSet;

  /// The children of `node`, whose member this is, when its setter is called: on a fresh
  /// node a new coordinate and point set are appended; otherwise nothing is added, see
  /// findCoordinate.
  /// @param className, line  the node's class and the line, for the report
  void findOrBuild(SoGroup& node, const char* className, int line);

  /// Makes `pointPos` the last of the node's children that is a coordinate, which may be one
  /// that a host has put there. Reports "pointPos" when there is none.
  void findCoordinate(const SoGroup& node, const char* className, int line);

  /// Appends a new coordinate and then `shape`, which becomes the marker set.
  void append(SoGroup& node, SoPointSet* shape);

  /// Moves the point to the model point: the first coordinate, other ones stay. Nothing
  /// happens without a coordinate, which was reported before.
  void place(const tarn::Point3DDouble& modelPoint);

  /// Hands out both, where the pointers are not null; they stay the node's.
  void get(SoCoordinate3** coords, SoPointSet** points) const;

  /// The shape of `copy`, which Coin copied from `original`, whose shape this is.
  PointShape counterpart(const SoGroup& copy, const SoGroup& original) const;
};
