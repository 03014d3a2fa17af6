#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"

class SoCoordinate3;
class SoLineSet;

namespace tarn {
class Line;
}

/// Shows a line of the model, and with a 3D extension factor above 1 a dashed line over it
/// that prolongs it beyond both ends (see ThreeDExtension).
///
/// Children:
///   SoCoordinate3      the two ends, in the viewer frame
///   SoLineSet          one line of two vertices
///   lineExtensionPos   the prolonged ends, while the line is extended
///   SoDrawStyle        the dashes; stays when the extension goes, and the next one brings its
///                      own: hosts rely on it
///   lineExtensionSet   one line of two vertices, while the line is extended
///
/// Use:
///   auto* node = new TarnOILineSeparator;
///   node->SetLine(&line, &dictionary);
///   layer->addChild(node);
class TARNOI_EXPORT TarnOILineSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOILineSeparator);

public:
  TarnOILineSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes an unbound node with children of its own.
  TarnOILineSeparator(const TarnOILineSeparator& other);
  TarnOILineSeparator& operator=(const TarnOILineSeparator& other);

  /// Binds the node to `line` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children; called again, it brings them up to date. An end without a point, or with
  /// one that has no position, is drawn at the model's origin. Null only unbinds.
  void SetLine(tarn::Line* line, tarn::VDictionary* dict);

  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOILineSeparator() override;

  NodeRef<SoCoordinate3> lineExtensionPos;
  NodeRef<SoLineSet> lineExtensionSet;

private:
  void AddExtension(tarn::Line* line);
};
