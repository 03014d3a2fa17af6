#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/TarnOISeparator.h"

namespace tarn {
class Photograph;
}

/// Shows the rays of one photograph: from its camera station to each object point that is
/// marked on it and has a position.
///
/// Children, for each ray in the order of the marks:
///   SoCoordinate3  the station's position and the point's, in the viewer frame
///   SoLineSet      the line between them
///
/// Use:
///   auto* node = new TarnOICameraRaysSeparator;
///   node->SetRays(&photograph, &dictionary);
///   layer->addChild(node);
class TARNOI_EXPORT TarnOICameraRaysSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOICameraRaysSeparator);

public:
  TarnOICameraRaysSeparator();
  TarnOICameraRaysSeparator(const TarnOICameraRaysSeparator& other);
  TarnOICameraRaysSeparator& operator=(const TarnOICameraRaysSeparator& other);

  /// Binds the node to `photo` under `searchDict` (see SetTarnObject; neither is owned) and
  /// appends its rays. Null only unbinds.
  void SetRays(tarn::Photograph* photo, tarn::VDictionary* searchDict);

  /// Appends the rays of the photograph when `build` is non-zero. Those that are there stay:
  /// built twice, every ray is there twice. To show changes, hosts replace the node.
  ///
  /// The rays begin at the station's position, whether it is oriented or not; a photograph
  /// without a station has none. Points without a position that the adjustment computed are
  /// left out.
  void UpdateRays(int build);

protected:
  ~TarnOICameraRaysSeparator() override;
};
