#pragma once

#include <Inventor/SbViewportRegion.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "viewer/AxisCross.h"
#include "viewer/CommandLine.h"
#include "viewer/GroundPlane.h"
#include "viewer/HeightLegend.h"
#include "viewer/SceneBackground.h"
#include "viewer/ViewFraming.h"
#include "viewer/layers/ContourLayer.h"
#include "viewer/layers/MeshLayer.h"
#include "viewer/layers/PointLayer.h"
#include "viewer/layers/RayLayer.h"
#include "viewer/layers/SceneContext.h"
#include "viewer/layers/StationLayer.h"
#include "viewer/layers/SurfaceGroupLayer.h"
#include "viewer/layers/SurfaceLayer.h"

#include <optional>
#include <string>
#include <vector>

class SoCamera;
class SoPickedPoint;

/// A project as a scene graph.
///
/// The root's children: the background where it is a gradient, a light and what else holds
/// for all, the camera, then the layers (camera stations, surfaces, point meshes,
/// contours, a photograph's surface, object points, rays), the axes, the ground plane, and last
/// what is drawn over all else: a point that is marked, which stands there a second time. The light
/// stands ahead of the camera and so shines from the eye.
///
///     tarn::Project project;
///     ProjectFile::open("examples/demo", project, {});
///     ProjectScene scene(project);
///     scene.setView(CommandLine::View::eIso, 4.0 / 3.0);
///     OffscreenRenderer renderer(800, 600);
///     renderer.render(scene.root()).writePng("demo.png");
///
/// It sets the global view offset to the middle of the project, the project's ground level,
/// and the preference for how much photographs are shrunk. The project must outlive it.
class ProjectScene {
public:
  struct Options {
    bool imagePlanes = false;
    bool frusta = false;
    std::optional<double> ellipsoidScale;
    int mostPointNodes = PointLayer::Options().mostNodes;  ///< more object points are a cloud
    std::optional<CommandLine::Color> color;  ///< of clouds and meshes; see MeshLayer::setColor
    std::optional<double> contourSpacing;     ///< in units of the project
    bool axis = false;
    bool groundPlane = false;
    bool meshes = true;  ///< false: showMeshes is called later
    SceneBackground::Kind background = SceneBackground::Kind::eGradient;
    tarn::ProgressHandler progress;  ///< may be empty
  };

  explicit ProjectScene(tarn::Project& project) : ProjectScene(project, Options()) {}
  /// Throws std::runtime_error when contours are asked for and there can be none: without
  /// point meshes, with heights that are not along Z, or with a spacing that is too small.
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

  /// Shows the point meshes, and contours where they were asked for, as they are now: to be
  /// called when the meshes were cut. Views and the view offset stay those of the whole.
  /// Throws as the constructor does.
  void showMeshes();

  /// Shows which colour stands for which height, in front of all. Returns why there is nothing to
  /// show; else an empty text. To be called when the meshes are shown.
  std::string showHeightScale();

  /// Shows the surface over the points on the station's photograph, in place of one that was
  /// shown before. Throws std::runtime_error where there is none (see StationSurface).
  void showSurface(const tarn::CameraStation& station);

  /// Shows the photographs in the stations, or their symbols.
  void setImagePlanes(bool show) { stations.setImagePlanes(show); }
  void setFrusta(bool show) { stations.setFrusta(show); }

  /// Names those stations and object points for whose names there is room in the view. Of
  /// names that would cover each other a station's is kept, the marked one's first of all,
  /// then that of the point with more rays.
  void showLabels(const SbViewportRegion& viewport);
  void hideLabels();

  /// Marks the object and takes the mark off what was marked before. A marked point gets
  /// its symbol and its name, and nothing hides it. A marked station shows what it saw.
  void highlight(tarn::ObjectPoint& point);
  void highlight(tarn::CameraStation& station);
  void clearHighlight();

  /// The object point or the camera station that was picked; null for anything else. Picked
  /// rays stand for what they are of.
  tarn::VObject* objectAt(const SoPickedPoint& picked) const;

  /// Shows the rays between the point and the stations that saw it, or between the station
  /// and the points that it saw, besides those that are shown already.
  void showRays(tarn::ObjectPoint& point) { rays.add(point); }
  void showRays(tarn::CameraStation& station) { rays.add(station); }
  /// Shows the rays of the marked object and no others; hides all when they are shown, or
  /// when nothing is marked.
  void toggleRaysOfHighlighted();

  /// Colours clouds and meshes as MeshLayer::setColor does; a height scale is shown while it
  /// tells something.
  void setColor(std::optional<CommandLine::Color> color);
  /// Shows the dense clouds and meshes, or hides them.
  void setMeshesVisible(bool visible) { meshes->setVisible(visible); }

  void setAxis(bool show) { axis.show(show); }
  void setGroundPlane(bool show) { groundPlane.show(show); }
  void setBackground(SceneBackground::Kind kind) { sceneBackground.set(kind); }

  SoSeparator* root() const { return sceneRoot.get(); }
  SoCamera* camera() const { return currentCamera; }
  tarn::VDictionary& dictionary() { return context.objects; }
  const ViewFraming& framing() const { return viewFraming; }
  bool showsImagePlanes() const { return stations.showsImagePlanes(); }
  bool showsFrusta() const { return stations.showsFrusta(); }
  bool showsLabels() const { return labelsShown; }
  bool areMeshesVisible() const { return meshes->isVisible(); }
  std::optional<CommandLine::Color> color() const { return meshes->color(); }
  bool showsAxis() const { return axis.isShown(); }
  bool showsGroundPlane() const { return groundPlane.isShown(); }
  /// Its colour is for whoever clears the picture or the window.
  const SceneBackground& background() const { return sceneBackground; }

  /// What is not shown as it was asked for; empty when all is.
  std::vector<std::string> notes() const;
  /// Why photographs could not be shown; empty when all could.
  const std::vector<std::string>& problems() const { return stations.problems(); }

private:
  void addSurroundings(int points);
  void setCamera(SoCamera* camera);
  ViewFraming framingOfAll() const;

  tarn::Project& project;
  Options options;
  SceneContext context;
  ViewFraming viewFraming;
  StationLayer stations;
  SurfaceLayer surfaces;
  std::optional<MeshLayer> meshes;
  std::optional<ContourLayer> contours;
  std::optional<SurfaceGroupLayer> surface;
  PointLayer points;
  RayLayer rays;
  NodeRef<SoSeparator> sceneRoot;  // after the layers: it lets their nodes go first
  std::optional<HeightLegend> heightLegend;
  SceneBackground sceneBackground;
  AxisCross axis;
  GroundPlane groundPlane;
  SoCamera* currentCamera = nullptr;
  bool labelsShown = false;
};
