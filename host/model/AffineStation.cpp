#include "host/model/AffineStation.h"

#include "host/model/BasicAffine.h"
#include "host/model/CameraStation.h"

#include <memory>

namespace tarn {

int AffineStation::ConvertStation(const CameraStation* station, CameraStation** converted) const {
  if (!station || !_affine || !converted) return 0;
  auto result = std::make_unique<CameraStation>();
  result->SetCamera(station->GetCamera(1));
  result->SetPhotograph(station->GetPhotograph());
  result->SetName(station->GetName());

  Point3DDouble position = station->GetPosition();
  _affine->ConvertPoint(position);

  // A direction is the difference of two converted points; the affine's scale is
  // taken out again, for the rows of a rotation have unit length.
  Point3DDouble origin;
  _affine->ConvertPoint(origin);
  const MatrixDouble rows = station->GetRotationMatrix();
  MatrixDouble turned(3, 3);
  for (int row = 1; row <= 3; ++row) {
    Point3DDouble direction{rows(row, 1), rows(row, 2), rows(row, 3)};
    _affine->ConvertPoint(direction);
    direction = direction - origin;
    const double length = direction.length();
    if (!(length > 0.0)) return 0;
    turned(row, 1) = direction.x / length;
    turned(row, 2) = direction.y / length;
    turned(row, 3) = direction.z / length;
  }
  result->SetOrientation(position, turned);
  Point3DDouble satellite;
  if (station->GetGPSPosition(satellite)) {
    _affine->ConvertPoint(satellite);
    result->SetGPSPosition(satellite);
  }
  result->SetOriented(station->IsOriented());
  *converted = result.release();
  return 1;
}

}  // namespace tarn
