#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/TarnOISeparator.h"

namespace tarn {
class ObjectPoint;
}

/// Shows the rays of one object point: from the point to the camera station of each
/// photograph that shows it. A pick or a search finds the rays (ObjectPoint::GetRay3D), not
/// the point, which has a node of its own.
///
/// Children, for each ray in the order of the photographs:
///   SoCoordinate3  the point's position and the station's, in the viewer frame
///   SoLineSet      the line between them
///
/// Use:
///   auto* node = new TarnOIPointRaysSeparator;
///   node->SetRays(&point, &dictionary);
///   layer->addChild(node);
class TARNOI_EXPORT TarnOIPointRaysSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIPointRaysSeparator);

public:
  TarnOIPointRaysSeparator();
  TarnOIPointRaysSeparator(const TarnOIPointRaysSeparator& other);
  TarnOIPointRaysSeparator& operator=(const TarnOIPointRaysSeparator& other);

  /// Binds the node to the rays of `point` under `searchDict` (see SetTarnObject; neither is
  /// owned) and appends them. Null only unbinds.
  void SetRays(tarn::ObjectPoint* point, tarn::VDictionary* searchDict);

  /// Appends the rays of the point when `build` is non-zero. Those that are there stay: built
  /// twice, every ray is there twice. To show changes, hosts replace the node.
  ///
  /// Photographs whose station is missing or, unlike a photograph's own rays, not oriented
  /// are left out. A point without a position that the adjustment computed has no rays.
  void UpdateRays(int build);

protected:
  ~TarnOIPointRaysSeparator() override;
};
