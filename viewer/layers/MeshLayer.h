#pragma once

#include "viewer/CommandLine.h"
#include "viewer/layers/SceneLayer.h"

#include <optional>
#include <string>
#include <vector>

class SoMaterial;
class SoMaterialBinding;
class TarnOIPointMeshSeparator;

namespace tarn {
class PointMesh;
class Project;
}  // namespace tarn

/// The dense point clouds, as points, and the meshes, as surfaces that are lit.
class MeshLayer : public SceneLayer {
public:
  using Color = CommandLine::Color;

  /// Colours as setColor does. The project must outlive the layer.
  MeshLayer(tarn::Project& project, std::optional<Color> color, SceneContext& context);
  ~MeshLayer();

  /// Colours points and surfaces: in their own colours, by height from the lowest to the
  /// highest of all, or not at all. Without a kind each has its own colours; a cloud that has
  /// none is coloured by height.
  void setColor(std::optional<Color> color);
  std::optional<Color> color() const { return asked; }

  /// Whether any mesh is coloured by height.
  bool showsHeights() const { return heightsShown; }

  /// What cannot be coloured as it was asked for last, a line for each mesh or one where there
  /// is none.
  const std::vector<std::string>& notes() const { return colorNotes; }

  /// The size of the points of a cloud, in pixels: the more there are, the smaller.
  static float pointSize(int points);

private:
  struct Shown {
    tarn::PointMesh* mesh;
    TarnOIPointMeshSeparator* node;
    SoMaterial* corners;         ///< of a surface: its corners' colours; null for a cloud
    SoMaterialBinding* binding;  ///< of those; likewise
  };
  Shown addCloud(tarn::PointMesh& mesh);
  Shown addSurface(tarn::PointMesh& mesh);
  Color colorOf(const tarn::PointMesh& mesh);
  void colorSurface(const Shown& shown, Color color);

  tarn::Project& project;
  std::vector<Shown> meshes;
  std::optional<Color> asked;
  std::vector<std::string> colorNotes;
  bool heightsShown = false;
};
