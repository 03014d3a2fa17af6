#include "nodes/points/PointShape.h"

#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/PointCoordinate.h"
#include "nodes/framework/TarnOIAssert.h"

void PointShape::findOrBuild(SoGroup& node, const char* className) {
  if (node.getNumChildren() == 0) {
    append(node, new SoPointSet);
  } else {
    findCoordinate(node, className);
  }
}

void PointShape::findCoordinate(const SoGroup& node, const char* className) {
  pointPos = NodeRef(PointCoordinate::find(node));
  TARNOI_ASSERT(pointPos, "pointPos", className);
}

void PointShape::append(SoGroup& node, SoPointSet* shape) {
  pointPos = makeNode<SoCoordinate3>();
  markerSet = NodeRef(shape);
  node.addChild(pointPos.get());
  node.addChild(markerSet.get());
}

void PointShape::place(const tarn::Point3DDouble& modelPoint) {
  if (pointPos) PointCoordinate::place(*pointPos, modelPoint);
}

void PointShape::get(SoCoordinate3** coords, SoPointSet** points) const {
  if (coords) *coords = pointPos.get();
  if (points) *points = markerSet.get();
}

PointShape PointShape::counterpart(const SoGroup& copy, const SoGroup& original) const {
  return {.pointPos = ChildNodes::counterpart(copy, original, pointPos),
          .markerSet = ChildNodes::counterpart(copy, original, markerSet)};
}
