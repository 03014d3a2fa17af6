#pragma once

#include <Inventor/fields/SoMFInt32.h>
#include <Inventor/fields/SoMFVec3f.h>

#include "host/classes/VOrdCollect.h"
#include "host/general/ThreeDViewOffset.h"
#include "host/model/Triangle.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace bench {

/// The floors of dense clouds and meshes: plain loops over what the model gives, into memory
/// that the caller owns and keeps warm, computing the values that the node computes.

/// Positions in the viewer frame less the view offset, three floats a point.
void plainPositions(float* const* points, int count, std::vector<float>& viewer);

/// Colours of a ramp of heights between `lowest` and `highest` (see PlainRamp).
void plainHeightColours(float* const* points, int count, double lowest, double highest,
                        std::vector<float>& colours);

/// The same point by point with tarn::Colour::SetAsHSL: what both must agree with.
void routineHeightColours(float* const* points, int count, double lowest, double highest,
                          std::vector<float>& colours);

/// Bytes blue, green, red as floats red, green, blue.
void plainTrueColours(unsigned char* const* bytes, int count, std::vector<float>& colours);

/// True colours, and over them one colour for the selected points.
void plainSelection(unsigned char* const* bytes, int count, const std::vector<int>& selected,
                    const float (&color)[3], std::vector<float>& colours);

/// What a face set needs of a list of tarn::Triangle: three positions and normals, nine
/// floats each, and four indexes a triangle.
struct PlainFaces {
  std::vector<float> positions;
  std::vector<float> normals;
  std::vector<std::int32_t> indexes;

  /// @param positionOf fills a tarn::Point3DDouble& with the place of a tarn::ThreeDPoint&
  template <typename PositionOf>
  void fill(const tarn::VOrdCollect& triangles, PositionOf positionOf);
};

/// The values of a field of triples, and of one of indexes. Both throw std::runtime_error unless
/// they are those of the floor: times of different work say nothing.
void expectSame(const SoMFVec3f& field, const std::vector<float>& plain);
void expectSame(const SoMFInt32& field, const std::vector<std::int32_t>& plain);

template <typename PositionOf>
void PlainFaces::fill(const tarn::VOrdCollect& triangles, PositionOf positionOf) {
  const auto count = static_cast<std::size_t>(triangles.size());
  positions.resize(9 * count);
  normals.resize(9 * count);
  indexes.resize(4 * count);
  const tarn::Point3DDouble offset = tarn::gThreeDViewOffset;
  float* position = positions.data();
  float* direction = normals.data();
  std::int32_t* index = indexes.data();
  for (int t = 0; t < triangles.size(); ++t) {
    const auto* triangle = static_cast<const tarn::Triangle*>(triangles.at(t));
    for (int k = 0; k < 3; ++k, position += 3, direction += 3) {
      tarn::Point3DDouble point;
      positionOf(*triangle->GetPoint(k), point);
      position[0] = static_cast<float>(point.x - offset.x);
      position[1] = static_cast<float>(point.z - offset.z);
      position[2] = static_cast<float>(-(point.y - offset.y));
      if (const tarn::Point3DDouble* normal = triangle->GetNormal(k)) {
        direction[0] = static_cast<float>(normal->x);
        direction[1] = static_cast<float>(normal->z);
        direction[2] = static_cast<float>(-normal->y);
      }
      *index++ = 3 * t + k;
    }
    *index++ = -1;
  }
}

}  // namespace bench
