#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/meshes/SubHighlight.h"

class SbColor;
class SoCoordinate3;

namespace tarn {
class PointMeshContour;
class VOrdCollect;
}  // namespace tarn

/// Shows one contour of a point mesh as a polyline that can be picked and highlighted point by
/// point.
///
/// Children, all of them present:
///   fixedMaterial  the preferred contour colour
///   subHighlight   material and binding of HighlightSubPoints
///   ...            highlight materials, placed by Highlight
///   coordinates    the contour's points, in the viewer frame
///   SoPointSet     the same as points
///   SoLineSet      one polyline through all points
///
/// Use:
///   auto* node = new TarnOIContourSeparator;
///   node->SetContour(&contour, &dictionary);
///   layer->addChild(node);
///   node->HighlightSubPoints(&indexes);
///
/// Preferences, read whenever the part concerned is updated: "ContoursUseFixedColor" (section
/// "DenseStereo", 0; a mesh's own contours default to 1), those of MeshContours, and that of
/// SubHighlight.
class TARNOI_EXPORT TarnOIContourSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIContourSeparator);

public:
  TarnOIContourSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own, which is unbound.
  TarnOIContourSeparator(const TarnOIContourSeparator& other);
  TarnOIContourSeparator& operator=(const TarnOIContourSeparator& other);

  /// Binds the node to `contour` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children. Called again, it keeps them: the points are written over the earlier ones
  /// from the first on, and what a longer earlier contour had beyond them stays. The line is
  /// not closed: a closed contour repeats its first point. Null only unbinds. Returns 1.
  int SetContour(tarn::PointMeshContour* contour, tarn::VDictionary* dict);

  /// Shows the listed points (indexes from 0; others are passed over, null lists none) in the
  /// selection colour and all others in that of the contour's material, or in the preferred
  /// contour colour where it has none. A line takes the colour of the point that it starts at.
  void HighlightSubPoints(tarn::VOrdCollect* pointIndexes);
  /// Undoes HighlightSubPoints.
  void ClearSubPointHighlights();

  /// A highlight of the whole contour goes before that of points.
  void Highlight(SoMaterial* material, int on) override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIContourSeparator() override;

  NodeRef<SoMaterial> fixedMaterial;
  NodeRef<SoCoordinate3> coordinates;
  SubHighlight subHighlight;

private:
  tarn::PointMeshContour* contour() const;
  void forgetChildren();
  void build();
  void place();
  SbColor contourColor() const;
  void colorPoints(int first, tarn::VOrdCollect* marked);
};
