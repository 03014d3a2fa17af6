#include "viewer/ProjectScene.h"

#include <Inventor/SoPath.h>
#include <Inventor/SoPickedPoint.h>
#include <Inventor/details/SoPointDetail.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoEnvironment.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include "host/general/ThreeDViewOffset.h"
#include "host/model/Photograph.h"
#include "host/model/Project.h"
#include "host/model/Ray3D.h"
#include "nodes/cameras/TarnOICameraStationSeparator.h"
#include "nodes/framework/TarnOISwitch.h"
#include "viewer/LabelPlaces.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

// A cloud far from the origin is stored less a shift of whole units, and its transform is
// exact when the offset is whole, too.
double rounded(double coordinate) {
  constexpr double large = 1000.0;
  return std::abs(coordinate) < large ? coordinate : std::round(coordinate);
}

// The layers need the view offset from their first node on.
ViewFraming framingWithOffset(const tarn::Project& project) {
  SurfaceLayer::tessellate(project);  // surfaces are framed by their triangles
  ViewFraming framing(project);
  const tarn::Point3DDouble centre = framing.objectExtents().GetCentre();
  tarn::gThreeDViewOffset = {rounded(centre.x), rounded(centre.y), rounded(centre.z)};
  return framing;
}

}  // namespace

ProjectScene::ProjectScene(tarn::Project& project, const Options& options)
    : project(project),
      options(options),
      context(options.progress),
      viewFraming(framingWithOffset(project)),
      stations(project, {options.imagePlanes, options.frusta}, viewFraming, context),
      surfaces(project, context),
      points(project, {options.ellipsoidScale, options.mostPointNodes}, context),
      rays(context),
      sceneRoot(makeNode<SoSeparator>()),
      sceneBackground(*sceneRoot, options.background),
      axis(viewFraming),
      groundPlane(*sceneRoot, project, viewFraming) {
  addSurroundings(project.GetObjectPoints().size());
  sceneRoot->addChild(stations.root());
  sceneRoot->addChild(surfaces.root());
  sceneRoot->addChild(points.root());
  sceneRoot->addChild(rays.root());
  sceneRoot->addChild(axis.root());
  sceneRoot->addChild(groundPlane.root());
  sceneRoot->addChild(points.onTop());
  if (options.meshes) showMeshes();
  setAxis(options.axis);
  setGroundPlane(options.groundPlane);
}

ProjectScene::~ProjectScene() = default;

void ProjectScene::addSurroundings(int points) {
  auto* surroundings = new SoEnvironment;
  surroundings->ambientIntensity = 0.5F;
  sceneRoot->addChild(surroundings);
  auto* light = new SoDirectionalLight;
  light->direction = SbVec3f(0.3F, -0.4F, -1.0F);
  sceneRoot->addChild(light);
  auto* complexity = new SoComplexity;
  complexity->value = 0.35F;
  complexity->textureQuality = 1.0F;
  sceneRoot->addChild(complexity);
  auto* style = new SoDrawStyle;
  style->pointSize = points < 2000 ? 5.0F : points < 20000 ? 4.0F : 3.0F;
  style->lineWidth = 1.0F;
  sceneRoot->addChild(style);
  auto* font = new SoFont;
  font->size = 14.0F;
  sceneRoot->addChild(font);
}

void ProjectScene::showMeshes() {
  const auto place = [this](SceneLayer& layer) {
    sceneRoot->insertChild(layer.root(), sceneRoot->findChild(points.root()));
  };
  meshes.emplace(project, options.color, context);
  place(*meshes);
  // It is as large as what stands on it.
  setGroundPlane(showsGroundPlane());
  if (!options.contourSpacing) return;
  if (!viewFraming.isZUp()) {
    throw std::runtime_error(
        "contours need heights along Z, and by its cameras the project stands upright about "
        "another direction");
  }
  const double lift = 1e-3 * viewFraming.objectDiagonal();
  contours.emplace(project, *options.contourSpacing, lift, context);
  place(*contours);
}

std::string ProjectScene::showHeightScale() {
  if (!meshes->showsHeights()) {
    return "there is no height scale: nothing is coloured by height; --color height does that "
           "with a dense cloud or mesh";
  }
  if (!HeightLegend::explains(project)) {
    return "there is no height scale: the clouds are stored with different shifts, and no one "
           "scale explains their colours";
  }
  heightLegend.emplace(project);
  sceneRoot->addChild(heightLegend->root());
  return {};
}

void ProjectScene::showSurface(const tarn::CameraStation& station) {
  if (surface) sceneRoot->removeChild(surface->root());
  surface.reset();
  surface.emplace(project, station, context);
  sceneRoot->insertChild(surface->root(), sceneRoot->findChild(points.root()));
}

void ProjectScene::setView(CommandLine::View view, double aspect) {
  ViewFraming all = framingOfAll();
  setCamera(all.makeCamera(view, aspect));
  // The ground plane reaches out of the picture, but not out of its depth.
  groundPlane.includeIn(all);
  all.setDepthRange(currentCamera, stations.symbolSize() * 2.0);
}

