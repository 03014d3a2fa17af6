#include "nodes/framework/PointShape.h"

#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"

void PointShape::findOrBuild(SoGroup& node, const char* className, int line) {
  if (node.getNumChildren() == 0) {
    append(node, new SoPointSet);
  } else {
    findCoordinate(node, className, line);
  }
}

void PointShape::findCoordinate(const SoGroup& node, const char* className, int line) {
  pointPos = NodeRef(ChildNodes::last<SoCoordinate3>(node));
  TARNOI_ASSERT_AT(pointPos, "pointPos", className, line);
}

void PointShape::append(SoGroup& node, SoPointSet* shape) {
  pointPos = makeNode<SoCoordinate3>();
  markerSet = NodeRef(shape);
  node.addChild(pointPos.get());
  node.addChild(markerSet.get());
}

void PointShape::place(const tarn::Point3DDouble& modelPoint) {
  if (pointPos) pointPos->point.set1Value(0, ViewerFrame::fromModel(modelPoint));
}

void PointShape::get(SoCoordinate3** coords, SoPointSet** points) const {
  if (coords) *coords = pointPos.get();
  if (points) *points = markerSet.get();
}

PointShape PointShape::counterpart(const SoGroup& copy, const SoGroup& original) const {
  return {.pointPos = ChildNodes::counterpart(copy, original, pointPos),
          .markerSet = ChildNodes::counterpart(copy, original, markerSet)};
}
