#include "viewer/layers/PointLayer.h"

#include <Inventor/nodes/SoDepthBuffer.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/model/Project.h"
#include "io/ReadProgress.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/points/TarnOIObjectPointSeparator.h"
#include "viewer/LabelPlaces.h"
#include "viewer/layers/LabelColor.h"
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

PointLayer::PointLayer(const tarn::Project& project, std::optional<double> ellipsoidScale,
                       SceneContext& context)
    : SceneLayer("Object points", context), topmost(makeNode<SoSeparator>()) {
  depth = new SoDepthBuffer;
  separator->addChild(depth);
  auto* color = new SoMaterial;
  color->diffuseColor = SbColor(0.85F, 0.87F, 0.90F);
  separator->addChild(color);
  auto* noDepth = new SoDepthBuffer;
  noDepth->test = FALSE;
  topmost->addChild(noDepth);

  const tarn::VOrdCollect& points = project.GetObjectPoints();
  useMarkers = points.size() <= mostMarkers;
  context.objects.reserve(points.size() + project.GetCameraStations().size());
  tarn::ReadProgress progress(context.progress, "object points");
  separator->enableNotify(FALSE);
  for (int i = 0; i < points.size(); ++i) {
    auto* point = static_cast<tarn::ObjectPoint*>(points.at(i));
    if (!point->HasUsablePosition(0)) continue;
    auto* node = new TarnOIObjectPointSeparator;
    separator->addChild(node);
    node->SetObjectPoint(point, &context.objects, useMarkers, 1);
    if (ellipsoidScale) {
      node->ShowErrorEllipsoid(1);
      node->SetErrorEllipsoidScale(static_cast<float>(*ellipsoidScale));
    }
    nodes.push_back(node);
    progress.at(static_cast<double>(i) / points.size());
  }
  separator->enableNotify(TRUE);
}

PointLayer::~PointLayer() = default;

void PointLayer::setDrawnOver(bool over) { depth->test = !over; }

void PointLayer::showLabels(LabelPlaces& places) {
  labelsShown = true;
  std::vector<TarnOIObjectPointSeparator*> byRays = nodes;
  std::ranges::stable_sort(byRays, std::greater<>(), [](const auto* node) {
    return pointOf(*node).GetMarkedPoints().size();
  });
  for (TarnOIObjectPointSeparator* node : byRays) {
    tarn::Point3DRandom position;
    if (!pointOf(*node).GetApproximation(position)) continue;
    const tarn::VString text = TarnOIObjectPointSeparator::GetTextLable(1, 0, &pointOf(*node));
    if (places.take(ViewerFrame::fromModel(position.position()), text.str())) {
      showLabel(*node, true);
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
  marked = static_cast<TarnOIObjectPointSeparator*>(
      context.objects.atKey(const_cast<tarn::ObjectPoint*>(&point)));
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
