#include "host/model/CameraStation.h"

#include "host/model/Camera.h"

namespace tarn {

VClass CameraStationCls("CameraStation", &VObjectCls,
                        []() -> VObject* { return new CameraStation; });

int CameraStation::GetGPSPosition(Point3DDouble& position) const {
  if (!_hasGPSPosition) return 0;
  position = _gpsPosition;
  return 1;
}

int CameraStation::ProjectPoint(const Point3DDouble& point, Point2DDouble& pixel) const {
  const Camera* camera = GetCamera(1);
  if (!IsOriented() || !camera) return 0;
  const Point3DDouble ray = point - GetPosition();
  const MatrixDouble rotation = GetRotationMatrix();
  double inCamera[3];
  for (int row = 0; row < 3; ++row) {
    inCamera[row] =
        rotation(row + 1, 1) * ray.x + rotation(row + 1, 2) * ray.y + rotation(row + 1, 3) * ray.z;
  }
  return camera->Project(inCamera, pixel);
}

Camera* CameraStation::GetCamera(int) const { return _camera; }

void CameraStation::SetOrientation(const Point3DDouble& position, const MatrixDouble& rotation) {
  _position = position;
  _rotation = rotation;
  _oriented = 1;
}

void CameraStation::SetGPSPosition(const Point3DDouble& position) {
  _gpsPosition = position;
  _hasGPSPosition = 1;
}

}  // namespace tarn
