#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/model/Point3DRandom.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass ThreeDPointCls;

/// Anything that has a position in the model.
class TARN_HOST_EXPORT ThreeDPoint : public VObject {
public:
  /// The position with its covariance. Returns 0 when there is none.
  virtual int GetApproximation(Point3DRandom& position) const;
  /// Non-zero when the position comes from the bundle adjustment.
  virtual int IsProcessed() const { return _processed; }

  void SetApproximation(const Point3DRandom& position);
  void SetProcessed(int processed) { _processed = processed; }

  VClass* iam() const override { return &ThreeDPointCls; }

private:
  Point3DRandom _position;
  int _hasPosition = 0;
  int _processed = 0;
};

}  // namespace tarn
