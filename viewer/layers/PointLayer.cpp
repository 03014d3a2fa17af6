#include "viewer/layers/PointLayer.h"

#include <Inventor/nodes/SoDepthBuffer.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/model/Project.h"
#include "io/ReadProgress.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/meshes/TarnOIPointMeshSeparator.h"
#include "nodes/points/TarnOIObjectPointSeparator.h"
#include "viewer/LabelPlaces.h"
#include "viewer/layers/LabelColor.h"
#include "viewer/layers/ObjectPointCloud.h"
#include "viewer/layers/SceneContext.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {

// So many points are told apart best by their symbols; more of them are a cloud.
constexpr int mostMarkers = 300;

tarn::ObjectPoint& pointOf(const TarnOIObjectPointSeparator& node) {
  return *static_cast<tarn::ObjectPoint*>(node.GetTarnObject());
}

}  // namespace

PointLayer::PointLayer(const tarn::Project& project, const Options& options, SceneContext& context)
    : SceneLayer("Object points", context), topmost(makeNode<SoSeparator>()) {
  depth = new SoDepthBuffer;
  separator->addChild(depth);
  auto* color = new SoMaterial;
  color->diffuseColor = SbColor(0.85F, 0.87F, 0.90F);
  separator->addChild(color);
  auto* noDepth = new SoDepthBuffer;
  noDepth->test = FALSE;
  topmost->addChild(noDepth);

  const tarn::VOrdCollect& all = project.GetObjectPoints();
  for (int i = 0; i < all.size(); ++i) {
    auto* point = static_cast<tarn::ObjectPoint*>(all.at(i));
    if (point->HasUsablePosition(0)) points.push_back(point);
  }
  if (static_cast<int>(points.size()) > options.mostNodes && !options.ellipsoidScale) {
    addCloud();
    return;
  }
  useMarkers = static_cast<int>(points.size()) <= mostMarkers;
  context.objects.reserve(all.size() + project.GetCameraStations().size());
  tarn::ReadProgress progress(context.progress, "object points");
  separator->enableNotify(FALSE);
  for (tarn::ObjectPoint* point : points) {
    TarnOIObjectPointSeparator* node = addNode(*point);
    if (options.ellipsoidScale) {
      node->ShowErrorEllipsoid(1);
      node->SetErrorEllipsoidScale(static_cast<float>(*options.ellipsoidScale));
    }
    progress.at(static_cast<double>(nodes.size()) / static_cast<double>(points.size()));
  }
  separator->enableNotify(TRUE);
}

// The cloud's node knows the mesh to its end, and the mesh goes with this class's members.
PointLayer::~PointLayer() { separator->removeAllChildren(); }

TarnOIObjectPointSeparator* PointLayer::addNode(tarn::ObjectPoint& point) {
  auto* node = new TarnOIObjectPointSeparator;
  separator->addChild(node);
  node->SetObjectPoint(&point, &context.objects, useMarkers, 1);
  nodes.push_back(node);
  return node;
}

void PointLayer::addCloud() {
  cloud = ObjectPointCloud::of(points);
  auto* node = new TarnOIPointMeshSeparator;
  separator->addChild(node);
  node->SetPointCloudPointMesh(cloud.get(), &context.objects);
  const int ownColours = 1;
  node->ColorPointsWithTexture(1, ownColours, nullptr);
}

// Of a point in the cloud the node is made when it is asked for; null for a point that is not
// shown.
TarnOIObjectPointSeparator* PointLayer::nodeOf(const tarn::ObjectPoint& point) {
  auto* key = const_cast<tarn::ObjectPoint*>(&point);
  if (void* node = context.objects.atKey(key)) {
    return static_cast<TarnOIObjectPointSeparator*>(node);
  }
  return cloud && point.HasUsablePosition(0) ? addNode(*key) : nullptr;
}

tarn::ObjectPoint* PointLayer::pointOfCloud(const tarn::VObject& mesh, int index) const {
  const bool isThere = index >= 0 && index < static_cast<int>(points.size());
  return &mesh == cloud.get() && isThere ? points[static_cast<std::size_t>(index)] : nullptr;
}

void PointLayer::setDrawnOver(bool over) { depth->test = !over; }

void PointLayer::showLabels(LabelPlaces& places) {
  labelsShown = true;
  std::vector<tarn::ObjectPoint*> byRays = points;
  std::ranges::stable_sort(byRays, std::greater<>(), [](const tarn::ObjectPoint* point) {
    return point->GetMarkedPoints().size();
  });
  for (tarn::ObjectPoint* point : byRays) {
    tarn::Point3DRandom position;
    if (!point->GetApproximation(position)) continue;
    const tarn::VString text = TarnOIObjectPointSeparator::GetTextLable(1, 0, point);
    if (places.take(ViewerFrame::fromModel(position.position()), text.str())) {
      showLabel(*nodeOf(*point), true);
    }
  }
}

void PointLayer::hideLabels() {
  labelsShown = false;
  for (TarnOIObjectPointSeparator* node : nodes) {
    if (node != marked) showLabel(*node, false);
  }
}

void PointLayer::showLabel(TarnOIObjectPointSeparator& node, bool show) {
  if (!show) LabelColor::remove(node);
  node.UpdateTextLable(show, 0);
  if (show) LabelColor::add(node);
}

void PointLayer::mark(const tarn::ObjectPoint& point) {
  clearMark();
  marked = nodeOf(point);
  if (!marked) return;
  marked->Highlight(context.highlightMaterial.get(), 1);
  marked->UpdateMarkerSet(1);
  showLabel(*marked, true);
  topmost->addChild(marked);
}

void PointLayer::clearMark() {
  TarnOIObjectPointSeparator* node = std::exchange(marked, nullptr);
  if (!node) return;
  topmost->removeChild(node);
  node->Highlight(context.highlightMaterial.get(), 0);
  node->UpdateMarkerSet(useMarkers);
  if (!labelsShown) showLabel(*node, false);
}

tarn::ObjectPoint* PointLayer::markedPoint() const { return marked ? &pointOf(*marked) : nullptr; }
