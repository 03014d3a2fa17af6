#include "viewer/ProjectScene.h"

#include <Inventor/SbViewVolume.h>
#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoDepthBuffer.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoEnvironment.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoScale.h>

#include "host/general/Preferences.h"
#include "host/general/ThreeDViewOffset.h"
#include "host/model/Project.h"
#include "nodes/cameras/TarnOICameraStationSeparator.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOISwitch.h"
#include "nodes/framework/TarnOIText2.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/points/TarnOIObjectPointSeparator.h"
#include "viewer/LabelPlaces.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// The node makes a station's image plane 400 times the camera's format wide.
constexpr double imagePlaneFactor = 400.0;

// So many points are told apart best by their symbols; more of them are a cloud.
constexpr int mostMarkers = 300;

const SbColor stationColor(0.96F, 0.72F, 0.25F);
const SbColor labelColor(0.97F, 0.97F, 0.93F);
const SbColor pointColor(0.85F, 0.87F, 0.90F);
const SbColor highlightColor(1.0F, 0.16F, 0.72F);

// Ahead of a label: the material ahead of it is the point's or the lens's, which may be as
// dark as the background.
void colorLabel(SoGroup& node) {
  for (int i = node.getNumChildren() - 1; i > 0; --i) {
    if (!node.getChild(i)->isOfType(TarnOIText2::getClassTypeId())) continue;
    const int transform = i - 1;
    if (transform > 0 && node.getChild(transform - 1)->isOfType(SoBaseColor::getClassTypeId())) {
      return;
    }
    auto* color = new SoBaseColor;
    color->rgb = labelColor;
    node.insertChild(color, transform);
    return;
  }
}

void uncolorLabel(SoGroup& node) {
  for (int i = node.getNumChildren() - 1; i >= 0; --i) {
    if (node.getChild(i)->getTypeId() == SoBaseColor::getClassTypeId()) node.removeChild(i);
  }
}

}  // namespace

ProjectScene::ProjectScene(tarn::Project& project, const Options& options)
    : project(project),
      options(options),
      viewFraming(project),
      extents(viewFraming.objectExtents()),
      sceneRoot(makeNode<SoSeparator>()),
      stationScale(makeNode<SoScale>()),
      highlightMaterial(makeNode<TarnOIMaterialWithPriority>()) {
  tarn::gThreeDViewOffset = extents.GetCentre();
  highlightMaterial->SetPriority(100);
  highlightMaterial->diffuseColor = highlightColor;
  highlightMaterial->ambientColor = highlightColor;
  highlightMaterial->emissiveColor = SbColor(0.45F, 0.05F, 0.32F);

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
  const int points = project.GetObjectPoints().size();
  style->pointSize = points < 2000 ? 5.0F : points < 20000 ? 4.0F : 3.0F;
  style->lineWidth = 1.0F;
  sceneRoot->addChild(style);
  auto* font = new SoFont;
  font->size = 14.0F;
  sceneRoot->addChild(font);

  stationLayer = addLayer(stationLayerName);
  addStations();
  pointLayer = addLayer(pointLayerName);
  addPoints();
  onTop = new SoSeparator;
  sceneRoot->addChild(onTop);
  auto* noDepth = new SoDepthBuffer;
  noDepth->test = FALSE;
  onTop->addChild(noDepth);
}

ProjectScene::~ProjectScene() = default;

void ProjectScene::setView(CommandLine::View view, double aspect) {
  const ViewFraming all = framingOfAll();
  setCamera(all.makeCamera(view, aspect));
  all.setDepthRange(currentCamera, symbolSize() * 2.0);
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
  if (TarnOICameraStationSeparator* node = nodeOf(station)) {
    if (options.imagePlanes) {
      const float planeDistance =
          static_cast<float>(station.GetCamera(1)->GetFocalLength() * imagePlaneFactor) *
          stationScale->scaleFactor.getValue()[2];
      currentCamera->nearDistance =
          std::min(currentCamera->nearDistance.getValue(), 0.9F * planeDistance);
      pointDepth->test = FALSE;
    } else {
      if (node == highlighted) clearHighlight();
      stationLayer->removeChild(node);
      std::erase(stationNodes, node);
      labelledStations.erase(node);
    }
  }
  currentCamera->focalDistance =
      static_cast<float>((extents.GetCentre() - station.GetPosition()).length());
  return true;
}

