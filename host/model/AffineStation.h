#pragma once

#include "host/TarnOIHostExport.h"

namespace tarn {

class BasicAffine;
class CameraStation;

/// Brings camera stations through an affine, in its direction of conversion.
class TARN_HOST_EXPORT AffineStation {
public:
  /// The affine must outlive this object and be set up.
  explicit AffineStation(const BasicAffine* affine) : _affine(affine) {}

  /// Makes a station with the same camera, photograph and name at the converted place,
  /// turned along; the caller owns it. Returns 0, and makes none, when there is no
  /// station or no affine, or when a direction of the station has no length.
  int ConvertStation(const CameraStation* station, CameraStation** converted) const;

private:
  const BasicAffine* _affine;
};

}  // namespace tarn
