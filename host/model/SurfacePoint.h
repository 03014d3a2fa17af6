#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/ObjectPoint.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass SurfacePointCls;

/// An object point that belongs to a surface. Surfaces have many of them; they carry
/// no error ellipsoid of their own.
class TARN_HOST_EXPORT SurfacePoint : public ObjectPoint {
public:
  VClass* iam() const override { return &SurfacePointCls; }
};

}  // namespace tarn