void ProjectScene::setCamera(SoCamera* camera) {
  if (currentCamera) {
    sceneRoot->replaceChild(currentCamera, camera);
  } else {
    int beforeLayers = 0;
    while (!sceneRoot->getChild(beforeLayers)->isOfType(SoSwitch::getClassTypeId())) {
      ++beforeLayers;
    }
    sceneRoot->insertChild(camera, beforeLayers);
  }
  currentCamera = camera;
  pointDepth->test = TRUE;
}

TarnOILayerSeparator* ProjectScene::addLayer(tarn::ObjectName& name) {
  auto* layerSwitch = new TarnOISwitch;
  sceneRoot->addChild(layerSwitch);
  auto* layer = new TarnOILayerSeparator;
  layerSwitch->addChild(layer);
  layer->SetLayer(&name, &nodesOfLayers);
  layer->SetLayerSwitch(layerSwitch);
  layer->SetVisibility(1);
  return layer;
}

void ProjectScene::addPoints() {
  pointDepth = new SoDepthBuffer;
  pointLayer->addChild(pointDepth);
  auto* color = new SoMaterial;
  color->diffuseColor = pointColor;
  pointLayer->addChild(color);
  const tarn::VOrdCollect& points = project.GetObjectPoints();
  useMarkers = points.size() <= mostMarkers;
  nodesOfObjects.reserve(points.size() + project.GetCameraStations().size());
  pointLayer->enableNotify(FALSE);
  for (int i = 0; i < points.size(); ++i) {
    auto* point = static_cast<tarn::ObjectPoint*>(points.at(i));
    if (!point->HasUsablePosition(0)) continue;
    auto* node = new TarnOIObjectPointSeparator;
    pointLayer->addChild(node);
    node->SetObjectPoint(point, &nodesOfObjects, useMarkers, 1);
    if (options.ellipsoidScale) {
      node->ShowErrorEllipsoid(1);
      node->SetErrorEllipsoidScale(static_cast<float>(*options.ellipsoidScale));
    }
    pointNodes.push_back(node);
    if (i % 512 == 0) report("object points", i, points.size());
  }
  pointLayer->enableNotify(TRUE);
}

void ProjectScene::addStations() {
  // The emitted white is for the image planes, so that a photograph shows as bright as it
  // is however the plane is turned; symbols have materials of their own.
  auto* material = new SoMaterial;
  material->diffuseColor = stationColor;
  material->emissiveColor = SbColor(1.0F, 1.0F, 1.0F);
  stationLayer->addChild(material);
  setStationScale();
  const tarn::VOrdCollect& stations = project.GetCameraStations();
  for (int i = 0; i < stations.size(); ++i) {
    report("camera stations", i, stations.size());
    auto* station = static_cast<tarn::CameraStation*>(stations.at(i));
    tarn::Point3DDouble position;
    if (!station->IsOriented() && !station->GetGPSPosition(position)) continue;
    auto* node = new TarnOICameraStationSeparator;
    stationLayer->addChild(node);
    build(*node, *station);
    stationNodes.push_back(node);
  }
  photographsRedirected = options.imagePlanes;
}

void ProjectScene::build(TarnOICameraStationSeparator& node, tarn::CameraStation& station) {
  if (options.imagePlanes) {
    std::string problem;
    if (!photographsRedirected && !cache.redirect(station, &problem) && !problem.empty()) {
      photographProblems.push_back(problem);
    }
    tarn::gPref->Set("CamStnImageResampleFactor",
                     std::to_string(PhotographCache::resampleFactor(station)),
                     "ProjectViewer(3D_Viewer)");
  }
  node.ReplaceCameraStations(&station, &nodesOfObjects, stationScale.get(), options.imagePlanes, 0,
                             &extents);
  if (options.imagePlanes && !photographsRedirected) {
    const std::string problem = PhotographCache::copyProblem(station);
    if (!problem.empty()) photographProblems.push_back(problem);
  }
  showFrustum(node);
}

