#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point3DDouble.h"
#include "host/model/AffineObject.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass AffineObjectNPointCls;

/// One of the n points by which the project's coordinate system is determined.
class TARN_HOST_EXPORT AffineObjectNPoint : public AffineObject {
public:
  /// The position, in model coordinates; the origin before one was set.
  virtual Point3DDouble GetPosition() const { return _position; }
  /// Non-zero when a position was set.
  virtual int HasPosition() const { return _hasPosition; }

  void SetPosition(const Point3DDouble& position);

  VClass* iam() const override { return &AffineObjectNPointCls; }

private:
  Point3DDouble _position;
  int _hasPosition = 0;
};

}  // namespace tarn
