#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/HomogeneousPoint.h"
#include "host/model/KnotVector.h"

#include <cstddef>
#include <vector>

namespace tarn {

/// Where to cut rational B-splines so that each piece stays within a distance of its chord.
struct TARN_HOST_EXPORT ChordSubdivision {
  /// Every knot between the ends, both ends, and as few parameters between as the tolerance
  /// allows; ascending.
  std::vector<double> parameters;
  /// Of each piece, how far any point of any curve may be from its chord; one less than
  /// parameters.
  std::vector<double> deviations;

  double largestDeviation() const;

  /// Cuts curves that share their knots at the same parameters, into as few pieces as the
  /// tolerance allows; those of a span use about equally much of it. No span between knots is cut
  /// into more than about 65,536 pieces: a tolerance below the coordinates' rounding is not
  /// reached.
  ///
  /// A piece's deviation is bounded, not sampled: its Bézier control points hold it in their
  /// convex hull, the distance from the chord is a convex function, and the control points
  /// between the ends have a limited share in any point of the piece (from the Bernstein
  /// polynomials' sum to 1; The NURBS Book, 1.3 and 1.4).
  ///
  /// @param curves    the control points of each, as many as the knots ask for
  /// @param tolerance positive; infinity cuts at knots alone
  /// @param most      pieces that are allowed; where there would be more, nothing is returned
  static ChordSubdivision of(const KnotVector& knots,
                             const std::vector<std::vector<HomogeneousPoint>>& curves,
                             double tolerance, std::size_t most);

  /// The deviations of pieces that are cut already: at these parameters, ascending, every knot
  /// between the ends and both ends among them.
  static std::vector<double> deviationsOf(const KnotVector& knots,
                                          const std::vector<std::vector<HomogeneousPoint>>& curves,
                                          const std::vector<double>& parameters);
};

}  // namespace tarn
