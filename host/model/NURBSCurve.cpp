#include "host/model/NURBSCurve.h"

#include "host/model/ChordSubdivision.h"
#include "host/model/ControlPoints.h"

#include <cmath>
#include <utility>

namespace tarn {

VClass NURBSCurveCls("NURBSCurve", &VObjectCls, []() -> VObject* { return new NURBSCurve; });

int NURBSCurve::SetCurve(int degree, const std::vector<double>& knots,
                         const std::vector<Point3DDouble>& controlPoints,
                         const std::vector<double>& weights) {
  auto made = KnotVector::make(degree, knots);
  if (!made) return 0;
  const auto count = static_cast<std::size_t>(made->controlPoints());
  if (!ControlPoints::areUsable(controlPoints, weights, count)) return 0;
  _knots = *std::move(made);
  _controlPoints = controlPoints;
  _weights = ControlPoints::weightsOrOnes(controlPoints, weights);
  _allPoints.clear();
  _knotPoints.clear();
  _points.clear();
  return 1;
}

VOrdCollect* NURBSCurve::Tess3D(double tolerance, VOrdCollect** knotPoints) {
  if (knotPoints) *knotPoints = nullptr;
  if (_knots.isEmpty() || !(tolerance > 0.0) || !std::isfinite(tolerance)) return nullptr;
  const Point3DDouble origin = _controlPoints.front();
  const auto weighted = ControlPoints::weighted(_controlPoints, _weights, origin);
  const auto parameters =
      ChordSubdivision::of(_knots, {weighted}, tolerance, mostPoints - 1).parameters;
  if (parameters.empty()) return nullptr;

  const auto basis = _knots.basisAt(parameters);
  _allPoints.clear();
  _knotPoints.clear();
  _points.clear();
  _points.resize(parameters.size());
  _allPoints.reserve(basis.size());
  auto knot = _knots.knots().begin();
  for (int i = 0; i < basis.size(); ++i) {
    const double parameter = parameters[static_cast<std::size_t>(i)];
    // What the curve passes through is not left to rounding.
    const int through = _knots.interpolatedAt(parameter);
    const HomogeneousPoint* const support = weighted.data() + basis[i].first;
    HomogeneousPoint sum;
    for (int k = 0; k <= _knots.degree(); ++k) {
      sum.add(basis[i].values[k], support[k]);
    }
    ThreeDPoint& point = _points[static_cast<std::size_t>(i)];
    point.SetApproximation(Point3DRandom(
        through < 0 ? origin + sum.point() : _controlPoints[static_cast<std::size_t>(through)]));
    _allPoints.add(&point);
    while (*knot < parameter) ++knot;
    if (*knot == parameter) _knotPoints.addIndex(i);
  }
  if (knotPoints) *knotPoints = &_knotPoints;
  return &_allPoints;
}

}  // namespace tarn
