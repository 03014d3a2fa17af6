#pragma once

#include <Eigen/Geometry>

#include "host/general/Point3DDouble.h"

#include <algorithm>
#include <vector>

/// Rational B-splines by their definition, slowly: what the model's curves and surfaces are
/// compared with.
namespace SplineReference {

using tarn::Point3DDouble;

inline Eigen::Vector3d vectorOf(const Point3DDouble& p) { return {p.x, p.y, p.z}; }

/// Basis function number i, by Cox and de Boor's recursion. At the last parameter it is the limit.
inline double basis(const std::vector<double>& knots, int degree, std::size_t i, double parameter) {
  const auto p = static_cast<std::size_t>(degree);
  if (degree == 0) {
    const double last = *std::find(knots.rbegin(), knots.rend(), knots.back());
    const bool closes = parameter == last && knots[i + 1] == last && knots[i] < last;
    return (knots[i] <= parameter && parameter < knots[i + 1]) || closes ? 1.0 : 0.0;
  }
  double sum = 0.0;
  const double rise = knots[i + p] - knots[i];
  const double fall = knots[i + p + 1] - knots[i + 1];
  if (rise > 0.0) sum += (parameter - knots[i]) / rise * basis(knots, degree - 1, i, parameter);
  if (fall > 0.0) {
    sum += (knots[i + p + 1] - parameter) / fall * basis(knots, degree - 1, i + 1, parameter);
  }
  return sum;
}

inline Eigen::Vector3d curvePoint(int degree, const std::vector<double>& knots,
                                  const std::vector<Point3DDouble>& points,
                                  const std::vector<double>& weights, double parameter) {
  Eigen::Vector3d sum = Eigen::Vector3d::Zero();
  double weight = 0.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double factor = basis(knots, degree, i, parameter) * (weights.empty() ? 1.0 : weights[i]);
    sum += factor * vectorOf(points[i]);
    weight += factor;
  }
  return sum / weight;
}

inline double distanceFromSegment(const Eigen::Vector3d& point, const Eigen::Vector3d& begin,
                                  const Eigen::Vector3d& end) {
  const Eigen::Vector3d along = end - begin;
  const double length2 = along.squaredNorm();
  const double at = length2 > 0.0 ? std::clamp(along.dot(point - begin) / length2, 0.0, 1.0) : 0.0;
  return (point - begin - at * along).norm();
}

inline double distanceFromTriangle(const Eigen::Vector3d& point, const Eigen::Vector3d& a,
                                   const Eigen::Vector3d& b, const Eigen::Vector3d& c) {
  const Eigen::Vector3d normal = (b - a).cross(c - a);
  const double area2 = normal.squaredNorm();
  if (area2 > 0.0) {
    const Eigen::Vector3d foot = point - normal.dot(point - a) / area2 * normal;
    const bool inside = normal.dot((b - a).cross(foot - a)) >= 0.0 &&
                        normal.dot((c - b).cross(foot - b)) >= 0.0 &&
                        normal.dot((a - c).cross(foot - c)) >= 0.0;
    if (inside) return (point - foot).norm();
  }
  return std::min({distanceFromSegment(point, a, b), distanceFromSegment(point, b, c),
                   distanceFromSegment(point, c, a)});
}

}  // namespace SplineReference
