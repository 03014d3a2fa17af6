#pragma once

#include <Inventor/SbVec2s.h>

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIOverlaySeparator.h"
#include "nodes/hud/TarnOIColorizeScaleHUD.h"

class SbViewportRegion;
class SoAction;
class SoCoordinate3;
class SoOrthographicCamera;

namespace tarn {
class Project;
}  // namespace tarn

/// The legend of the height colours at the right of the picture, on a dark plate, so that it
/// can be read over anything. In pictures so narrow that its numbers would be cut off it stands
/// further to the left. Its numbers are the heights of the point meshes' lowest and highest
/// points and the middle between them, in the project's units.
class HeightLegend {
public:
  /// Reads the heights; what the meshes hold later needs a new legend.
  explicit HeightLegend(tarn::Project& project);
  ~HeightLegend();
  HeightLegend(const HeightLegend&) = delete;
  HeightLegend& operator=(const HeightLegend&) = delete;

  /// What is put into the scene, behind everything else; it may be drawn only while the legend
  /// lives. A box around the scene does not hold it, and it cannot be picked.
  SoSeparator* root() const { return overlay.get(); }

  /// Whether the heights of all meshes are coloured alike. Those far from the origin are stored
  /// with a shift, and the colours are those of stored heights: no one scale explains those of
  /// two meshes with different shifts.
  static bool explains(const tarn::Project& project);

private:
  static void isDrawn(void* self, SoAction* action);
  void fit(const SbViewportRegion& picture);

  NodeRef<TarnOIOverlaySeparator> overlay;
  NodeRef<SoOrthographicCamera> camera;
  NodeRef<SoCoordinate3> plate;
  NodeRef<TarnOIColorizeScaleHUD> scale;
  SbVec2s fittedTo{0, 0};
};
