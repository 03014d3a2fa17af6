#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/Triangle.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass SurfaceElementCls;

/// A triangle of a surface group, between three points of the model.
class TARN_HOST_EXPORT SurfaceElement : public Triangle {
public:
  using Triangle::Triangle;

  VClass* iam() const override { return &SurfaceElementCls; }
};

}  // namespace tarn
