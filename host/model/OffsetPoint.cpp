#include "host/model/OffsetPoint.h"

#include "host/model/ObjectPoint.h"

namespace tarn {

VClass OffsetPointCls("OffsetPoint", &ThreeDPointCls, []() -> VObject* { return new OffsetPoint; });

int OffsetPoint::GetApproximation(Point3DRandom& position) const {
  if (ThreeDPoint::GetApproximation(position)) return 1;
  const ObjectPoint* from = GetObjectPoint();
  if (!from || !from->GetApproximation(position)) return 0;
  const Point3DDouble offset = GetOffset();
  const auto moved = [](RandomVariable coordinate, double by) {
    coordinate.value += by;
    return coordinate;
  };
  position = Point3DRandom(moved(position.X(), offset.x), moved(position.Y(), offset.y),
                           moved(position.Z(), offset.z), position.covarianceXY(),
                           position.covarianceXZ(), position.covarianceYZ());
  return 1;
}

int OffsetPoint::IsProcessed() const {
  const ObjectPoint* from = GetObjectPoint();
  return ThreeDPoint::IsProcessed() || (from && from->IsProcessed());
}

void OffsetPoint::SetOffset(ObjectPoint* from, const Point3DDouble& offset) {
  _objectPoint = from;
  _offset = offset;
}

}  // namespace tarn
