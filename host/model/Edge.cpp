#include "host/model/Edge.h"

namespace tarn {

VClass EdgeCls("Edge", &VObjectCls, []() -> VObject* { return new Edge; });

int Edge::GetPointsForm(Point3DDouble& p0, Point3DDouble& p1) const {
  if (!_measured) return 0;
  p0 = _ends[0];
  p1 = _ends[1];
  return 1;
}

void Edge::SetPointsForm(const Point3DDouble& p0, const Point3DDouble& p1) {
  _ends = {p0, p1};
  _measured = true;
}

}  // namespace tarn
