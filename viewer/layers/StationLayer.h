#pragma once

#include "host/model/Extents.h"
#include "viewer/PhotographCache.h"
#include "viewer/layers/SceneLayer.h"

#include <string>
#include <unordered_set>
#include <vector>

class LabelPlaces;
class SoScale;
class TarnOICameraStationSeparator;
class ViewFraming;

namespace tarn {
class CameraStation;
class Project;
}  // namespace tarn

/// The camera stations: a node for each that stands somewhere, with its symbol or its
/// photograph.
class StationLayer : public SceneLayer {
public:
  struct Options {
    bool imagePlanes = false;
    bool frusta = false;
  };

  /// Sizes the symbols to suit the object. It sets the preference for how much photographs are
  /// shrunk. Project and framing must outlive the layer.
  StationLayer(const tarn::Project& project, const Options& options, const ViewFraming& framing,
               SceneContext& context);
  ~StationLayer();

  /// Shows the photographs in the stations, or their symbols.
  void setImagePlanes(bool show);
  void setFrusta(bool show);
  bool showsImagePlanes() const { return options.imagePlanes; }
  bool showsFrusta() const { return options.frusta; }

  /// Has the framing hold what the stations show besides themselves, too.
  void includeIn(ViewFraming& all) const;
  /// The size of a station's symbol, or of its image plane.
  double symbolSize() const;
  /// How far in front of the station its image plane stands, in the scene; 0 for a station
  /// without a camera.
  double imagePlaneDistance(const tarn::CameraStation& station) const;

  /// Leaves the station's node out for good, its mark with it.
  void leaveOut(const tarn::CameraStation& station);

  /// Names the stations that there is room for, the marked one first.
  void showLabels(LabelPlaces& places);
  void hideLabels();

  /// Marks the station, which then shows what it saw.
  void mark(const tarn::CameraStation& station);
  void clearMark();
  tarn::CameraStation* markedStation() const;

  /// Why photographs could not be shown; empty when all could.
  const std::vector<std::string>& problems() const { return photographProblems; }

private:
  void build(TarnOICameraStationSeparator& node, tarn::CameraStation& station);
  void showFrustum(TarnOICameraStationSeparator& node);
  void showLabel(TarnOICameraStationSeparator& node);
  void setScale();
  TarnOICameraStationSeparator* nodeOf(const tarn::CameraStation& station) const;

  const tarn::Project& project;
  const ViewFraming& framing;
  Options options;
  tarn::Extents extents;
  PhotographCache cache;
  bool photographsRedirected = false;
  std::vector<std::string> photographProblems;
  NodeRef<SoScale> scale;
  TarnOICameraStationSeparator* marked = nullptr;
  std::vector<TarnOICameraStationSeparator*> nodes;
  std::unordered_set<const TarnOICameraStationSeparator*> labelled;
};
