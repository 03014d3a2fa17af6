#pragma once

#include "viewer/layers/SceneLayer.h"

#include <optional>
#include <vector>

class LabelPlaces;
class SoDepthBuffer;
class SoSeparator;
class TarnOIObjectPointSeparator;

namespace tarn {
class ObjectPoint;
class Project;
}  // namespace tarn

/// The object points: a node for each that has a position.
class PointLayer : public SceneLayer {
public:
  /// Shows error ellipsoids where they are given a scale.
  PointLayer(const tarn::Project& project, std::optional<double> ellipsoidScale,
             SceneContext& context);
  ~PointLayer();

  /// Draws the points over what was drawn before, whatever is nearer.
  void setDrawnOver(bool over);

  /// Names the points that there is room for, those with more rays first.
  void showLabels(LabelPlaces& places);
  void hideLabels();

  /// Marks the point: it gets its symbol and its name, and nothing hides it, for one coloured
  /// dot among thousands is hard to find.
  void mark(const tarn::ObjectPoint& point);
  void clearMark();
  tarn::ObjectPoint* markedPoint() const;

  /// Where the marked point stands a second time; to be drawn after all else.
  SoSeparator* onTop() const { return topmost.get(); }

private:
  void showLabel(TarnOIObjectPointSeparator& node, bool show);

  bool useMarkers = false;
  bool labelsShown = false;
  SoDepthBuffer* depth = nullptr;
  NodeRef<SoSeparator> topmost;
  TarnOIObjectPointSeparator* marked = nullptr;
  std::vector<TarnOIObjectPointSeparator*> nodes;
};
