#pragma once

#include "host/classes/VString.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/PointShape.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/points/PointLabel.h"
#include "nodes/points/SphereShape.h"

namespace tarn {
class ImportedPoint;
}

/// Shows an imported point, as a point or as a sphere, with its number and name as a label
/// when that is asked for.
///
/// Children as a point, all of them present:
///   pointPos     one coordinate, in the viewer frame
///   markerSet    SoPointSet
///   textTrans    places the label
///   textLable    the label
/// as a sphere:
///   sphereTrans  places the sphere
///   sphere       SoSphere
///   textTrans, textLable
///
/// Use:
///   auto* node = new TarnOIImportedPointSeparator;
///   node->SetSphereSize(0.5F);
///   node->SetImportedPoint(&point, &dictionary);
///   layer->addChild(node);
///   node->UpdateTextLable(1, 0);
///
/// Preferences, read whenever the label is updated: "DisplayNameAndID" (section "Control",
/// 0).
class TARNOI_EXPORT TarnOIImportedPointSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIImportedPointSeparator);

public:
  TarnOIImportedPointSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOIImportedPointSeparator(const TarnOIImportedPointSeparator& other);
  TarnOIImportedPointSeparator& operator=(const TarnOIImportedPointSeparator& other);

  /// The radius of the sphere, in units of the model; 0 or less asks for a point. Takes
  /// effect with the next SetImportedPoint.
  void SetSphereSize(float radius);

  /// Binds the node to `point` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children. Called again, it keeps those of a point and moves the coordinate; the label
  /// waits for its own update. A sphere is built from nothing each time: the label and what
  /// else was among the children is gone. A sphere asked to be a point again is reported and
  /// stays as it is: that takes a new node. Null only unbinds.
  ///
  /// The place is the point's position; where it has none, the stored one, and a point that
  /// is active without a position is reported.
  void SetImportedPoint(tarn::ImportedPoint* point, tarn::VDictionary* dict);

  /// Builds, changes or removes the label: see GetTextLable. An empty text removes it. Its
  /// transform holds the point's position, never the stored one: the label of a point
  /// without a position stands at the model's origin. After a sphere the transform acts
  /// within the sphere's translation, which moves the text once more. Hosts rely on both.
  void UpdateTextLable(int showNumber, int markT);

  /// The label's text: with `showNumber` non-zero number and name, name or number, as
  /// preferred. Empty otherwise, and for a null point. `markT` says nothing here: imported
  /// points have no T state.
  static tarn::VString GetTextLable(int showNumber, int markT, tarn::ImportedPoint* point);

  /// Hands out the coordinate and the shape; both stay the node's. Null before the first
  /// SetImportedPoint, and for a sphere.
  void GetPointSet(SoCoordinate3** coords, SoPointSet** points) const;

  /// The ordinary copy, bound to the same point: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIImportedPointSeparator() override;

  void AddAsPoint(tarn::ImportedPoint* point);
  void AddAsSphere(tarn::ImportedPoint* point);

  SphereShape sphere;
  PointShape shape;
  PointLabel label;
};