// A selected station shows what it saw, whether the others do or not.
void ProjectScene::showFrustum(TarnOICameraStationSeparator& node) {
  node.ShowFrustum(1, !options.frusta, 1.0, &extents);
}

// What the stations show besides themselves has to fit into the picture, too.
ViewFraming ProjectScene::framingOfAll() const {
  ViewFraming all = viewFraming;
  const double planeScale =
      imagePlaneFactor * static_cast<double>(stationScale->scaleFactor.getValue()[2]);
  for (const TarnOICameraStationSeparator* node : stationNodes) {
    const auto* station = static_cast<tarn::CameraStation*>(node->GetTarnObject());
    if (!station->IsOriented() || !station->GetCamera(1)) continue;
    if (options.imagePlanes) {
      includeCone(all, *station, planeScale * station->GetCamera(1)->GetFocalLength());
    }
    if (options.frusta || node == highlighted) {
      includeCone(all, *station, (extents.GetCentre() - station->GetPosition()).length());
    }
  }
  return all;
}

// The corners of what the station sees at that depth.
void ProjectScene::includeCone(ViewFraming& all, const tarn::CameraStation& station,
                               double depth) const {
  const tarn::MatrixDouble rotation = station.GetRotationMatrix();
  const auto axis = [&rotation](int row) {
    return tarn::Point3DDouble(rotation(row, 1), rotation(row, 2), rotation(row, 3));
  };
  const tarn::Camera& camera = *station.GetCamera(1);
  double width = 0.0;
  double height = 0.0;
  camera.GetFormatSize(width, height);
  const double across = 0.5 * depth * width / camera.GetFocalLength();
  const double upwards = 0.5 * depth * height / camera.GetFocalLength();
  for (const double x : {-across, across}) {
    for (const double y : {-upwards, upwards}) {
      all.include(station.GetPosition() - depth * axis(3) + x * axis(1) + y * axis(2));
    }
  }
}

// The size of a station's symbol, or of its image plane.
double ProjectScene::symbolSize() const {
  const double ofObject = (options.imagePlanes ? 0.22 : 0.075) * viewFraming.objectDiagonal();
  const double spacing = viewFraming.stationSpacing();
  const double ofSpacing = (options.imagePlanes ? 0.9 : 0.6) * spacing;
  // Stations that stand very close together would get symbols too small to see.
  return ofSpacing > 0.0 ? std::clamp(ofSpacing, 0.2 * ofObject, ofObject) : ofObject;
}

void ProjectScene::setStationScale() {
  double units = 1.0;  // the symbol is about one unit big
  if (options.imagePlanes) {
    units = 0.0;
    const tarn::VOrdCollect& stations = project.GetCameraStations();
    for (int i = 0; i < stations.size(); ++i) {
      const tarn::Camera* camera = static_cast<tarn::CameraStation*>(stations.at(i))->GetCamera(1);
      if (!camera) continue;
      double width = 0.0;
      double height = 0.0;
      camera->GetFormatSize(width, height);
      units = std::max(units, imagePlaneFactor * std::max(width, height));
    }
    if (!(units > 0.0)) units = 1.0;
  }
  const float factor = static_cast<float>(symbolSize() / units);
  stationScale->scaleFactor = SbVec3f(factor, factor, factor);
}

void ProjectScene::setImagePlanes(bool show) {
  if (show == options.imagePlanes) return;
  clearHighlight();
  options.imagePlanes = show;
  setStationScale();
  int done = 0;
  for (TarnOICameraStationSeparator* node : stationNodes) {
    report("camera stations", done++, static_cast<int>(stationNodes.size()));
    build(*node, *static_cast<tarn::CameraStation*>(node->GetTarnObject()));
    if (labelledStations.contains(node)) showStationLabel(*node);
  }
  photographsRedirected = photographsRedirected || show;
}

void ProjectScene::setFrusta(bool show) {
  options.frusta = show;
  for (TarnOICameraStationSeparator* node : stationNodes) showFrustum(*node);
}

