#include "nodes/surfaces/TarnOIShapeVertexToMarkSeparator.h"

#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoTransform.h>

#include "host/general/Preferences.h"
#include "host/model/Point3DRandom.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/surfaces/FrontMaterial.h"

TARNOI_NODE_SOURCE(TarnOIShapeVertexToMarkSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIShapeVertexToMarkSeparator);

TarnOIShapeVertexToMarkSeparator::TarnOIShapeVertexToMarkSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIShapeVertexToMarkSeparator::TarnOIShapeVertexToMarkSeparator(
    const TarnOIShapeVertexToMarkSeparator& other)
    : TarnOIShapeVertexToMarkSeparator() {
  *this = other;
}

TarnOIShapeVertexToMarkSeparator& TarnOIShapeVertexToMarkSeparator::operator=(
    const TarnOIShapeVertexToMarkSeparator& other) = default;

TarnOIShapeVertexToMarkSeparator::~TarnOIShapeVertexToMarkSeparator() = default;

void TarnOIShapeVertexToMarkSeparator::SetVertexPosition(const tarn::Point3DRandom* position) {
  if (!position) return;
  if (!transform) {
    transform = makeNode<SoTransform>();
    sphere = makeNode<SoSphere>();
    sphere->radius.setValue(
        static_cast<float>(tarn::gPref->GetPreference("VertexRadius", 0.2, "ShapeViewer")));
    addChild(transform.get());
    addChild(sphere.get());
  }
  transform->translation.setValue(ViewerFrame::stored(position->position()));
}

void TarnOIShapeVertexToMarkSeparator::SetRadius(float radius) {
  if (sphere) sphere->radius.setValue(radius);
}

void TarnOIShapeVertexToMarkSeparator::SetMaterial(SoMaterial* material) {
  FrontMaterial::set(*this, material);
}

void TarnOIShapeVertexToMarkSeparator::copyContents(const SoFieldContainer* from,
                                                    SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOIShapeVertexToMarkSeparator*>(from);
  transform = ChildNodes::counterpart(*this, *other, other->transform);
  sphere = ChildNodes::counterpart(*this, *other, other->sphere);
}
