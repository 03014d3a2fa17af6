#include "nodes/hud/ScreenPlanes.h"

#include <Inventor/SbVec2f.h>
#include <Inventor/SbViewportRegion.h>
#include <Inventor/nodes/SoCamera.h>

#include "host/model/Extents.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"

namespace {

// What Coin draws through the camera. A camera that is adjusted grows with the viewport's
// shorter side.
SbViewVolume volumeOf(const SoCamera& camera, const SbViewportRegion& viewport,
                      const char* className, int line) {
  switch (camera.viewportMapping.getValue()) {
    case SoCamera::ADJUST_CAMERA: {
      const float aspect = viewport.getViewportAspectRatio();
      SbViewVolume volume = camera.getViewVolume(aspect);
      if (aspect < 1.0F) volume.scale(1.0F / aspect);
      return volume;
    }
    case SoCamera::CROP_VIEWPORT_FILL_FRAME:
    case SoCamera::CROP_VIEWPORT_LINE_FRAME:
    case SoCamera::CROP_VIEWPORT_NO_FRAME:
    case SoCamera::LEAVE_ALONE:
      break;
    default:
      TARNOI_ASSERT_AT(false, "0 && \"unknown viewport mapping\"", className, line);
  }
  return camera.getViewVolume(0.0F);
}

}  // namespace

ScreenPlanes::ScreenPlanes(const SoCamera& camera, const tarn::Extents& extents,
                           const SbViewportRegion& viewport, const SbMatrix& matrix_,
                           const char* className, int line)
    : volume(volumeOf(camera, viewport, className, line)),
      matrix(matrix_),
      distance(static_cast<float>(extents.GetLongestSide())) {}

std::unique_ptr<tarn::Plane3D> ScreenPlanes::through(const SbVec3f& a, const SbVec3f& b) const {
  auto plane = std::make_unique<tarn::Plane3D>();
  if (!plane->SetThreePoints(inModel(distance, a), inModel(distance, b),
                             inModel(2.0F * distance, b))) {
    return nullptr;
  }
  return plane;
}

tarn::Point3DDouble ScreenPlanes::inModel(float distanceFromEye, const SbVec3f& onScreen) const {
  const SbVec2f inViewport((onScreen[0] + 1.0F) * 0.5F, (onScreen[1] + 1.0F) * 0.5F);
  SbVec3f point = volume.getPlanePoint(distanceFromEye, inViewport);
  matrix.multVecMatrix(point, point);
  return ViewerFrame::toModel(point);
}
