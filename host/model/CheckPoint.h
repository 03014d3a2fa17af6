#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/ThreeDPoint.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass CheckPointCls;

/// A check point: a position known from outside, which took no part in the adjustment and is
/// compared with what the adjustment computed.
class TARN_HOST_EXPORT CheckPoint : public ThreeDPoint {
public:
  /// The known position, in model coordinates; the origin when there is none.
  virtual Point3DDouble GetPosition() const;

  VClass* iam() const override { return &CheckPointCls; }
};

}  // namespace tarn
