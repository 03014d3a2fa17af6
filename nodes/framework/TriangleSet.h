#pragma once

#include <Inventor/SbVec2f.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoNormal.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>

#include "host/classes/VOrdCollect.h"
#include "host/model/Triangle.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/FieldFill.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/NormalFill.h"

class SoGroup;

/// A set of triangles as nodes: each has three coordinates of its own, so that face f has the
/// coordinates 3f to 3f + 2. Normals and texture coordinates go by the same indexes.
class TARNOI_EXPORT TriangleSet {
public:
  explicit TriangleSet(bool textured);

  /// Fills the nodes, each field signalled once.
  /// @param triangles  of class tarn::Triangle
  /// @param positionOf gives the scene's position of a corner from its tarn::ThreeDPoint*, which
  ///                   may be null
  /// @param placeTexture writes the three texture coordinates of a tarn::Triangle* into an
  ///                   SbVec2f*; called for textured sets only
  template <typename PositionOf, typename PlaceTexture>
  void fill(const tarn::VOrdCollect& triangles, PositionOf positionOf, PlaceTexture placeTexture);

  /// Appends the nodes, the texture first: texture, texture coordinates, normals, coordinates,
  /// faces.
  void append(SoGroup& node, SoNode* texture) const;
  /// Inserts normals, coordinates and faces at that index and after it.
  void insert(SoGroup& node, int index) const;
  /// Completes the sets among the children of a node that Coin has copied: see NormalFill.
  static void completeCopy(SoGroup& copy);

  NodeRef<SoTextureCoordinate2> textureCoordinates;  ///< null where the set is not textured
  NodeRef<SoNormal> normals = makeNode<SoNormal>();
  NodeRef<SoCoordinate3> coordinates = makeNode<SoCoordinate3>();
  NodeRef<SoIndexedFaceSet> faces = makeNode<SoIndexedFaceSet>();

private:
  void fillIndexes(int triangles);
};

template <typename PositionOf, typename PlaceTexture>
void TriangleSet::fill(const tarn::VOrdCollect& triangles, PositionOf positionOf,
                       PlaceTexture placeTexture) {
  const int count = triangles.size();
  NormalFill vectors(*normals, 3 * count);
  {
    const FieldFill points(coordinates->point, 3 * count);
    SbVec3f* point = points.values();
    for (int t = 0; t < count; ++t) {
      const auto* triangle = static_cast<const tarn::Triangle*>(triangles.at(t));
      for (int corner = 0; corner < 3; ++corner) {
        *point++ = positionOf(triangle ? triangle->GetPoint(corner) : nullptr);
        const tarn::Point3DDouble* normal = triangle ? triangle->GetNormal(corner) : nullptr;
        if (normal) vectors.set(3 * t + corner, *normal);
      }
    }
  }
  vectors.finish();
  if (textureCoordinates) {
    const FieldFill placed(textureCoordinates->point, 3 * count);
    for (int t = 0; t < count; ++t) {
      placeTexture(static_cast<tarn::Triangle*>(triangles.at(t)), placed.values() + 3 * t);
    }
  }
  fillIndexes(count);
}
