#include "host/model/MarkedPoint.h"

namespace tarn {

VClass MarkedPointCls("MarkedPoint", &VObjectCls, []() -> VObject* { return new MarkedPoint; });

int MarkedPoint::GetResidual(Point2DDouble& residual) const {
  if (!_hasResidual) return 0;
  residual = _residual;
  return 1;
}

void MarkedPoint::SetResidual(const Point2DDouble& residual) {
  _hasResidual = true;
  _residual = residual;
}

}  // namespace tarn
