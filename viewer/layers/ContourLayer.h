#pragma once

#include "viewer/layers/SceneLayer.h"

class SoSeparator;

namespace tarn {
class PointMesh;
class Project;
}  // namespace tarn

/// Lines of equal height over the project's point meshes: over their triangles, or for a cloud
/// over its triangulation in plan. Every fifth line is drawn wider.
class ContourLayer : public SceneLayer {
public:
  /// Computes the lines at the multiples of `spacing`, which take the place of the contours
  /// that the meshes had. Throws std::runtime_error when there are no meshes, or the spacing
  /// gives more than `mostLevels` heights.
  /// @param lift by how much the lines are drawn above their heights: they would be half buried
  ///        in the points that they run through
  ContourLayer(tarn::Project& project, double spacing, double lift, SceneContext& context);
  ~ContourLayer();

  static constexpr int mostLevels = 2000;

private:
  void add(tarn::PointMesh& mesh, double spacing);

  SoSeparator* thin;
  SoSeparator* wide;
};
