#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VString.h"
#include "host/general/Point2DDouble.h"
#include "host/general/Point3DDouble.h"
#include "host/model/MatrixDouble.h"

namespace tarn {

class Camera;
class Photograph;

extern TARN_HOST_EXPORT VClass CameraStationCls;

/// A camera station: where a camera stood and how it was turned (its exterior
/// orientation), with the camera and the photograph it took there.
class TARN_HOST_EXPORT CameraStation : public VObject {
public:
  /// Non-zero when the exterior orientation is known.
  virtual int IsOriented() const { return _oriented; }
  /// The projection centre, in model coordinates.
  virtual Point3DDouble GetPosition() const { return _position; }
  /// The 3x3 matrix whose rows are the camera's right, up and back directions in
  /// the model: camera_from_model. The identity for a station that is not oriented.
  virtual MatrixDouble GetRotationMatrix() const { return _rotation; }
  /// A position by satellite, in model coordinates. Returns 0 when there is none.
  virtual int GetGPSPosition(Point3DDouble& position) const;

  /// Where the photograph shows a point of the model, in pixels, lens distortion included (see
  /// Camera::Project). Returns 0, and leaves `pixel` as it was, where it does not: the station is
  /// not oriented, has no camera, or the point is not in front of it.
  virtual int ProjectPoint(const Point3DDouble& point, Point2DDouble& pixel) const;

  /// The camera; null when the station has none. `active` is kept for hosts that
  /// tell apart the camera in use (1) and the one first assigned (0).
  virtual Camera* GetCamera(int active) const;
  virtual Photograph* GetPhotograph() const { return _photograph; }
  /// The name under which users know the station (the picture's file name).
  virtual const VString& GetName() const { return _name; }

  /// Sets the exterior orientation; the station is oriented from then on.
  void SetOrientation(const Point3DDouble& position, const MatrixDouble& rotation);
  void SetOriented(int oriented) { _oriented = oriented; }
  void SetGPSPosition(const Point3DDouble& position);
  void SetCamera(Camera* camera) { _camera = camera; }
  void SetPhotograph(Photograph* photograph) { _photograph = photograph; }
  void SetName(const VString& name) { _name = name; }

  VClass* iam() const override { return &CameraStationCls; }

private:
  int _oriented = 0;
  int _hasGPSPosition = 0;
  Point3DDouble _position;
  Point3DDouble _gpsPosition;
  MatrixDouble _rotation = MatrixDouble::Identity(3);
  Camera* _camera = nullptr;
  Photograph* _photograph = nullptr;
  VString _name;
};

}  // namespace tarn
