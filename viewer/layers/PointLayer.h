#pragma once

#include "viewer/layers/SceneLayer.h"

#include <memory>
#include <optional>
#include <vector>

class LabelPlaces;
class SoDepthBuffer;
class SoSeparator;
class TarnOIObjectPointSeparator;

namespace tarn {
class ObjectPoint;
class PointMesh;
class Project;
class VObject;
}  // namespace tarn

/// The object points: a node for each that has a position, or, where they are very many, all as
/// one cloud, out of which single points still can be marked and named.
class PointLayer : public SceneLayer {
public:
  struct Options {
    /// Shows error ellipsoids, so many times their size; each point has a node then.
    std::optional<double> ellipsoidScale;
    int mostNodes = 50'000;  ///< more points than this are a cloud
  };

  /// The project must outlive the layer.
  PointLayer(const tarn::Project& project, const Options& options, SceneContext& context);
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

  /// The point of that index in the cloud, where `mesh` is the layer's cloud; else null.
  tarn::ObjectPoint* pointOfCloud(const tarn::VObject& mesh, int index) const;

  /// Where the marked point stands a second time; to be drawn after all else.
  SoSeparator* onTop() const { return topmost.get(); }

private:
  TarnOIObjectPointSeparator* addNode(tarn::ObjectPoint& point);
  TarnOIObjectPointSeparator* nodeOf(const tarn::ObjectPoint& point);
  void addCloud();
  void showLabel(TarnOIObjectPointSeparator& node, bool show);

  bool useMarkers = false;
  bool labelsShown = false;
  SoDepthBuffer* depth = nullptr;
  NodeRef<SoSeparator> topmost;
  TarnOIObjectPointSeparator* marked = nullptr;
  std::vector<tarn::ObjectPoint*> points;  // those that have a position
  std::vector<TarnOIObjectPointSeparator*> nodes;
  std::unique_ptr<tarn::PointMesh> cloud;
};
