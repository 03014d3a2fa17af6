#include "viewer/layers/StationLayer.h"

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoScale.h>

#include "host/general/Preferences.h"
#include "host/model/Project.h"
#include "io/ReadProgress.h"
#include "nodes/cameras/TarnOICameraStationSeparator.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/ViewerFrame.h"
#include "viewer/LabelPlaces.h"
#include "viewer/ViewFraming.h"
#include "viewer/layers/LabelColor.h"
#include "viewer/layers/SceneContext.h"

#include <algorithm>
#include <utility>

namespace {

// The node makes a station's image plane 400 times the camera's format wide.
constexpr double imagePlaneFactor = 400.0;

tarn::CameraStation& stationOf(const TarnOICameraStationSeparator& node) {
  return *static_cast<tarn::CameraStation*>(node.GetTarnObject());
}

// The corners of what the station sees at that depth.
void includeCone(ViewFraming& all, const tarn::CameraStation& station, double depth) {
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

}  // namespace

StationLayer::StationLayer(const tarn::Project& project, const Options& options,
                           const ViewFraming& framing, SceneContext& context)
    : SceneLayer("Camera stations", context),
      project(project),
      framing(framing),
      options(options),
      extents(framing.objectExtents()),
      scale(makeNode<SoScale>()) {
  // The emitted white is for the image planes, so that a photograph shows as bright as it
  // is however the plane is turned; symbols have materials of their own.
  auto* material = new SoMaterial;
  material->diffuseColor = SbColor(0.96F, 0.72F, 0.25F);
  material->emissiveColor = SbColor(1.0F, 1.0F, 1.0F);
  separator->addChild(material);
  setScale();
  const tarn::VOrdCollect& stations = project.GetCameraStations();
  tarn::ReadProgress progress(context.progress, "camera stations");
  for (int i = 0; i < stations.size(); ++i) {
    auto* station = static_cast<tarn::CameraStation*>(stations.at(i));
    tarn::Point3DDouble position;
    if (!station->IsOriented() && !station->GetGPSPosition(position)) continue;
    auto* node = new TarnOICameraStationSeparator;
    separator->addChild(node);
    build(*node, *station);
    nodes.push_back(node);
    progress.at(static_cast<double>(i) / stations.size());
  }
  photographsRedirected = options.imagePlanes;
}

StationLayer::~StationLayer() = default;

void StationLayer::build(TarnOICameraStationSeparator& node, tarn::CameraStation& station) {
  if (options.imagePlanes) {
    std::string problem;
    if (!photographsRedirected && !cache.redirect(station, &problem) && !problem.empty()) {
      photographProblems.push_back(problem);
    }
    tarn::gPref->Set("CamStnImageResampleFactor",
                     std::to_string(PhotographCache::resampleFactor(station)),
                     "ProjectViewer(3D_Viewer)");
  }
  node.ReplaceCameraStations(&station, &context.objects, scale.get(), options.imagePlanes, 0,
                             &extents);
  if (options.imagePlanes && !photographsRedirected) {
    const std::string problem = PhotographCache::copyProblem(station);
    if (!problem.empty()) photographProblems.push_back(problem);
  }
  showFrustum(node);
}

// A selected station shows what it saw, whether the others do or not.
void StationLayer::showFrustum(TarnOICameraStationSeparator& node) {
  node.ShowFrustum(1, !options.frusta, 1.0, &extents);
}

void StationLayer::setScale() {
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
  scale->scaleFactor = SbVec3f(factor, factor, factor);
}

void StationLayer::setImagePlanes(bool show) {
  if (show == options.imagePlanes) return;
  // The mark goes with the nodes' children, and comes again.
  const tarn::CameraStation* station = markedStation();
  clearMark();
  options.imagePlanes = show;
  setScale();
  tarn::ReadProgress progress(context.progress, "camera stations");
  std::size_t done = 0;
  for (TarnOICameraStationSeparator* node : nodes) {
    build(*node, stationOf(*node));
    if (labelled.contains(node)) showLabel(*node);
    progress.at(static_cast<double>(++done) / static_cast<double>(nodes.size()));
  }
  photographsRedirected = photographsRedirected || show;
  if (station) mark(*station);
}

void StationLayer::setFrusta(bool show) {
  options.frusta = show;
  for (TarnOICameraStationSeparator* node : nodes) showFrustum(*node);
}

void StationLayer::includeIn(ViewFraming& all) const {
  for (const TarnOICameraStationSeparator* node : nodes) {
    const tarn::CameraStation& station = stationOf(*node);
    if (!station.IsOriented() || !station.GetCamera(1)) continue;
    if (options.imagePlanes) includeCone(all, station, imagePlaneDistance(station));
    if (options.frusta || node == marked) {
      includeCone(all, station, (extents.GetCentre() - station.GetPosition()).length());
    }
  }
}

double StationLayer::symbolSize() const {
  const double ofObject = (options.imagePlanes ? 0.22 : 0.075) * framing.objectDiagonal();
  const double spacing = framing.stationSpacing();
  const double ofSpacing = (options.imagePlanes ? 0.9 : 0.6) * spacing;
  // Stations that stand very close together would get symbols too small to see.
  return ofSpacing > 0.0 ? std::clamp(ofSpacing, 0.2 * ofObject, ofObject) : ofObject;
}

double StationLayer::imagePlaneDistance(const tarn::CameraStation& station) const {
  const tarn::Camera* camera = station.GetCamera(1);
  if (!camera) return 0.0;
  return imagePlaneFactor * static_cast<double>(scale->scaleFactor.getValue()[2]) *
         camera->GetFocalLength();
}

void StationLayer::leaveOut(const tarn::CameraStation& station) {
  TarnOICameraStationSeparator* node = nodeOf(station);
  if (!node) return;
  if (node == marked) clearMark();
  separator->removeChild(node);
  std::erase(nodes, node);
  labelled.erase(node);
}

void StationLayer::showLabels(LabelPlaces& places) {
  std::vector<TarnOICameraStationSeparator*> markedFirst = nodes;
  std::ranges::stable_partition(markedFirst, [this](const auto* node) { return node == marked; });
  for (TarnOICameraStationSeparator* node : markedFirst) {
    const tarn::CameraStation& station = stationOf(*node);
    const tarn::Photograph* photograph = station.GetPhotograph();
    const std::string text = "CS" + std::to_string(photograph ? photograph->GetNumber() : 0);
    if (!places.take(ViewerFrame::fromModel(station.GetPosition()), text)) continue;
    labelled.insert(node);
    showLabel(*node);
  }
}

void StationLayer::hideLabels() {
  labelled.clear();
  for (TarnOICameraStationSeparator* node : nodes) {
    LabelColor::remove(*node);
    node->UpdateTextLable(0);
  }
}

void StationLayer::showLabel(TarnOICameraStationSeparator& node) {
  node.UpdateTextLable(1);
  LabelColor::add(node);
}

void StationLayer::mark(const tarn::CameraStation& station) {
  clearMark();
  marked = nodeOf(station);
  if (!marked) return;
  marked->Highlight(context.highlightMaterial.get(), 1);
  marked->IsSelected(1);
}

void StationLayer::clearMark() {
  TarnOICameraStationSeparator* node = std::exchange(marked, nullptr);
  if (!node) return;
  node->Highlight(context.highlightMaterial.get(), 0);
  node->IsSelected(0);
}

tarn::CameraStation* StationLayer::markedStation() const {
  return marked ? &stationOf(*marked) : nullptr;
}

TarnOICameraStationSeparator* StationLayer::nodeOf(const tarn::CameraStation& station) const {
  return static_cast<TarnOICameraStationSeparator*>(
      context.objects.atKey(const_cast<tarn::CameraStation*>(&station)));
}
