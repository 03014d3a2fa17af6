#pragma once

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/surfaces/TarnOIShapeVertexToMarkSeparator.h"

namespace tarn {
class ShapeEdge;
}  // namespace tarn

/// Shows an edge of a shape as a segment between its two corners, and can mark these.
///
/// Children: SoCoordinate3, SoLineSet; while they are shown, the markers of start and end.
///
/// Use:
///   auto* node = new TarnOIShapeEdgeSeparator;
///   node->SetShapeEdge(&edge, &dictionary);
///   node->ShowVertices(0, 0.1F);  // shows them
class TARNOI_EXPORT TarnOIShapeEdgeSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIShapeEdgeSeparator);

public:
  TarnOIShapeEdgeSeparator();
  /// Copies the members, which then share the other node's markers; none becomes a child
  /// of this node.
  TarnOIShapeEdgeSeparator(const TarnOIShapeEdgeSeparator& other);
  TarnOIShapeEdgeSeparator& operator=(const TarnOIShapeEdgeSeparator& other);

  /// Binds the node to `edge` under `dict` (see SetTarnObject; neither is owned) and builds the
  /// children and markers or, called again, moves their ends. A corner that is missing or has
  /// no position is reported and stands at the model's origin. Null only unbinds.
  void SetShapeEdge(tarn::ShapeEdge* edge, tarn::VDictionary* dict);

  /// With `hide` zero shows the markers in that radius, in units of the model; otherwise takes
  /// them out. The sense is not that of the name: hosts rely on it.
  void ShowVertices(int hide, float radius);
  /// Gives a marker, 1 that of the start and 2 that of the end, a material (null for none, see
  /// TarnOIShapeVertexToMarkSeparator::SetMaterial) and a radius: `sizeFactor` times the
  /// shape's size. A node without an edge, and any other number, are reported. Without an
  /// edge, or a shape of it, only the material is set.
  void SetVertexMaterialAndSize(SoMaterial* material, double sizeFactor, int which);

  /// A copy that is set to the same edge, and to which the dictionary's entry moves. It has no
  /// markers of its own: of one that was shown it has a picture, which stays as it is.
  SoNode* copy(SbBool copyConnections = FALSE) const override;

protected:
  ~TarnOIShapeEdgeSeparator() override;

private:
  // Held whether they are shown or not; null before the first build, and in a copy.
  NodeRef<TarnOIShapeVertexToMarkSeparator> startMarker;
  NodeRef<TarnOIShapeVertexToMarkSeparator> endMarker;
};
