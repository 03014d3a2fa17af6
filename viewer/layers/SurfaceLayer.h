#pragma once

#include <Inventor/nodes/SoShapeHints.h>

#include "viewer/layers/SceneLayer.h"

#include <string>
#include <unordered_map>
#include <vector>

class TarnOITexture;

namespace tarn {
class Project;
class TessellatedSurface;
class VOrdCollect;
class VPathString;
}  // namespace tarn

/// The surfaces that have triangles of their own (imported ones, NURBS surfaces and cylinders),
/// with their textures and materials, and the imported lines and curves. Surfaces with the same
/// picture share one texture.
class SurfaceLayer : public SceneLayer {
public:
  /// Shows surfaces with the triangles that they have (see tessellate). The project must outlive
  /// the layer.
  SurfaceLayer(tarn::Project& project, SceneContext& context);
  ~SurfaceLayer();

  /// Makes triangles of those NURBS surfaces and cylinders that have none, to the project's
  /// tolerance.
  static void tessellate(const tarn::Project& project);

  /// Why textures are not shown, a line for each picture; empty when all are.
  const std::vector<std::string>& notes() const { return textureNotes; }

private:
  template <typename Node>
  void addSurfaces(const tarn::VOrdCollect& surfaces, const char* step);
  void addLines(tarn::Project& project);
  template <typename Node>
  void add(tarn::TessellatedSurface& surface);
  TarnOITexture* textureOf(const tarn::VPathString* file);

  NodeRef<SoShapeHints> singleSided = makeNode<SoShapeHints>();
  NodeRef<SoShapeHints> doubleSided = makeNode<SoShapeHints>();
  std::unordered_map<std::string, NodeRef<TarnOITexture>> textures;  ///< null for one not shown
  std::vector<std::string> textureNotes;
};
