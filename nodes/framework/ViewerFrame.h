#pragma once

#include <Inventor/SbMatrix.h>
#include <Inventor/SbVec3f.h>

#include "host/general/Point3DDouble.h"
#include "host/general/ThreeDViewOffset.h"

/// The viewer frame. The model is Z up, the scene Y up: a model point (X, Y, Z) is
/// shown at (X - ox, Z - oz, -(Y - oy)) with the host's global view offset (ox, oy, oz),
/// computed in double and stored as float.
namespace ViewerFrame {

/// viewer_from_model of a point, before it is stored.
inline tarn::Point3DDouble exactFromModel(const tarn::Point3DDouble& point) {
  const tarn::Point3DDouble& offset = tarn::gThreeDViewOffset;
  return {point.x - offset.x, point.z - offset.z, -(point.y - offset.y)};
}

/// A point of the viewer frame as a scene stores it.
inline SbVec3f stored(const tarn::Point3DDouble& point) {
  return SbVec3f(static_cast<float>(point.x), static_cast<float>(point.y),
                 static_cast<float>(point.z));
}

/// viewer_from_model of a point.
inline SbVec3f fromModel(const tarn::Point3DDouble& point) { return stored(exactFromModel(point)); }

/// model_from_viewer of a point.
inline tarn::Point3DDouble toModel(const SbVec3f& point) {
  const tarn::Point3DDouble& offset = tarn::gThreeDViewOffset;
  return {static_cast<double>(point[0]) + offset.x, -static_cast<double>(point[2]) + offset.y,
          static_cast<double>(point[1]) + offset.z};
}

/// viewer_from_model of a direction: the same change of axes without the offset.
inline SbVec3f directionFromModel(const tarn::Point3DDouble& direction) {
  return SbVec3f(static_cast<float>(direction.x), static_cast<float>(direction.z),
                 static_cast<float>(-direction.y));
}

/// The change of axes as a matrix for row vectors: (x, y, z) becomes (x, z, -y).
inline SbMatrix axes() {
  return SbMatrix(1, 0, 0, 0,   //
                  0, 0, -1, 0,  //
                  0, 1, 0, 0,   //
                  0, 0, 0, 1);
}

/// A transform given in the model frame, as a transform in the viewer frame: a point of
/// the viewer frame is taken back to the model's axes, transformed, and brought to the
/// viewer's again.
inline SbMatrix transformFromModel(const SbMatrix& inModel) {
  SbMatrix result = inModel;
  result.multLeft(axes().transpose());
  result.multRight(axes());
  return result;
}

}  // namespace ViewerFrame
