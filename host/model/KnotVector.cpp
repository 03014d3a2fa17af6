#include "host/model/KnotVector.h"

#include <unsupported/Eigen/Splines>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace tarn {

std::optional<KnotVector> KnotVector::make(int degree, std::vector<double> knots) {
  if (degree < 1 || degree > highestDegree) return std::nullopt;
  const auto p = static_cast<std::size_t>(degree);
  if (knots.size() < 2 * p + 2) return std::nullopt;
  const std::size_t count = knots.size() - p - 1;
  for (std::size_t i = 0; i < knots.size(); ++i) {
    if (!std::isfinite(knots[i])) return std::nullopt;
    if (i > 0 && knots[i] != knots[i - 1] && !(knots[i] - knots[i - 1] >= shortestSpan)) {
      return std::nullopt;
    }
  }
  if (!std::isfinite(knots.back() - knots.front())) return std::nullopt;
  for (std::size_t i = 1; i < count; ++i) {
    if (!(knots[i] < knots[i + p])) return std::nullopt;
  }
  if (!(knots[p] < knots[count])) return std::nullopt;
  return KnotVector(degree, std::move(knots));
}

std::vector<KnotVector::Span> KnotVector::spans() const {
  std::vector<Span> result;
  for (int i = _degree; i < controlPoints(); ++i) {
    const double* knot = _knots.data() + i;
    if (knot[0] < knot[1]) result.push_back({knot[0], knot[1], i});
  }
  return result;
}

int KnotVector::interpolatedAt(double parameter) const {
  const auto [first, behind] = std::equal_range(_knots.begin(), _knots.end(), parameter);
  if (behind - first < _degree) return -1;
  return std::max(static_cast<int>(first - _knots.begin()) - 1, 0);
}

bool KnotVector::mayKinkAt(double parameter) const {
  return parameter > begin() && parameter < end() && interpolatedAt(parameter) >= 0;
}

KnotVector::BasisTable KnotVector::basisAt(const std::vector<double>& parameters) const {
  using Spline = Eigen::Spline<double, 1>;
  const Spline::KnotVectorType knots = Eigen::Map<const Spline::KnotVectorType>(
      _knots.data(), static_cast<Eigen::Index>(_knots.size()));
  BasisTable table;
  table._order = static_cast<std::size_t>(_degree) + 1;
  table._first.reserve(parameters.size());
  table._numbers.reserve(parameters.size() * 2 * table._order);
  for (const double parameter : parameters) {
    // At the end the last span counts, also where its knot is repeated.
    const double within = parameter < end() ? parameter : std::nextafter(end(), begin());
    const int first = static_cast<int>(Spline::Span(within, _degree, knots)) - _degree;
    table._first.push_back(first);
    Eigen::ArrayXXd basis = Spline::BasisFunctionDerivatives(within, 1, _degree, knots);
    const int through = interpolatedAt(parameter);
    if (through >= 0) {
      // Without rounding: surfaces that are closed must meet themselves.
      basis.row(0).setZero();
      basis(0, through - first) = 1.0;
    }
    for (Eigen::Index row = 0; row < 2; ++row) {
      for (Eigen::Index i = 0; i <= _degree; ++i) table._numbers.push_back(basis(row, i));
    }
  }
  return table;
}

void KnotVector::appendBezier(const Span& span, const std::vector<HomogeneousPoint>& controlPoints,
                              std::vector<HomogeneousPoint>& bezier) const {
  const double* const knot = _knots.data() + span.knot;
  const HomogeneousPoint* const first = controlPoints.data() + span.knot - _degree;
  std::array<HomogeneousPoint, highestDegree + 1> polar;
  for (int point = 0; point <= _degree; ++point) {
    // De Boor's scheme with the span's end for the first `point` arguments, then its begin.
    std::copy_n(first, _degree + 1, polar.begin());
    for (int level = 1; level <= _degree; ++level) {
      const double argument = level <= point ? span.end : span.begin;
      for (int i = _degree; i >= level; --i) {
        const double low = knot[i - _degree];
        const double high = knot[i - level + 1];
        auto& here = polar[static_cast<std::size_t>(i)];
        here = HomogeneousPoint::between(polar[static_cast<std::size_t>(i) - 1], here,
                                         (argument - low) / (high - low));
      }
    }
    bezier.push_back(polar[static_cast<std::size_t>(_degree)]);
  }
}

}  // namespace tarn
