#pragma once

#include "viewer/layers/SceneLayer.h"

#include <string>
#include <vector>

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
  /// A cloud of more places in plan is thinned to so many or fewer.
  static constexpr int mostPlaces = 250'000;

  /// Which clouds were thinned, a line each.
  const std::vector<std::string>& notes() const { return contourNotes; }

private:
  void add(tarn::PointMesh& mesh, double spacing);

  SoSeparator* thin;
  SoSeparator* wide;
  std::vector<std::string> contourNotes;
};
