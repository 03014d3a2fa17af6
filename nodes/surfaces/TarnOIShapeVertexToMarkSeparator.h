#pragma once

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"

class SoMaterial;
class SoSphere;
class SoTransform;

namespace tarn {
class Point3DRandom;
}  // namespace tarn

/// Marks a corner of a shape by a sphere. It shows no object of the model itself: the node of
/// an edge has one for each of its ends.
///
/// Children: an SoMaterial that SetMaterial put in front, SoTransform, SoSphere.
class TARNOI_EXPORT TarnOIShapeVertexToMarkSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIShapeVertexToMarkSeparator);

public:
  TarnOIShapeVertexToMarkSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOIShapeVertexToMarkSeparator(const TarnOIShapeVertexToMarkSeparator& other);
  TarnOIShapeVertexToMarkSeparator& operator=(const TarnOIShapeVertexToMarkSeparator& other);

  /// Moves the sphere to a position in the viewer frame: nothing is converted. The first call
  /// builds the children; the radius is then the preference "VertexRadius". Null is ignored.
  void SetVertexPosition(const tarn::Point3DRandom* position);
  /// Sets the sphere's radius, in units of the model, once there is a position; before, it
  /// does nothing.
  void SetRadius(float radius);
  /// Replaces the material in front of the sphere; null takes it out. It may be shared.
  void SetMaterial(SoMaterial* material);

  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIShapeVertexToMarkSeparator() override;

  NodeRef<SoTransform> transform;
  NodeRef<SoSphere> sphere;
};
