#pragma once

#include "host/classes/VString.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/PointShape.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/points/PointLabel.h"

namespace tarn {
class OffsetPoint;
}

/// Shows an offset point, with the number of its object point as a label when that is asked
/// for.
///
/// Children, all of them present:
///   pointPos   one coordinate, in the viewer frame
///   markerSet  SoPointSet
///   textTrans  places the label
///   textLable  the label
///
/// Use:
///   auto* node = new TarnOIOffsetPointSeparator;
///   node->SetOffsetPoint(&point, &dictionary);
///   layer->addChild(node);
///   node->UpdateTextLable(1, 0);
///
/// Preferences, read whenever the label is updated: "OffsetPrefix" (section "3DViewer",
/// "Offset ").
class TARNOI_EXPORT TarnOIOffsetPointSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIOffsetPointSeparator);

public:
  TarnOIOffsetPointSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOIOffsetPointSeparator(const TarnOIOffsetPointSeparator& other);
  TarnOIOffsetPointSeparator& operator=(const TarnOIOffsetPointSeparator& other);

  /// Binds the node to `point` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children. Called again, it keeps them and moves the coordinate; the label waits for
  /// its own update. A point without a position is reported, and drawn at the model's origin.
  /// Null only unbinds.
  void SetOffsetPoint(tarn::OffsetPoint* point, tarn::VDictionary* dict);

  /// Builds, changes or removes the label: see GetTextLable. An empty text removes it.
  void UpdateTextLable(int showNumber, int markT);

  /// The label's text: with `showNumber` non-zero the preferred prefix and the number of the
  /// object point. Empty otherwise, and where there is no object point. `markT` says
  /// nothing here: offset points have no T state.
  static tarn::VString GetTextLable(int showNumber, int markT, tarn::OffsetPoint* point);

  /// Hands out the coordinate and the shape; both stay the node's. Null before the first
  /// SetOffsetPoint.
  void GetPointSet(SoCoordinate3** coords, SoPointSet** points) const;

  /// The ordinary copy, bound to the same point: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIOffsetPointSeparator() override;

  PointShape shape;
  PointLabel label;
};
