#pragma once

#include <Inventor/SbVec3f.h>

/// What the cameras whose view volume the host sets directly have in common: three corners of
/// the front rectangle, in camera coordinates (x to the right, y up). They are no fields: they
/// are neither written to files nor notified nor copied with fields, and have no value until
/// they are set.
class FrontRectangle {
public:
  /// Sets the lower left, lower right and upper left corner. Nothing is drawn anew: the host
  /// sees to it.
  void SetLLF(float x, float y, float z) { LLF.setValue(x, y, z); }
  void SetLRF(float x, float y, float z) { LRF.setValue(x, y, z); }
  void SetULF(float x, float y, float z) { ULF.setValue(x, y, z); }

protected:
  SbVec3f LLF;
  SbVec3f LRF;
  SbVec3f ULF;
};