void ProjectScene::showLabels(const SbViewportRegion& viewport) {
  hideLabels();
  labelsShown = true;
  LabelPlaces places(*currentCamera, viewport);
  std::vector<TarnOICameraStationSeparator*> markedFirst = stationNodes;
  std::ranges::stable_partition(markedFirst,
                                [this](const auto* node) { return node == highlighted; });
  for (TarnOICameraStationSeparator* node : markedFirst) {
    const auto* station = static_cast<tarn::CameraStation*>(node->GetTarnObject());
    const tarn::Photograph* photograph = station->GetPhotograph();
    const std::string text = "CS" + std::to_string(photograph ? photograph->GetNumber() : 0);
    if (!places.take(ViewerFrame::fromModel(station->GetPosition()), text)) continue;
    labelledStations.insert(node);
    showStationLabel(*node);
  }
  std::vector<TarnOIObjectPointSeparator*> byRays = pointNodes;
  const auto pointOf = [](const TarnOIObjectPointSeparator* node) {
    return static_cast<tarn::ObjectPoint*>(node->GetTarnObject());
  };
  std::ranges::stable_sort(byRays, std::greater<>(), [&pointOf](const auto* node) {
    return pointOf(node)->GetMarkedPoints().size();
  });
  for (TarnOIObjectPointSeparator* node : byRays) {
    tarn::ObjectPoint* point = pointOf(node);
    tarn::Point3DRandom position;
    if (!point->GetApproximation(position)) continue;
    const tarn::VString text = TarnOIObjectPointSeparator::GetTextLable(1, 0, point);
    if (places.take(ViewerFrame::fromModel(position.position()), text.str())) {
      showPointLabel(*node, true);
    }
  }
}

void ProjectScene::hideLabels() {
  labelsShown = false;
  labelledStations.clear();
  for (TarnOICameraStationSeparator* node : stationNodes) {
    uncolorLabel(*node);
    node->UpdateTextLable(0);
  }
  for (TarnOIObjectPointSeparator* node : pointNodes) {
    if (node != highlighted) showPointLabel(*node, false);
  }
}

void ProjectScene::showPointLabel(TarnOIObjectPointSeparator& node, bool show) {
  if (!show) uncolorLabel(node);
  node.UpdateTextLable(show, 0);
  if (show) colorLabel(node);
}

void ProjectScene::showStationLabel(TarnOICameraStationSeparator& node) {
  node.UpdateTextLable(1);
  colorLabel(node);
}

void ProjectScene::highlight(tarn::ObjectPoint& point) {
  clearHighlight();
  TarnOIObjectPointSeparator* node = nodeOf(point);
  if (!node) return;
  highlighted = node;
  node->Highlight(highlightMaterial.get(), 1);
  node->UpdateMarkerSet(1);
  showPointLabel(*node, true);
  onTop->addChild(node);
}

void ProjectScene::highlight(tarn::CameraStation& station) {
  clearHighlight();
  TarnOICameraStationSeparator* node = nodeOf(station);
  if (!node) return;
  highlighted = node;
  node->Highlight(highlightMaterial.get(), 1);
  node->IsSelected(1);
}

void ProjectScene::clearHighlight() {
  TarnOISeparator* node = std::exchange(highlighted, nullptr);
  if (!node) return;
  node->Highlight(highlightMaterial.get(), 0);
  for (TarnOIObjectPointSeparator* pointNode : pointNodes) {
    if (pointNode != node) continue;
    onTop->removeChild(node);
    pointNode->UpdateMarkerSet(useMarkers);
    if (!labelsShown) showPointLabel(*pointNode, false);
    return;
  }
  static_cast<TarnOICameraStationSeparator*>(node)->IsSelected(0);
}

TarnOICameraStationSeparator* ProjectScene::nodeOf(const tarn::CameraStation& station) const {
  return static_cast<TarnOICameraStationSeparator*>(
      nodesOfObjects.atKey(const_cast<tarn::CameraStation*>(&station)));
}

TarnOIObjectPointSeparator* ProjectScene::nodeOf(const tarn::ObjectPoint& point) const {
  return static_cast<TarnOIObjectPointSeparator*>(
      nodesOfObjects.atKey(const_cast<tarn::ObjectPoint*>(&point)));
}

void ProjectScene::report(const char* step, int done, int all) const {
  if (options.progress) options.progress(step, all > 0 ? static_cast<double>(done) / all : 1.0);
}

SbColor ProjectScene::backgroundColor() { return SbColor(0.33F, 0.36F, 0.40F); }
