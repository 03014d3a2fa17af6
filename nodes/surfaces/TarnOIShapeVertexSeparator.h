#pragma once

#include "nodes/framework/PointShape.h"
#include "nodes/framework/TarnOISeparator.h"

class SoMaterial;

namespace tarn {
class ShapeVertex;
}  // namespace tarn

/// Shows a corner of a shape as a point.
///
/// Children: an SoMaterial that SetMaterial put in front, SoCoordinate3, SoPointSet.
///
/// Unlike that of other nodes its copy is Coin's own: it shows the point where it was, and is
/// bound to nothing until SetShapeVertex. Hosts rely on it.
class TARNOI_EXPORT TarnOIShapeVertexSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIShapeVertexSeparator);

public:
  TarnOIShapeVertexSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node.
  TarnOIShapeVertexSeparator(const TarnOIShapeVertexSeparator& other);
  TarnOIShapeVertexSeparator& operator=(const TarnOIShapeVertexSeparator& other);

  /// Binds the node to `vertex` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children or, called again, moves the point. A corner without a position stands at
  /// the model's origin. Null only unbinds.
  void SetShapeVertex(tarn::ShapeVertex* vertex, tarn::VDictionary* dict);
  /// Replaces the material in front of the point; null takes it out. It may be shared. On a
  /// fresh node it makes a child: the point has to be set first.
  void SetMaterial(SoMaterial* material);

  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIShapeVertexSeparator() override;

  PointShape shape;
};
