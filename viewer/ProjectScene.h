#pragma once

#include <Inventor/SbViewportRegion.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/classes/VDictionary.h"
#include "host/model/Extents.h"
#include "host/model/ObjectName.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "viewer/CommandLine.h"
#include "viewer/PhotographCache.h"
#include "viewer/ViewFraming.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

class SoCamera;
class SoDepthBuffer;
class SoScale;
class TarnOICameraStationSeparator;
class TarnOILayerSeparator;
class TarnOIObjectPointSeparator;
class TarnOISeparator;

namespace tarn {
class CameraStation;
class ObjectPoint;
class Project;
}  // namespace tarn

/// A project as a scene graph.
///
/// The root's children: a light and what else holds for all, the camera, then for each
/// layer (object points, camera stations) a TarnOISwitch over a TarnOILayerSeparator with
/// the nodes of its objects, and last what is drawn over all else: a point that is marked,
/// which stands there a second time. The light stands ahead of the camera and so shines from the
/// eye.
///
///     tarn::Project project;
///     ProjectFile::open("examples/demo", project, {});
///     ProjectScene scene(project);
///     scene.setView(CommandLine::View::eIso, 4.0 / 3.0);
///     OffscreenRenderer renderer(800, 600);
///     renderer.render(scene.root()).writePng("demo.png");
///
/// It sets the global view offset to the middle of the project, and the preference for how
/// much photographs are shrunk. The project must outlive it.
class ProjectScene {
public:
  struct Options {
    bool imagePlanes = false;
    bool frusta = false;
    std::optional<double> ellipsoidScale;
    std::function<void(const char* step, double done)> progress;  ///< may be empty
  };

  explicit ProjectScene(tarn::Project& project) : ProjectScene(project, Options()) {}
  ProjectScene(tarn::Project& project, const Options& options);
  ~ProjectScene();
  ProjectScene(const ProjectScene&) = delete;
  ProjectScene& operator=(const ProjectScene&) = delete;

  /// Puts a camera for a view other than eStation into the scene; `aspect` is width by
  /// height of the picture.
  void setView(CommandLine::View view, double aspect);

  /// Looks through the station's camera. Its symbol is left out, which would stand in
  /// front of the lens, and its mark with it; with image planes the points are drawn over the
  /// photograph. Returns false, and changes nothing, when the station is not oriented.
  bool setView(tarn::CameraStation& station);

  /// Shows the photographs in the stations, or their symbols.
  void setImagePlanes(bool show);
  void setFrusta(bool show);

  /// Names those stations and object points for whose names there is room in the view. Of
  /// names that would cover each other a station's is kept, the marked one's first of all,
  /// then that of the point with more rays.
  void showLabels(const SbViewportRegion& viewport);
  void hideLabels();

  /// Marks the object and takes the mark off what was marked before. A marked point gets
  /// its symbol and its name, and nothing hides it: one coloured dot among thousands is hard
  /// to find. A marked station shows what it saw.
  void highlight(tarn::ObjectPoint& point);
  void highlight(tarn::CameraStation& station);
  void clearHighlight();

  SoSeparator* root() const { return sceneRoot.get(); }
  SoCamera* camera() const { return currentCamera; }
  tarn::VDictionary& dictionary() { return nodesOfObjects; }
  const ViewFraming& framing() const { return viewFraming; }
  bool showsImagePlanes() const { return options.imagePlanes; }
  bool showsFrusta() const { return options.frusta; }
  bool showsLabels() const { return labelsShown; }

  /// Why photographs could not be shown; empty when all could.
  const std::vector<std::string>& problems() const { return photographProblems; }

  /// The colour behind the scene.
  static SbColor backgroundColor();

private:
  TarnOILayerSeparator* addLayer(tarn::ObjectName& name);
  void addPoints();
  void addStations();
  void build(TarnOICameraStationSeparator& node, tarn::CameraStation& station);
  void showFrustum(TarnOICameraStationSeparator& node);
  void setCamera(SoCamera* camera);
  double symbolSize() const;
  ViewFraming framingOfAll() const;
  void includeCone(ViewFraming& all, const tarn::CameraStation& station, double depth) const;
  void setStationScale();
  void showPointLabel(TarnOIObjectPointSeparator& node, bool show);
  void showStationLabel(TarnOICameraStationSeparator& node);
  TarnOICameraStationSeparator* nodeOf(const tarn::CameraStation& station) const;
  TarnOIObjectPointSeparator* nodeOf(const tarn::ObjectPoint& point) const;
  void report(const char* step, int done, int all) const;

  // Ahead of the nodes: they take themselves out of the dictionaries when they go.
  tarn::VDictionary nodesOfObjects;
  tarn::VDictionary nodesOfLayers;
  tarn::ObjectName pointLayerName{"Object points"};
  tarn::ObjectName stationLayerName{"Camera stations"};

  tarn::Project& project;
  Options options;
  ViewFraming viewFraming;
  tarn::Extents extents;
  PhotographCache cache;
  std::vector<std::string> photographProblems;
  bool labelsShown = false;
  bool useMarkers = false;
  bool photographsRedirected = false;

  NodeRef<SoSeparator> sceneRoot;
  NodeRef<SoScale> stationScale;
  NodeRef<TarnOIMaterialWithPriority> highlightMaterial;
  TarnOILayerSeparator* pointLayer = nullptr;
  TarnOILayerSeparator* stationLayer = nullptr;
  SoCamera* currentCamera = nullptr;
  SoDepthBuffer* pointDepth = nullptr;
  SoSeparator* onTop = nullptr;
  TarnOISeparator* highlighted = nullptr;
  std::vector<TarnOIObjectPointSeparator*> pointNodes;
  std::vector<TarnOICameraStationSeparator*> stationNodes;
  std::unordered_set<const TarnOICameraStationSeparator*> labelledStations;
};
