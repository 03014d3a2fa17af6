#pragma once

#include "host/model/LensDistortion.h"

#include <string_view>

namespace tarn {

/// One of COLMAP's perspective camera models. (EQUIRECTANGULAR, a whole sphere without a focal
/// length, is no camera of the project.) Its parameters are one focal length or two, the
/// principal point, and then those of the distortion in the order of its kind.
struct ColmapCameraModel {
  int id;
  std::string_view name;
  int focalLengths;
  LensDistortion::Kind distortion;
  int distortionParameters;

  int parameters() const { return focalLengths + 2 + distortionParameters; }

  /// The model of that number or name; null when there is none.
  static const ColmapCameraModel* find(int id);
  static const ColmapCameraModel* find(std::string_view name);
};

}  // namespace tarn
