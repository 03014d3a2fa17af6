#include "viewer/LabelPlaces.h"

#include <Inventor/SbViewVolume.h>
#include <Inventor/nodes/SoCamera.h>

namespace {
// Of a letter of the labels' font, with the air that keeps neighbours apart.
constexpr int letterWidth = 11;
constexpr int letterHeight = 24;
}  // namespace

LabelPlaces::LabelPlaces(const SoCamera& camera, const SbViewportRegion& viewport)
    : columns(viewport.getWindowSize()[0] / cellWidth + 1),
      rows(viewport.getWindowSize()[1] / cellHeight + 1),
      taken(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {
  const SbViewVolume volume = camera.getViewVolume(viewport.getViewportAspectRatio());
  screenFromScene = volume.getMatrix();
}

bool LabelPlaces::take(const SbVec3f& point, const std::string& text) {
  SbVec4f clip;
  screenFromScene.multVecMatrix(SbVec4f(point[0], point[1], point[2], 1.0F), clip);
  if (!(clip[3] > 0.0F)) return false;
  const float x = 0.5F * (1.0F + clip[0] / clip[3]) * static_cast<float>(columns);
  const float y = 0.5F * (1.0F + clip[1] / clip[3]) * static_cast<float>(rows);
  if (!(x >= 0.0F && y >= 0.0F && x < static_cast<float>(columns) &&
        y < static_cast<float>(rows))) {
    return false;
  }
  const int left = static_cast<int>(x);
  const int bottom = static_cast<int>(y);
  const int right = left + (static_cast<int>(text.size() + 1) * letterWidth) / cellWidth;
  const int top = bottom + letterHeight / cellHeight;
  const auto cell = [this](int column, int row) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
           static_cast<std::size_t>(column);
  };
  if (right >= columns || top >= rows) return false;
  for (int row = bottom; row <= top; ++row) {
    for (int column = left; column <= right; ++column) {
      if (taken[cell(column, row)]) return false;
    }
  }
  for (int row = bottom; row <= top; ++row) {
    for (int column = left; column <= right; ++column) taken[cell(column, row)] = true;
  }
  return true;
}
