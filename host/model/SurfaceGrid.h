#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/SurfaceSpline.h"

#include <optional>
#include <vector>

namespace tarn {

/// Where to cut a surface into cells of two triangles each, so that it stays within a distance of
/// them: the same parameters over the whole surface, so that there are no gaps.
struct TARN_HOST_EXPORT SurfaceGrid {
  /// Ascending, every knot between the ends among them.
  std::vector<double> u;
  std::vector<double> v;

  /// The distance has three parts in each cell: from the surface's curves along u to their
  /// chords, the same along v at the cell's edges, and between the cell's diagonals, which cross
  /// where the corners are in one plane. A point of the surface is not farther from the two
  /// triangles than their sum: the first two lead to the convex hull of the four corners, and
  /// the two triangles are no farther from any of its points than the diagonals are from each
  /// other. The curves are bounded (see ChordSubdivision), but along u not all of them: those
  /// at the cells' edges, and in each span of v as many more as its degree has orders.
  ///
  /// @param tolerance positive; one below the coordinates' rounding may be missed
  /// @param mostCells where there would be more, there is no grid
  static std::optional<SurfaceGrid> of(const SurfaceSpline& surface, double tolerance,
                                       std::size_t mostCells);
};

}  // namespace tarn
