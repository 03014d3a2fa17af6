#pragma once

#include <Inventor/SbMatrix.h>
#include <Inventor/SbVec3f.h>
#include <Inventor/SbViewportRegion.h>

#include <string>
#include <vector>

class SoCamera;

/// Which labels there is room for: each takes a rectangle of the picture, and a later one
/// that would cover an earlier one is refused.
class LabelPlaces {
public:
  LabelPlaces(const SoCamera& camera, const SbViewportRegion& viewport);

  /// Takes the place of a label that begins at the point (in scene coordinates). Returns
  /// false when it is outside the picture or another label is there.
  bool take(const SbVec3f& point, const std::string& text);

private:
  // The picture in cells of this many pixels: fine enough for letters, coarse enough to
  // look through quickly.
  static constexpr int cellWidth = 8;
  static constexpr int cellHeight = 4;

  SbMatrix screenFromScene;  // to -1..1
  int columns;
  int rows;
  std::vector<bool> taken;
};
