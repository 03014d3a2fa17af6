#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/PointShape.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/points/SphereShape.h"

namespace tarn {
class AffineObject;
}

/// Shows a point of those that tie the project to its coordinate system, as a point or as a
/// sphere.
///
/// Children as a point:
///   pointPos     one coordinate, in the viewer frame
///   markerSet    SoPointSet
/// as a sphere:
///   sphereTrans  places the sphere
///   sphere       SoSphere
///
/// Use:
///   auto* node = new TarnOIAffineObjectSeparator;
///   node->SetSphereSize(0.5F);
///   node->SetAffineObject(&nPoint, &dictionary);
///   layer->addChild(node);
class TARNOI_EXPORT TarnOIAffineObjectSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIAffineObjectSeparator);

public:
  TarnOIAffineObjectSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOIAffineObjectSeparator(const TarnOIAffineObjectSeparator& other);
  TarnOIAffineObjectSeparator& operator=(const TarnOIAffineObjectSeparator& other);

  /// The radius of the sphere, in units of the model; 0 or less asks for a point. Takes
  /// effect with the next SetAffineObject.
  void SetSphereSize(float radius);

  /// Binds the node to `object` under `dict` (see SetTarnObject; neither is owned) and builds
  /// the children. Called again, it keeps those of a point and moves the coordinate; a
  /// sphere is built from nothing each time. A sphere asked to be a point again is reported
  /// and stays as it is: that takes a new node. An object that is no AffineObjectNPoint is
  /// reported, and drawn at the model's origin. Null only unbinds.
  void SetAffineObject(tarn::AffineObject* object, tarn::VDictionary* dict);

  /// The ordinary copy, bound to the same object: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIAffineObjectSeparator() override;

  void AddAsPoint(tarn::AffineObject* object);
  void AddAsSphere(tarn::AffineObject* object);

  SphereShape sphere;
  PointShape shape;
};
