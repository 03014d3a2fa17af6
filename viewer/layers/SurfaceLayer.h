#pragma once

#include <Inventor/nodes/SoShapeHints.h>

#include "viewer/layers/SceneLayer.h"

#include <string>
#include <unordered_map>
#include <vector>

class SoMaterial;
class TarnOIImportedSurfaceSeparator;
class TarnOITexture;

namespace tarn {
class ImportedSurface;
class Material;
class Project;
class TessellatedSurface;
class VPathString;
}  // namespace tarn

/// The surfaces and lines that were brought into the project from outside, with their textures and
/// materials. Surfaces with the same picture share one texture.
class SurfaceLayer : public SceneLayer {
public:
  /// The project must outlive the layer.
  SurfaceLayer(const tarn::Project& project, SceneContext& context);
  ~SurfaceLayer();

  /// Why textures are not shown, a line for each picture; empty when all are.
  const std::vector<std::string>& notes() const { return textureNotes; }

private:
  void addSurfaces(const tarn::Project& project);
  void addLines(const tarn::Project& project);
  void add(tarn::ImportedSurface& surface);
  TarnOITexture* textureOf(const tarn::VPathString* file);

  NodeRef<SoShapeHints> singleSided = makeNode<SoShapeHints>();
  NodeRef<SoShapeHints> doubleSided = makeNode<SoShapeHints>();
  std::unordered_map<std::string, NodeRef<TarnOITexture>> textures;  ///< null for one not shown
  std::vector<std::string> textureNotes;
};
