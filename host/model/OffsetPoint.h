#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/ThreeDPoint.h"

namespace tarn {

class ObjectPoint;

extern TARN_HOST_EXPORT VClass OffsetPointCls;

/// A point placed at an offset from an object point: the tip of a rod whose target was
/// measured. It goes where its object point goes, unless SetApproximation gave it a position
/// of its own.
class TARN_HOST_EXPORT OffsetPoint : public ThreeDPoint {
public:
  /// The object point's position and covariance, moved by the offset.
  int GetApproximation(Point3DRandom& position) const override;
  /// Non-zero also when the object point comes from the bundle adjustment.
  int IsProcessed() const override;

  /// The object point that it is placed from; null when there is none.
  virtual ObjectPoint* GetObjectPoint() const { return _objectPoint; }
  /// From the object point to this one, in model coordinates.
  virtual Point3DDouble GetOffset() const { return _offset; }

  /// Places the point; the object point, which may be null, is not owned.
  void SetOffset(ObjectPoint* from, const Point3DDouble& offset);

  VClass* iam() const override { return &OffsetPointCls; }

private:
  ObjectPoint* _objectPoint = nullptr;
  Point3DDouble _offset;
};

}  // namespace tarn
