#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"

class SoCoordinate3;
class SoLineSet;

namespace tarn {
class Edge;
}

/// Shows an edge of the model, and with a 3D extension factor above 1 a dashed line over it
/// that prolongs it beyond both ends (see ThreeDExtension).
///
/// Children:
///   SoCoordinate3      the two ends, in the viewer frame
///   SoLineSet          one line of two vertices
///   edgeExtensionPos   the prolonged ends, while the edge is extended
///   SoDrawStyle        the dashes; stays when the extension goes, and the next one brings its
///                      own: hosts rely on it
///   edgeExtensionSet   one line of two vertices, while the edge is extended
///
/// Use:
///   auto* node = new TarnOIEdgeSeparator;
///   node->SetEdge(&edge, &dictionary);
///   layer->addChild(node);
class TARNOI_EXPORT TarnOIEdgeSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIEdgeSeparator);

public:
  TarnOIEdgeSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes an unbound node with children of its own.
  TarnOIEdgeSeparator(const TarnOIEdgeSeparator& other);
  TarnOIEdgeSeparator& operator=(const TarnOIEdgeSeparator& other);

  /// Binds the node to `edge` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children; called again, it brings them up to date. An end whose position the edge
  /// leaves alone is drawn at the model's origin. Null only unbinds.
  void SetEdge(tarn::Edge* edge, tarn::VDictionary* dict);

  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIEdgeSeparator() override;

  /// Shows, moves or removes the extension, as the edge's factor asks for.
  void AddExtension(tarn::Edge* edge);

  NodeRef<SoCoordinate3> edgeExtensionPos;
  NodeRef<SoLineSet> edgeExtensionSet;
};
