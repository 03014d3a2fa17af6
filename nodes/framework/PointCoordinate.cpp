#include "nodes/framework/PointCoordinate.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoGroup.h>

#include "nodes/framework/ViewerFrame.h"

SoCoordinate3* PointCoordinate::find(const SoGroup& node) {
  for (int i = node.getNumChildren(); i > 0; --i) {
    SoNode* child = node.getChild(i - 1);
    if (child->isOfType(SoCoordinate3::getClassTypeId())) return static_cast<SoCoordinate3*>(child);
  }
  return nullptr;
}

void PointCoordinate::place(SoCoordinate3& coordinate, const tarn::Point3DDouble& modelPoint) {
  coordinate.point.set1Value(0, ViewerFrame::fromModel(modelPoint));
}
