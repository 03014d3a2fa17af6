#pragma once

#include <Inventor/SbVec3f.h>

#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/ViewerFrame.h"

namespace tarn {
class PointMesh;
}

/// The frame of a mesh node's coordinates: the viewer's axes, less the view offset. Where a
/// transform of the node's own brings the mesh to its place, that takes the offset off, and the
/// coordinates are those that the mesh stores.
class TARNOI_EXPORT MeshFrame {
public:
  /// The viewer frame.
  static MeshFrame lessViewOffset();
  /// The viewer's axes only.
  static MeshFrame asStored() { return {}; }

  /// A point of the model, or of the mesh as it stores them, in this frame: computed in double,
  /// then narrowed.
  SbVec3f at(const tarn::Point3DDouble& point) const {
    return ViewerFrame::directionFromModel(point - offset);
  }

  /// Writes the mesh's points into `placed`, which has room for `count`. A mesh of a host's own
  /// class is asked before each point how many it has: it may lose points meanwhile. What is
  /// not written then is the origin.
  void place(tarn::PointMesh& mesh, SbVec3f* placed, int count) const;

private:
  tarn::Point3DDouble offset;
};
