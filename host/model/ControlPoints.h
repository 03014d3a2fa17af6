#pragma once

#include "host/general/Point3DDouble.h"
#include "host/model/HomogeneousPoint.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

/// What the control points of curves and of surfaces have in common.
namespace tarn::ControlPoints {

/// What coordinates and weights may be: products of several of them stay in the range of double.
constexpr double farthestCoordinate = 1e60;
constexpr double smallestWeight = 1e-60;
constexpr double largestWeight = 1e60;

/// Whether there are `count` and no coordinate is beyond `farthestCoordinate`, and each has one
/// weight, `smallestWeight` to `largestWeight`, or none has any.
inline bool areUsable(const std::vector<Point3DDouble>& points, const std::vector<double>& weights,
                      std::size_t count) {
  const auto isCoordinate = [](double value) { return std::fabs(value) <= farthestCoordinate; };
  const auto isPlace = [isCoordinate](const Point3DDouble& point) {
    return isCoordinate(point.x) && isCoordinate(point.y) && isCoordinate(point.z);
  };
  const auto isWeight = [](double weight) {
    return weight >= smallestWeight && weight <= largestWeight;
  };
  return points.size() == count && (weights.empty() || weights.size() == points.size()) &&
         std::ranges::all_of(points, isPlace) && std::ranges::all_of(weights, isWeight);
}

inline std::vector<double> weightsOrOnes(const std::vector<Point3DDouble>& points,
                                         const std::vector<double>& weights) {
  return weights.empty() ? std::vector<double>(points.size(), 1.0) : weights;
}

/// Seen from an origin near them: far from the model's, coordinates have few digits left for what
/// is computed.
inline std::vector<HomogeneousPoint> weighted(const std::vector<Point3DDouble>& points,
                                              const std::vector<double>& weights,
                                              const Point3DDouble& origin) {
  std::vector<HomogeneousPoint> result;
  result.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    result.emplace_back(points[i] - origin, weights[i]);
  }
  return result;
}

}  // namespace tarn::ControlPoints
