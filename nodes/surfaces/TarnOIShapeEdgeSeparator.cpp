#include "nodes/surfaces/TarnOIShapeEdgeSeparator.h"

#include "host/model/Shape.h"
#include "host/model/ShapeEdge.h"
#include "host/model/ShapeVertex.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/LineSegment.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"

TARNOI_NODE_SOURCE(TarnOIShapeEdgeSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIShapeEdgeSeparator);

namespace {

constexpr const char* sourceFile = "TarnOIShapeEdgeSeparator";

void place(const NodeRef<TarnOIShapeVertexToMarkSeparator>& marker,
           const tarn::Point3DDouble& end) {
  const tarn::Point3DRandom shown(ViewerFrame::exactFromModel(end));
  if (marker) marker->SetVertexPosition(&shown);
}

LineSegment::Ends endsOf(const tarn::ShapeEdge& edge) {
  const tarn::ShapeVertex* const first = edge.GetVertex(0);
  const tarn::ShapeVertex* const second = edge.GetVertex(1);
  TARNOI_ASSERT_AT(first, "shapeEdgeToSet->GetVertex(0)", sourceFile, 149);
  TARNOI_ASSERT_AT(second, "shapeEdgeToSet->GetVertex(1)", sourceFile, 150);
  tarn::Point3DRandom pt1;
  tarn::Point3DRandom pt2;
  if (first) {
    TARNOI_ASSERT_AT(first->GetApproximation(pt1),
                     "shapeEdgeToSet->GetVertex(0)->GetApproximation( pt1 )", sourceFile, 153);
  }
  if (second) {
    TARNOI_ASSERT_AT(second->GetApproximation(pt2),
                     "shapeEdgeToSet->GetVertex(1)->GetApproximation( pt2 )", sourceFile, 154);
  }
  return {pt1.position(), pt2.position()};
}

}  // namespace

TarnOIShapeEdgeSeparator::TarnOIShapeEdgeSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIShapeEdgeSeparator::TarnOIShapeEdgeSeparator(const TarnOIShapeEdgeSeparator& other)
    : TarnOIShapeEdgeSeparator() {
  *this = other;
}

TarnOIShapeEdgeSeparator& TarnOIShapeEdgeSeparator::operator=(
    const TarnOIShapeEdgeSeparator& other) = default;

TarnOIShapeEdgeSeparator::~TarnOIShapeEdgeSeparator() = default;

void TarnOIShapeEdgeSeparator::SetShapeEdge(tarn::ShapeEdge* edge, tarn::VDictionary* dict) {
  SetTarnObject(edge, dict);
  if (!edge) return;
  const OneNotification once(*this);
  if (getNumChildren() == 0 && !startMarker) {
    startMarker = makeNode<TarnOIShapeVertexToMarkSeparator>();
    endMarker = makeNode<TarnOIShapeVertexToMarkSeparator>();
  }
  SoCoordinate3* coordinates = LineSegment::findOrAppend(*this, sourceFile, 124);
  const LineSegment::Ends ends = endsOf(*edge);
  place(startMarker, ends[0]);
  place(endMarker, ends[1]);
  if (coordinates) LineSegment::place(*coordinates, ends);
}

void TarnOIShapeEdgeSeparator::ShowVertices(int hide, float radius) {
  for (const auto& marker : {startMarker, endMarker}) {
    if (hide) {
      ChildNodes::remove(*this, marker.get());
    } else if (marker) {
      marker->SetRadius(radius);
      if (findChild(marker.get()) == -1) addChild(marker.get());
    }
  }
}

void TarnOIShapeEdgeSeparator::SetVertexMaterialAndSize(SoMaterial* material, double sizeFactor,
                                                        int which) {
  const auto* edge = tarnObjectAs<tarn::ShapeEdge>(tarn::ShapeEdgeCls);
  TARNOI_ASSERT_AT(edge, "tarnObject", sourceFile, 217);
  if (!TARNOI_ASSERT_AT(which == 1 || which == 2, "0", sourceFile, 232)) return;
  const auto& marker = which == 1 ? startMarker : endMarker;
  if (!marker) return;
  marker->SetMaterial(material);
  if (const tarn::Shape* shape = edge ? edge->GetShape() : nullptr) {
    marker->SetRadius(static_cast<float>(shape->GetMaxSize(0) * sizeFactor));
  }
}

SoNode* TarnOIShapeEdgeSeparator::copy(SbBool copyConnections) const {
  auto* copied = static_cast<TarnOIShapeEdgeSeparator*>(TarnOISeparator::copy(copyConnections));
  copied->SetShapeEdge(static_cast<tarn::ShapeEdge*>(tarnObject), searchDict);
  return copied;
}
