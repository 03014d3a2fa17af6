#include "host/model/SurfaceSpline.h"

namespace tarn {

void SurfaceSpline::combineRows(int firstRow, const double* factors,
                                std::vector<HomogeneousPoint>& row) const {
  row.assign(static_cast<std::size_t>(knotsU.controlPoints()), {});
  for (int k = 0; k <= knotsV.degree(); ++k) {
    const HomogeneousPoint* points = controlPoints.data() + at(0, firstRow + k);
    for (std::size_t i = 0; i < row.size(); ++i) row[i].add(factors[k], points[i]);
  }
}

}  // namespace tarn
