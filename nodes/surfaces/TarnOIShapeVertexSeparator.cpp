#include "nodes/surfaces/TarnOIShapeVertexSeparator.h"

#include "host/model/ShapeVertex.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/surfaces/FrontMaterial.h"

TARNOI_NODE_SOURCE(TarnOIShapeVertexSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIShapeVertexSeparator);

TarnOIShapeVertexSeparator::TarnOIShapeVertexSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIShapeVertexSeparator::TarnOIShapeVertexSeparator(const TarnOIShapeVertexSeparator& other)
    : TarnOIShapeVertexSeparator() {
  *this = other;
}

TarnOIShapeVertexSeparator& TarnOIShapeVertexSeparator::operator=(
    const TarnOIShapeVertexSeparator& other) = default;

TarnOIShapeVertexSeparator::~TarnOIShapeVertexSeparator() = default;

void TarnOIShapeVertexSeparator::SetShapeVertex(tarn::ShapeVertex* vertex,
                                                tarn::VDictionary* dict) {
  SetTarnObject(vertex, dict);
  if (!vertex) return;
  const OneNotification once(*this);
  shape.findOrBuild(*this, "TarnOIShapeVertexSeparator", 109);
  tarn::Point3DRandom position;
  vertex->GetApproximation(position);
  shape.place(position.position());
}

void TarnOIShapeVertexSeparator::SetMaterial(SoMaterial* material) {
  FrontMaterial::set(*this, material);
}

void TarnOIShapeVertexSeparator::copyContents(const SoFieldContainer* from,
                                              SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOIShapeVertexSeparator*>(from);
  shape = other->shape.counterpart(*this, *other);
}
