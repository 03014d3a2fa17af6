#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/HomogeneousPoint.h"
#include "host/model/KnotVector.h"

#include <vector>

namespace tarn {

/// A rational B-spline surface: knots in both directions, and control points that run along u
/// first. It refers to all three.
struct TARN_HOST_EXPORT SurfaceSpline {
  const KnotVector& knotsU;
  const KnotVector& knotsV;
  const std::vector<HomogeneousPoint>& controlPoints;

  /// The place of control point number i along u and j along v.
  std::size_t at(int i, int j) const {
    return static_cast<std::size_t>(j) * static_cast<std::size_t>(knotsU.controlPoints()) +
           static_cast<std::size_t>(i);
  }

  /// Combines rows of control points, from `firstRow` on, into one: with the basis at a
  /// parameter v, the control points of the curve along u there.
  /// @param factors as many as v has orders
  void combineRows(int firstRow, const double* factors, std::vector<HomogeneousPoint>& row) const;
};

}  // namespace tarn
