#pragma once

#include <Inventor/SbMatrix.h>

#include "host/model/MatrixDouble.h"
#include "nodes/framework/ViewerFrame.h"

/// The rotation of a camera station as matrices of the viewer frame, for row vectors. The
/// station's own matrix is camera_from_model: its rows are the camera's right, up and back
/// directions in the model.
namespace StationMatrix {

namespace detail {
inline SbMatrix fromRows(const tarn::MatrixDouble& rotation, float signOfUpAndBack) {
  SbMatrix result = SbMatrix::identity();
  for (int row = 1; row <= 3; ++row) {
    const SbVec3f direction =
        ViewerFrame::directionFromModel({rotation(row, 1), rotation(row, 2), rotation(row, 3)});
    const float sign = row == 1 ? 1.0F : signOfUpAndBack;
    for (int column = 0; column < 3; ++column) result[row - 1][column] = sign * direction[column];
  }
  return result;
}
}  // namespace detail

/// viewer_from_symbol: x to the right, y down, z along the line of sight. So the picture
/// stands in front of the lens at positive z, and upside down in these axes.
inline SbMatrix ofSymbol(const tarn::MatrixDouble& rotation) {
  return detail::fromRows(rotation, -1.0F);
}

/// viewer_from_camera of a scene-graph camera: x to the right, y up, looking along -z.
inline SbMatrix ofCamera(const tarn::MatrixDouble& rotation) {
  return detail::fromRows(rotation, 1.0F);
}

}  // namespace StationMatrix
