#include "host/model/SurfaceRows.h"

namespace tarn {

SurfaceRows::SurfaceRows(const SurfaceSpline& surface, const std::vector<double>& u,
                         const std::vector<double>& v)
    : _surface(surface),
      _basisU(surface.knotsU.basisAt(u)),
      _basisV(surface.knotsV.basisAt(v)),
      _row(u.size()) {}

const std::vector<SurfaceRows::Place>& SurfaceRows::row(int j) {
  const KnotVector::Basis inV = _basisV[j];
  _surface.combineRows(inV.first, inV.values, _across);
  _surface.combineRows(inV.first, inV.derivatives, _acrossDv);
  const int degree = _surface.knotsU.degree();
  for (int i = 0; i < _basisU.size(); ++i) {
    const KnotVector::Basis inU = _basisU[i];
    HomogeneousPoint at;
    HomogeneousPoint byU;
    HomogeneousPoint byV;
    for (int k = 0; k <= degree; ++k) {
      const auto control = static_cast<std::size_t>(inU.first + k);
      at.add(inU.values[k], _across[control]);
      byU.add(inU.derivatives[k], _across[control]);
      byV.add(inU.values[k], _acrossDv[control]);
    }
    // The quotient rule (The NURBS Book, 4.5).
    const Point3DDouble point = at.point();
    const auto derivative = [&](const HomogeneousPoint& by) {
      return 1.0 / at.w * (Point3DDouble(by.x, by.y, by.z) - by.w * point);
    };
    _row[static_cast<std::size_t>(i)] = {point, derivative(byU), derivative(byV)};
  }
  return _row;
}

}  // namespace tarn
