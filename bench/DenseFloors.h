#pragma once

#include "host/classes/VOrdCollect.h"

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

  void fill(const tarn::VOrdCollect& triangles);
};

}  // namespace bench
