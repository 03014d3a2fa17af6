#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/PointShape.h"
#include "nodes/framework/TarnOISeparator.h"

namespace tarn {
class CheckPoint;
}

/// Shows a check point.
///
/// Children:
///   pointPos   one coordinate, in the viewer frame
///   markerSet  SoPointSet
///
/// Use:
///   auto* node = new TarnOICheckPointSeparator;
///   node->SetCheckPoint(&point, &dictionary);
///   layer->addChild(node);
class TARNOI_EXPORT TarnOICheckPointSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOICheckPointSeparator);

public:
  TarnOICheckPointSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOICheckPointSeparator(const TarnOICheckPointSeparator& other);
  TarnOICheckPointSeparator& operator=(const TarnOICheckPointSeparator& other);

  /// Binds the node to `point` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children. Called again, it keeps them and moves the coordinate. Null only unbinds.
  void SetCheckPoint(tarn::CheckPoint* point, tarn::VDictionary* dict);

  /// The ordinary copy, bound to the same point: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOICheckPointSeparator() override;

  PointShape shape;
};
