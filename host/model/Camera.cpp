#include "host/model/Camera.h"

#include <cmath>

namespace tarn {

VClass CameraCls("Camera", &VObjectCls, []() -> VObject* { return new Camera; });

void Camera::GetFormatSize(double& width, double& height) const {
  width = _formatWidth;
  height = _formatHeight;
}

void Camera::GetImageSize(int& width, int& height) const {
  width = _imageWidth;
  height = _imageHeight;
}

void Camera::SetFormatSize(double width, double height) {
  _formatWidth = width;
  _formatHeight = height;
}

void Camera::SetImageSize(int width, int height) {
  _imageWidth = width;
  _imageHeight = height;
}

Point2DDouble Camera::focalLengthsInPixels() const {
  double formatWidth = 0.0;
  double formatHeight = 0.0;
  GetFormatSize(formatWidth, formatHeight);
  int width = 0;
  int height = 0;
  GetImageSize(width, height);
  return {GetFocalLength() * width / formatWidth, GetFocalLength() * height / formatHeight};
}

int Camera::Project(const double pointInCamera[3], Point2DDouble& pixel) const {
  const double depth = -pointInCamera[2];
  if (!(depth > 0.0)) return 0;
  const Point2DDouble distorted =
      GetLensDistortion().Distort({pointInCamera[0] / depth, -pointInCamera[1] / depth});
  const Point2DDouble focal = focalLengthsInPixels();
  const Point2DDouble centre = GetPrincipalPoint();
  const Point2DDouble result{centre.x + focal.x * distorted.x, centre.y + focal.y * distorted.y};
  if (!std::isfinite(result.x) || !std::isfinite(result.y)) return 0;
  pixel = result;
  return 1;
}

int Camera::IdealPixel(const Point2DDouble& pixel, Point2DDouble& ideal) const {
  const Point2DDouble focal = focalLengthsInPixels();
  const Point2DDouble centre = GetPrincipalPoint();
  Point2DDouble onPlane;
  if (!GetLensDistortion().Undistort(
          {(pixel.x - centre.x) / focal.x, (pixel.y - centre.y) / focal.y}, onPlane)) {
    return 0;
  }
  int width = 0;
  int height = 0;
  GetImageSize(width, height);
  ideal = {0.5 * width + focal.x * onPlane.x, 0.5 * height + focal.y * onPlane.y};
  return 1;
}

}  // namespace tarn
