#pragma once

#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"

class SoGroup;

/// How a point node draws its point as a sphere, in place of a PointShape, when it was given
/// a radius.
struct TARNOI_EXPORT SphereShape {
  float sphereSize = 0.0F;  ///< the radius, in units of the model

  bool useSphere() const { return sphereSize > 0.0F; }

  /// Drops all children of `node` and appends a translation to the model point and the
  /// sphere. The node has to forget what it knows of its former children.
  void rebuild(SoGroup& node, const tarn::Point3DDouble& modelPoint) const;
};
