#include "nodes/lines/ThreeDExtension.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoLineSet.h>

#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/Narrowing.h"

#include <cmath>

void ThreeDExtension::appendTo(SoGroup& parent) const {
  coordinates = makeNode<SoCoordinate3>();
  auto* dashes = new SoDrawStyle;
  dashes->linePattern.setValue(0xf0f0);
  lines = LineSegment::makeLineSet();
  parent.addChild(coordinates.get());
  parent.addChild(dashes);
  parent.addChild(lines.get());
}

void ThreeDExtension::removeFrom(SoGroup& node) const {
  ChildNodes::removeAndForget(node, coordinates);
  ChildNodes::removeAndForget(node, lines);
}

void ThreeDExtension::place(const LineSegment::Ends& measured, double factor) const {
  if (coordinates) LineSegment::place(*coordinates, prolonged(measured, factor));
}

LineSegment::Ends ThreeDExtension::prolonged(const LineSegment::Ends& measured, double factor) {
  const double halfSurplus = Narrowing::narrowed((factor - 1.0) * 0.5);
  LineSegment::Ends result = measured;
  // Each axis by itself: an end moves away from the other one.
  for (double tarn::Point3DDouble::*axis :
       {&tarn::Point3DDouble::x, &tarn::Point3DDouble::y, &tarn::Point3DDouble::z}) {
    const double begin = measured[0].*axis;
    const double end = measured[1].*axis;
    const double margin = Narrowing::narrowed(std::abs(end - begin) * halfSurplus);
    const double outward = begin <= end ? margin : -margin;
    result[0].*axis -= outward;
    result[1].*axis += outward;
  }
  return result;
}