bool ProjectScene::setView(tarn::CameraStation& station) {
  NodeRef<SoPerspectiveCamera> camera = makeNode<SoPerspectiveCamera>();
  if (!TarnOICameraStationSeparator::SetCameraToMatchPhoto(camera.get(), &station, nullptr)) {
    return false;
  }
  setCamera(camera.get());
  // The camera's own near and far are the lens's, in the camera's millimetres; the drawing
  // needs those of the object.
  framingOfAll().setDepthRange(currentCamera, 1e-3 * viewFraming.objectDiagonal());
  if (showsImagePlanes()) {
    if (const auto plane = static_cast<float>(stations.imagePlaneDistance(station)); plane > 0.0F) {
      currentCamera->nearDistance = std::min(currentCamera->nearDistance.getValue(), 0.9F * plane);
    }
    points.setDrawnOver(true);
  } else {
    stations.leaveOut(station);
  }
  currentCamera->focalDistance = static_cast<float>(
      (viewFraming.objectExtents().GetCentre() - station.GetPosition()).length());
  return true;
}

void ProjectScene::setCamera(SoCamera* camera) {
  if (currentCamera) {
    sceneRoot->replaceChild(currentCamera, camera);
  } else {
    sceneRoot->insertChild(camera, sceneRoot->findChild(stations.root()));
  }
  currentCamera = camera;
  points.setDrawnOver(false);
}

// What is shown besides the objects themselves has to fit into the picture, too.
ViewFraming ProjectScene::framingOfAll() const {
  ViewFraming all = viewFraming;
  stations.includeIn(all);
  axis.includeIn(all);
  return all;
}

void ProjectScene::showLabels(const SbViewportRegion& viewport) {
  hideLabels();
  labelsShown = true;
  LabelPlaces places(*currentCamera, viewport);
  stations.showLabels(places);
  points.showLabels(places);
}

void ProjectScene::hideLabels() {
  labelsShown = false;
  stations.hideLabels();
  points.hideLabels();
}

void ProjectScene::highlight(tarn::ObjectPoint& point) {
  clearHighlight();
  points.mark(point);
}

void ProjectScene::highlight(tarn::CameraStation& station) {
  clearHighlight();
  stations.mark(station);
}

void ProjectScene::clearHighlight() {
  stations.clearMark();
  points.clearMark();
}

void ProjectScene::setColor(std::optional<CommandLine::Color> color) {
  meshes->setColor(color);
  if (!heightLegend) return;
  const int place = sceneRoot->findChild(heightLegend->root());
  if (meshes->showsHeights() && place == -1) sceneRoot->addChild(heightLegend->root());
  if (!meshes->showsHeights() && place != -1) sceneRoot->removeChild(place);
}

std::vector<std::string> ProjectScene::notes() const {
  std::vector<std::string> all = meshes->notes();
  all.insert(all.end(), surfaces.notes().begin(), surfaces.notes().end());
  if (contours) all.insert(all.end(), contours->notes().begin(), contours->notes().end());
  if (showsGroundPlane() && !viewFraming.isZUp()) {
    all.push_back(
        "the ground plane lies along X and Y, and by its cameras the project stands upright about "
        "another direction than Z");
  }
  if (surface && !surface->note().empty()) all.push_back(surface->note());
  return all;
}

tarn::VObject* ProjectScene::objectAt(const SoPickedPoint& picked) const {
  const SoPath* path = picked.getPath();
  for (int i = path->getLength() - 1; i >= 0; --i) {
    if (!path->getNode(i)->isOfType(TarnOISeparator::getClassTypeId())) continue;
    tarn::VObject* object = static_cast<TarnOISeparator*>(path->getNode(i))->GetTarnObject();
    if (!object) continue;
    if (object->isA(tarn::CameraStationCls) || object->isA(tarn::ObjectPointCls)) return object;
    if (object->isA(tarn::Ray3DCls)) return static_cast<tarn::Ray3D*>(object)->GetObjectPoint();
    if (object->isA(tarn::PhotographCls)) {
      return static_cast<tarn::Photograph*>(object)->GetCameraStation();
    }
    const SoDetail* detail = picked.getDetail();
    if (!detail || !detail->isOfType(SoPointDetail::getClassTypeId())) return nullptr;
    return points.pointOfCloud(*object,
                               static_cast<const SoPointDetail*>(detail)->getCoordinateIndex());
  }
  return nullptr;
}

void ProjectScene::toggleRaysOfHighlighted() {
  tarn::ObjectPoint* point = points.markedPoint();
  tarn::CameraStation* station = stations.markedStation();
  const bool shown = (point && rays.shows(*point)) || (station && rays.shows(*station));
  rays.clear();
  if (shown) return;
  if (point) rays.add(*point);
  if (station) rays.add(*station);
}
