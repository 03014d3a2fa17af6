#include "nodes/framework/LineSegment.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoLineSet.h>

#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"

NodeRef<SoLineSet> LineSegment::makeLineSet() {
  auto lines = makeNode<SoLineSet>();
  lines->numVertices.setValue(2);
  return lines;
}

SoCoordinate3* LineSegment::append(SoGroup& node) {
  auto* coordinates = new SoCoordinate3;
  node.addChild(coordinates);
  node.addChild(makeLineSet().get());
  return coordinates;
}

SoCoordinate3* LineSegment::findOrAppend(SoGroup& node, const char* className, int line) {
  const int count = node.getNumChildren();
  if (count == 0) return append(node);
  for (int i = 0; i < count; ++i) {
    SoNode* child = node.getChild(i);
    if (child->isOfType(SoCoordinate3::getClassTypeId())) return static_cast<SoCoordinate3*>(child);
  }
  TARNOI_ASSERT_AT(false, "node->getTypeId().isDerivedFrom(SoCoordinate3::getClassTypeId() )",
                   className, line);
  return nullptr;
}

void LineSegment::place(SoCoordinate3& coordinates, const Ends& ends) {
  place(coordinates, std::array{ViewerFrame::fromModel(ends[0]), ViewerFrame::fromModel(ends[1])});
}

void LineSegment::place(SoCoordinate3& coordinates, const std::array<SbVec3f, 2>& shown) {
  coordinates.point.setValues(0, static_cast<int>(shown.size()), shown.data());
}
