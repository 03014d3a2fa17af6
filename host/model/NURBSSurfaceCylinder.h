#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/Cylinder.h"
#include "host/model/NURBSSurface.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass NURBSSurfaceCylinderCls;

/// The surface of a measured cylinder.
class TARN_HOST_EXPORT NURBSSurfaceCylinder : public NURBSSurface {
public:
  /// The cylinder, which is the surface's own.
  virtual Cylinder* GetCylinder() { return &_cylinder; }

  VClass* iam() const override { return &NURBSSurfaceCylinderCls; }

private:
  Cylinder _cylinder;
};

}  // namespace tarn
