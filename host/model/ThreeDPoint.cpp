#include "host/model/ThreeDPoint.h"

#include "host/model/CameraStation.h"
#include "host/model/Photograph.h"

namespace tarn {

VClass ThreeDPointCls("ThreeDPoint", &VObjectCls, []() -> VObject* { return new ThreeDPoint; });

int ThreeDPoint::GetApproximation(Point3DRandom& position) const {
  if (!_hasPosition) return 0;
  position = _variancesKnown ? Point3DRandom(_position, _xx, _yy, _zz, _xy, _xz, _yz)
                             : Point3DRandom(_position);
  return 1;
}

int ThreeDPoint::GetApproximationNoLocalAffine(Point3DDouble& position) const {
  Point3DRandom approximation;
  if (!GetApproximation(approximation)) return 0;
  position = approximation.position();
  return 1;
}

int ThreeDPoint::BestProjectionOnto(Photograph* photograph, Point2DDouble& pixel) const {
  const CameraStation* station = photograph ? photograph->GetCameraStation() : nullptr;
  Point3DRandom position;
  if (!station || !GetApproximation(position)) return 0;
  return station->ProjectPoint(position.position(), pixel);
}

void ThreeDPoint::SetApproximation(const Point3DRandom& position) {
  _position = position.position();
  _hasPosition = true;
  _variancesKnown = position.VariancesAreKnown() != 0;
  _xx = position.X().variance;
  _yy = position.Y().variance;
  _zz = position.Z().variance;
  _xy = position.covarianceXY();
  _xz = position.covarianceXZ();
  _yz = position.covarianceYZ();
}

}  // namespace tarn
