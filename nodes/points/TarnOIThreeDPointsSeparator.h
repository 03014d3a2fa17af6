#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/PointShape.h"
#include "nodes/framework/TarnOISeparator.h"

namespace tarn {
class ThreeDPointFromTarnObject;
}

/// Shows a 3D point that the host derives from an object of its model.
///
/// Children:
///   pointPos   one coordinate, in the viewer frame
///   markerSet  SoPointSet
///
/// Use:
///   auto* node = new TarnOIThreeDPointsSeparator;
///   node->SetPoint(&point, &dictionary);
///   layer->addChild(node);
class TARNOI_EXPORT TarnOIThreeDPointsSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIThreeDPointsSeparator);

public:
  TarnOIThreeDPointsSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOIThreeDPointsSeparator(const TarnOIThreeDPointsSeparator& other);
  TarnOIThreeDPointsSeparator& operator=(const TarnOIThreeDPointsSeparator& other);

  /// Binds the node to `point` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children. Called again, it keeps them and moves the coordinate. A point without a
  /// position is reported, and drawn at the model's origin. Null only unbinds.
  void SetPoint(tarn::ThreeDPointFromTarnObject* point, tarn::VDictionary* dict);

  /// Hands out the coordinate and the shape; both stay the node's. Null before the first
  /// SetPoint.
  void GetPointSet(SoCoordinate3** coords, SoPointSet** points) const;

  /// The ordinary copy, bound to the same point: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIThreeDPointsSeparator() override;

  PointShape shape;
};
