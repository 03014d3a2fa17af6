#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point3DDouble.h"
#include "host/model/SurfaceSpline.h"

#include <vector>

namespace tarn {

/// Points of a surface, with their derivatives, in rows along u.
class TARN_HOST_EXPORT SurfaceRows {
public:
  /// A point with its first derivatives by u and by v.
  struct Place {
    Point3DDouble point;
    Point3DDouble alongU;
    Point3DDouble alongV;
  };

  SurfaceRows(const SurfaceSpline& surface, const std::vector<double>& u,
              const std::vector<double>& v);

  /// Row number j: one place for each u. Valid until the next call.
  const std::vector<Place>& row(int j);

private:
  const SurfaceSpline& _surface;
  KnotVector::BasisTable _basisU;
  KnotVector::BasisTable _basisV;
  std::vector<HomogeneousPoint> _across;    // the row's curve along u
  std::vector<HomogeneousPoint> _acrossDv;  // and its derivative by v
  std::vector<Place> _row;
};

}  // namespace tarn
