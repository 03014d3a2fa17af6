#include "host/model/CameraStation.h"

#include "host/model/Camera.h"
#include "host/model/CameraFrame.h"

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
  const auto inCamera = inCameraFrame(GetRotationMatrix(), point - GetPosition());
  return camera->Project(inCamera.data(), pixel);
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
