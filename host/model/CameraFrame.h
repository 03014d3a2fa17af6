#pragma once

#include "host/general/Point3DDouble.h"
#include "host/model/MatrixDouble.h"

#include <array>

namespace tarn {

/// A ray of the model in the camera's frame: x to the right, y up, z back.
/// @param rotation camera_from_model, as CameraStation::GetRotationMatrix gives it
inline std::array<double, 3> inCameraFrame(const MatrixDouble& rotation, const Point3DDouble& ray) {
  const auto along = [&](int axis) {
    return rotation(axis, 1) * ray.x + rotation(axis, 2) * ray.y + rotation(axis, 3) * ray.z;
  };
  return {along(1), along(2), along(3)};
}

}  // namespace tarn
