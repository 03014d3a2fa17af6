#pragma once

#include "tests/support/SplineReference.h"

#include <cmath>
#include <ostream>
#include <vector>

/// NURBS surfaces to test with, and their points by definition.
struct SurfaceData {
  int degreeU;
  std::vector<double> knotsU;
  int degreeV;
  std::vector<double> knotsV;
  std::vector<tarn::Point3DDouble> points;  // along u first
  std::vector<double> weights;

  std::size_t countU() const { return knotsU.size() - static_cast<std::size_t>(degreeU) - 1; }
  std::size_t countV() const { return knotsV.size() - static_cast<std::size_t>(degreeV) - 1; }
  double weight(std::size_t i) const { return weights.empty() ? 1.0 : weights[i]; }

  /// Points at all pairs of the parameters, along u first.
  std::vector<Eigen::Vector3d> at(const std::vector<double>& u,
                                  const std::vector<double>& v) const {
    const auto table = [](const std::vector<double>& knots, int degree, std::size_t count,
                          const std::vector<double>& parameters) {
      std::vector<std::vector<double>> result;
      for (const double parameter : parameters) {
        auto& row = result.emplace_back();
        for (std::size_t i = 0; i < count; ++i) {
          row.push_back(SplineReference::basis(knots, degree, i, parameter));
        }
      }
      return result;
    };
    const auto basisU = table(knotsU, degreeU, countU(), u);
    const auto basisV = table(knotsV, degreeV, countV(), v);
    std::vector<Eigen::Vector3d> result;
    for (const auto& inV : basisV) {
      for (const auto& inU : basisU) {
        Eigen::Vector3d sum = Eigen::Vector3d::Zero();
        double divisor = 0.0;
        for (std::size_t j = 0; j < countV(); ++j) {
          for (std::size_t i = 0; i < countU(); ++i) {
            const std::size_t k = j * countU() + i;
            const double factor = inU[i] * inV[j] * weight(k);
            sum += factor * SplineReference::vectorOf(points[k]);
            divisor += factor;
          }
        }
        result.push_back(sum / divisor);
      }
    }
    return result;
  }

  /// A sphere of radius 2 around (5, 6, 7), of eight octants; u runs round it, counter-clockwise
  /// seen from above, v from the lower pole up (Piegl and Tiller, The NURBS Book, example 8.2).
  static SurfaceData sphere() {
    const double half = std::sqrt(0.5);
    constexpr int square[9][2] = {{1, 0},   {1, 1},  {0, 1},  {-1, 1}, {-1, 0},
                                  {-1, -1}, {0, -1}, {1, -1}, {1, 0}};
    constexpr int profile[5][2] = {{0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}};
    SurfaceData data{2, {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4}, 2, {0, 0, 0, 1, 1, 2, 2, 2}, {}, {}};
    for (int j = 0; j < 5; ++j) {
      for (int i = 0; i < 9; ++i) {
        const double out = 2.0 * profile[j][0];
        data.points.emplace_back(5 + out * square[i][0], 6 + out * square[i][1],
                                 7 + 2.0 * profile[j][1]);
        data.weights.push_back((i % 2 ? half : 1.0) * (j % 2 ? half : 1.0));
      }
    }
    return data;
  }

  /// The saddle z = x y over the unit square, from straight lines in both directions.
  static SurfaceData saddle() {
    return {1, {0, 0, 1, 1}, 1, {0, 0, 1, 1}, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 1}}, {}};
  }

  /// Part of a plane, run through unevenly: its control points are not where they would be.
  static SurfaceData plane() {
    SurfaceData data{3, {0, 0, 0, 0, 1, 1, 1, 1}, 2, {0, 0, 0, 1, 1, 1}, {}, {}};
    for (const double v : {0.0, 0.8, 1.0}) {
      for (const double u : {0.0, 0.1, 0.3, 1.0}) data.points.emplace_back(4 * u, 3 * v, u + 2 * v);
    }
    return data;
  }

  /// A free surface over x and y with weights, uneven knots, and a kink along u = 2.
  static SurfaceData free() {
    SurfaceData data{2, {0, 0, 0, 1, 2, 2, 3.5, 3.5, 3.5}, 3, {0, 0, 0, 0, 0.7, 2, 2, 2, 2}, {},
                     {}};
    for (int j = 0; j < 5; ++j) {
      for (int i = 0; i < 6; ++i) {
        data.points.emplace_back(i + 0.2 * j, 1.5 * j - 0.1 * i * i,
                                 std::sin(1.7 * i) + std::cos(0.9 * j + i) + (i == 3 ? 1.5 : 0.0));
        data.weights.push_back(1.0 + 0.5 * ((i + 2 * j) % 3));
      }
    }
    return data;
  }

  /// Ruled, with weights that bend the curves between its straight-run edges more than those.
  static SurfaceData weighted() {
    return {1,
            {0, 0, 1.34713, 1.34713},
            3,
            {0, 0, 0, 0, 1.72375, 2.08209, 2.08209, 2.08209, 2.08209},
            {{0.0105935, 0.0296186, -0.0710983},
             {0.985239, -0.00434167, -0.000553415},
             {-0.00869772, 1.00363, 0.0557761},
             {0.993376, 1.00677, 0.0634641},
             {-0.00663822, 2.01369, -0.026148},
             {1.03623, 2.01355, 0.0770746},
             {0.0072079, 3.00912, -0.0667341},
             {0.980502, 3.02124, 0.0198986},
             {-0.040893, 3.95986, 0.0136446},
             {0.994045, 3.9728, -0.0214387}},
            {1.79446, 0.189935, 0.565249, 1.22039, 0.206236, 1.32875, 0.921055, 0.888356, 0.750237,
             3.90027}};
  }

  static SurfaceData farAway() {
    SurfaceData data = free();
    for (auto& point : data.points) point = point + tarn::Point3DDouble{4512345, 5512345, 345};
    return data;
  }

  /// Without repeated knots, twisted and strongly bent.
  static SurfaceData unclamped() {
    SurfaceData data{3, {0, 1, 2, 3, 4, 5, 6, 7, 8}, 2, {0, 1, 2, 3, 4, 5, 6}, {}, {}};
    for (int j = 0; j < 4; ++j) {
      for (int i = 0; i < 5; ++i) {
        const double turn = 0.9 * i;
        data.points.emplace_back((2 + j) * std::cos(turn), (2 + j) * std::sin(turn),
                                 0.8 * i + 0.3 * j * j);
      }
    }
    return data;
  }
};

struct NamedSurface {
  const char* name;
  SurfaceData (*make)();
  friend void PrintTo(const NamedSurface& named, std::ostream* out) { *out << named.name; }
};

inline const NamedSurface namedSurfaces[] = {
    {"sphere", SurfaceData::sphere},      {"saddle", SurfaceData::saddle},
    {"plane", SurfaceData::plane},        {"free", SurfaceData::free},
    {"weighted", SurfaceData::weighted},  {"farAway", SurfaceData::farAway},
    {"unclamped", SurfaceData::unclamped}};
