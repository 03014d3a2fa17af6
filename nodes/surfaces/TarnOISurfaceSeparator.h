#pragma once

#include <Inventor/nodes/SoNormal.h>

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/framework/TarnOITexture.h"

class SoShapeHints;

namespace tarn {
class Project;
class SurfaceGroup;
}  // namespace tarn

/// Shows a surface group as one indexed mesh whose triangles share their vertices.
///
/// Children:
///   TarnOITexture, SoNormal  where they were given; the one that was given later stands first
///   SoShapeHints             one of the caller's two
///   SoTextureCoordinate2     while the group is textured and a photograph shows it
///   SoCoordinate3            its vertices
///   SoIndexedFaceSet         its triangles; normals and texture coordinates go by its indexes
///
/// Use:
///   auto* node = new TarnOISurfaceSeparator;
///   node->SetSurface(&group, &dictionary, &project, singleSided, doubleSided);
///   node->SetTexture(texture, nullptr);
class TARNOI_EXPORT TarnOISurfaceSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOISurfaceSeparator);

public:
  TarnOISurfaceSeparator();
  /// Copies the members, which then share the other node's texture and normals; none becomes a
  /// child of this node. Coin's `copy` makes a node with children of its own.
  TarnOISurfaceSeparator(const TarnOISurfaceSeparator& other);
  TarnOISurfaceSeparator& operator=(const TarnOISurfaceSeparator& other);

  /// Binds the node to `group` under `searchDict` (see SetTarnObject; neither is owned) and builds
  /// the children or, called again, writes their values anew. Always reports "0" first and goes
  /// on: hosts rely on it.
  ///
  /// Where the group's material (or Material::gDefault) is textured by photographs, texture
  /// coordinates are those of one photograph for the whole group: the best for its first triangle.
  /// A vertex without position, or that this photograph does not show, is reported and takes what
  /// the vertex before it had. A corner that is none of the group's vertices gets the index -1.
  ///
  /// @param project      gives the photographs; null for none
  /// @param singleSidedHints, doubleSidedHints  one of them becomes a child. The first build puts
  ///                     it there, null for none; later ones replace it by another that is not
  ///                     null. Not owned.
  /// Null `group` only unbinds.
  void SetSurface(tarn::SurfaceGroup* group, tarn::VDictionary* searchDict, tarn::Project* project,
                  SoShapeHints* singleSidedHints, SoShapeHints* doubleSidedHints);

  /// Puts the texture, null for none, at the front in place of the one before and, where `project`
  /// is not null, sets the surface again, for texture coordinates of the photograph that is best
  /// by then. Nothing happens when it is the same texture.
  void SetTexture(TarnOITexture* texture, tarn::Project* project);
  /// The texture in use; null where there is none.
  TarnOITexture* GetTexture() const { return texture.get(); }

  /// Gives each vertex its normal, from a dictionary of tarn::Point3DDouble under
  /// SurfaceVertexKey. The view offset is subtracted from normals as from positions: hosts rely
  /// on it. Where one vertex has none the node has no normals at all.
  void AddOrUpdateNormals(tarn::VDictionary& normalsByKey, tarn::Project* project);
  /// Takes the normals out.
  void RemoveNormals();

  /// The ordinary copy, bound to the same group: the dictionary's entry moves to it. Its members
  /// are this node's texture and normals, not their copies: hosts rely on it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOISurfaceSeparator() override;

  NodeRef<TarnOITexture> texture;
  NodeRef<SoNormal> normalNode;

private:
  tarn::SurfaceGroup* group() const;
};
