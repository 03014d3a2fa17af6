#pragma once

#include <Inventor/SbMatrix.h>
#include <Inventor/nodes/SoTransform.h>

/// What a transform node does, as a matrix for row vectors.
inline SbMatrix matrixOf(const SoTransform& transform) {
  SbMatrix matrix;
  matrix.setTransform(transform.translation.getValue(), transform.rotation.getValue(),
                      transform.scaleFactor.getValue(), transform.scaleOrientation.getValue(),
                      transform.center.getValue());
  return matrix;
}
