#pragma once

#include <Inventor/nodes/SoMaterial.h>

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"

class SoIndexedFaceSet;
class SoShapeHints;
class TarnOITexture;

namespace tarn {
class Surface;
class VOrdCollect;
}  // namespace tarn

/// Shows a tessellated smooth surface as sets of triangles, each with a texture of its own or
/// none. No vertex is shared: every triangle has its own corners, normals and texture
/// coordinates, so that neighbouring sets may be textured from different photographs.
///
/// Children:
///   shapeHints       one of the caller's two
///   neutralMaterial  as often as textures must not be blended with the surface's colour
///   SoNormal, SoCoordinate3, SoIndexedFaceSet
///                    of each set without texture, the last set first
///   TarnOITexture, SoTextureCoordinate2, SoNormal, SoCoordinate3, SoIndexedFaceSet
///                    of each textured set, in the order of the sets
///
/// Use:
///   auto* node = new TarnOINurbsSurfaceSeparator;
///   tarn::VOrdCollect* sets = surface.GetTriangleSets();
///   node->SetNurbsSurface(&surface, &dictionary, singleSided, doubleSided, textures, &sets,
///                         &uvMatrices);
class TARNOI_EXPORT TarnOINurbsSurfaceSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOINurbsSurfaceSeparator);

public:
  TarnOINurbsSurfaceSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOINurbsSurfaceSeparator(const TarnOINurbsSurfaceSeparator& other);
  TarnOINurbsSurfaceSeparator& operator=(const TarnOINurbsSurfaceSeparator& other);

  /// Binds the node to `surface` under `dict` (see SetTarnObject; neither is owned) and builds
  /// all children anew.
  /// @param singleSidedHints, doubleSidedHints  one of them becomes a child; null adds none
  /// @param textures     one for each set, null for a set without; null for none at all
  /// @param triangleSets where the collection of the sets is: each a VOrdCollect of
  ///                     tarn::Triangle. A corner without a position is reported and drawn at
  ///                     the corner before it.
  /// @param uvMatrices   from the tarn::Triangle of textured sets to a tarn::MatrixDouble, row
  ///                     k of corner k, with u and v. One that is missing is reported.
  /// Nothing but the nodes is kept. Null `surface` only unbinds.
  virtual void SetNurbsSurface(tarn::Surface* surface, tarn::VDictionary* dict,
                               SoShapeHints* singleSidedHints, SoShapeHints* doubleSidedHints,
                               TarnOITexture** textures, tarn::VOrdCollect** triangleSets,
                               tarn::VDictionary* uvMatrices);

  /// Puts the neutral material in, directly after the first child, when `enable` is non-zero
  /// and the surface's material is textured without blending; a second call puts it in a
  /// second time: hosts rely on it. Otherwise takes it out once.
  void UpdateTextureBlend(int enable);

  /// The ordinary copy, bound to the same surface: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOINurbsSurfaceSeparator() override;

  /// The face set that was built last; null before the first.
  NodeRef<SoIndexedFaceSet> faceSet;
  /// The hints in use.
  NodeRef<SoShapeHints> shapeHints;
  /// Coin's default material, kept whether it is a child or not.
  NodeRef<SoMaterial> neutralMaterial = makeNode<SoMaterial>();

private:
  bool drawsTextureAlone() const;
};
