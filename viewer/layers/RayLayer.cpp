#include "viewer/layers/RayLayer.h"

#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoMaterial.h>

#include "host/model/CameraStation.h"
#include "host/model/ObjectPoint.h"
#include "host/model/Photograph.h"
#include "host/model/Ray3D.h"
#include "nodes/cameras/TarnOICameraRaysSeparator.h"
#include "nodes/cameras/TarnOIPointRaysSeparator.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "viewer/layers/SceneContext.h"

RayLayer::RayLayer(SceneContext& context) : SceneLayer("Rays", context) { clear(); }

RayLayer::~RayLayer() = default;

void RayLayer::clear() {
  separator->removeAllChildren();
  auto* style = new SoDrawStyle;
  style->lineWidth = 1.0F;
  separator->addChild(style);
  auto* color = new SoMaterial;
  color->diffuseColor = SbColor(0.35F, 1.0F, 0.75F);
  separator->addChild(color);
}

// A node that is built again would double its rays.
void RayLayer::add(tarn::ObjectPoint& point) {
  if (shows(point)) return;
  auto* node = new TarnOIPointRaysSeparator;
  separator->addChild(node);
  node->SetRays(&point, &context.objects);
}

void RayLayer::add(tarn::CameraStation& station) {
  if (!station.GetPhotograph() || shows(station)) return;
  auto* node = new TarnOICameraRaysSeparator;
  separator->addChild(node);
  node->SetRays(station.GetPhotograph(), &context.objects);
}

bool RayLayer::shows(tarn::ObjectPoint& point) const {
  return context.objects.atKey(point.GetRay3D()) != nullptr;
}

bool RayLayer::shows(const tarn::CameraStation& station) const {
  return context.objects.atKey(station.GetPhotograph()) != nullptr;
}
