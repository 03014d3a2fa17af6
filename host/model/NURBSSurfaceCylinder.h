#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/Cylinder.h"
#include "host/model/NURBSSurface.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass NURBSSurfaceCylinderCls;

/// The surface of a measured cylinder: u runs round the axis, counter-clockwise seen from its
/// second end, v along it from the first end. It is open at both ends, for what closes a pipe was
/// not measured, and therefore seen from both sides unless that is changed.
class TARN_HOST_EXPORT NURBSSurfaceCylinder : public NURBSSurface {
public:
  NURBSSurfaceCylinder() { SetDoubleSided(1); }

  /// The cylinder, which is the surface's own.
  virtual Cylinder* GetCylinder() { return &_cylinder; }

  /// Sets the surface to the cylinder as it is: the circle exactly, of four rational quadratic
  /// quarters (Piegl and Tiller, The NURBS Book, 2nd ed., 7.5), and then as any other surface.
  /// Returns 0, and leaves the triangles as they are, also where the radius is not positive and
  /// finite, or the ends do not define an axis.
  int Tessellate(double tolerance) override;

  VClass* iam() const override { return &NURBSSurfaceCylinderCls; }

private:
  Cylinder _cylinder;
};

}  // namespace tarn
