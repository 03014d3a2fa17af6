#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/general/Point2DDouble.h"
#include "host/model/LensDistortion.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass CameraCls;

/// A camera: its interior orientation. Focal length and format are in millimetres
/// on the sensor; image points are in pixels, x to the right and y down, the centre
/// of the upper left pixel at (0.5, 0.5).
class TARN_HOST_EXPORT Camera : public VObject {
public:
  /// The focal length, in millimetres.
  virtual double GetFocalLength() const { return _focalLength; }
  /// The size of the picture on the sensor, in millimetres. Its proportion differs
  /// from the picture's in pixels when the pixels are not square.
  virtual void GetFormatSize(double& width, double& height) const;

  /// Where the optical axis meets the picture, in pixels.
  virtual Point2DDouble GetPrincipalPoint() const { return _principalPoint; }
  /// The picture's size, in pixels.
  virtual void GetImageSize(int& width, int& height) const;
  /// How far the lens departs from the ideal camera.
  virtual const LensDistortion& GetLensDistortion() const { return _distortion; }

  void SetFocalLength(double millimetres) { _focalLength = millimetres; }
  void SetFormatSize(double width, double height);
  void SetImageSize(int width, int height);
  void SetPrincipalPoint(const Point2DDouble& pixel) { _principalPoint = pixel; }
  void SetLensDistortion(const LensDistortion& distortion) { _distortion = distortion; }
  /// The focal lengths in pixels, horizontally and vertically.
  Point2DDouble focalLengthsInPixels() const;

  /// The image point, in pixels and with lens distortion, of a point in the camera
  /// frame (x right, y up, z back, as the rows of a station's rotation matrix are).
  /// Returns 0, and leaves `pixel` as it was, for a point that is not in front of the
  /// camera or that the lens does not show.
  int Project(const double pointInCamera[3], Point2DDouble& pixel) const;

  /// The image point that the ideal camera (no distortion, principal point in the
  /// middle of the picture) has where this camera has `pixel`.
  /// Returns 0 when the distortion cannot be undone there.
  int IdealPixel(const Point2DDouble& pixel, Point2DDouble& ideal) const;

  VClass* iam() const override { return &CameraCls; }

private:
  double _focalLength = 24.0;
  double _formatWidth = 36.0;
  double _formatHeight = 24.0;
  int _imageWidth = 3600;
  int _imageHeight = 2400;
  Point2DDouble _principalPoint{1800.0, 1200.0};
  LensDistortion _distortion;
};

}  // namespace tarn
