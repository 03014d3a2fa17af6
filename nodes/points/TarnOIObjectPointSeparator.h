#pragma once

#include "host/classes/VString.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/PointShape.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/points/PointLabel.h"

class SoSeparator;

namespace tarn {
class ObjectPoint;
class Point3DRandom;
}  // namespace tarn

/// Shows an object point: as a point or a marker, in the colour that the photographs show
/// there, with its number, user name and control point as a label, and surrounded by its
/// error ellipsoid, each of these when asked for.
///
/// Children, all of them present:
///   rgbMaterial      the colour from the photographs
///   ...              highlight materials, placed by Highlight
///   sphereSeparator  the error ellipsoid: sphereTransform, sphere
///   pointPos         one coordinate, in the viewer frame
///   markerSet        SoMarkerSet with markers, else SoPointSet
///   trans            places the label
///   textLable        the label
///
/// Use:
///   auto* node = new TarnOIObjectPointSeparator;
///   node->SetObjectPoint(&point, &dictionary, 1, 1);
///   layer->addChild(node);
///   node->UpdateTextLable(1, 0);
///   node->ShowErrorEllipsoid(1);
///   node->SetErrorEllipsoidScale(100.0F);
///
/// Preferences, read whenever the part concerned is updated: "ShowOnlyActive" (section
/// "Control", 1), "ShowUserNameInIDs" (no section, 1), "ExagerationSphereSize" (no section,
/// 1.0; hosts rely on the spelling).
class TARNOI_EXPORT TarnOIObjectPointSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIObjectPointSeparator);

public:
  TarnOIObjectPointSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOIObjectPointSeparator(const TarnOIObjectPointSeparator& other);
  TarnOIObjectPointSeparator& operator=(const TarnOIObjectPointSeparator& other);

  /// Binds the node to `point` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children. Called again, it keeps them: coordinate, marker and colour follow the
  /// point, label and ellipsoid wait for their own updates. `useMarkers` non-zero draws a
  /// marker, `useRGB` non-zero the colour from the photographs where there is one. A point
  /// without a position is drawn at the model's origin. Null only unbinds.
  void SetObjectPoint(tarn::ObjectPoint* point, tarn::VDictionary* dict, int useMarkers,
                      int useRGB);

  /// Draws the point as a marker (non-zero) or a plain point, in the place of the other.
  /// The marker says, first that holds: control point, second state, coded target or other
  /// target when all its marks are sub-pixel, any point.
  void UpdateMarkerSet(int useMarkers);

  /// Shows (non-zero) or removes the colour from the photographs. A colour shown already
  /// changes its diffuse part only.
  void UpdateRGBColor(int useRGB);

  /// Builds, changes or removes the label: see GetTextLable. An empty text removes it.
  void UpdateTextLable(int showNumber, int markT);

  /// Shows (non-zero) or hides the error ellipsoid; points of a surface have none. Its shape
  /// is set by SetErrorEllipsoidScale.
  void ShowErrorEllipsoid(int show);

  /// Shapes the ellipsoid: its half axes are the standard deviations along the principal
  /// axes of the point's covariance, times `scale`, times the sphere's radius. Takes the
  /// ellipsoid out where there is none: the point is neither processed, control point nor
  /// frozen, or its covariance is unknown. Nothing happens before ShowErrorEllipsoid(1).
  void SetErrorEllipsoidScale(float scale);

  /// The label's text: with `showNumber` non-zero the point's number (in brackets for a
  /// coded target), its user name where that is on, and the linked imported point of a
  /// control point; with `markT` non-zero a leading T for a point in the T state. Empty
  /// when nothing of this is asked for, and for a null point.
  static tarn::VString GetTextLable(int showNumber, int markT, tarn::ObjectPoint* point);

  /// Hands out the coordinate and the shape; both stay the node's. Null before the first
  /// SetObjectPoint.
  void GetPointSet(SoCoordinate3** coords, SoPointSet** points) const;

  /// The ordinary copy, bound to the same point: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIObjectPointSeparator() override;

  /// Makes the sub-graph of the ellipsoid, which the node keeps whether shown or not.
  void CreateSphereSeparator();

  // Each holds a reference, so that it may be taken out of the children and put back.
  PointShape shape;
  NodeRef<SoMaterial> rgbMaterial;
  PointLabel label;
  NodeRef<SoSeparator> sphereSeparator;
  NodeRef<SoTransform> sphereTransform;

private:
  tarn::ObjectPoint* point() const;
  void hideErrorEllipsoid();
};
