#pragma once

#include "host/general/Point3DDouble.h"
#include "io/TarnOIIOExport.h"

#include <array>
#include <vector>

namespace tarn {

/// Cuts a face of at least three corners into triangles between them, which turn as it does: into
/// a fan from its first corner where none of the fan's triangles turns the other way, else by
/// PolygonTriangulation. A face that this cannot cut, for it crosses itself or has no area, is a
/// fan all the same. `triangles` is cleared first.
TARN_IO_EXPORT void faceTriangles(const std::vector<Point3DDouble>& corners,
                                  std::vector<std::array<int, 3>>& triangles);

}  // namespace tarn
