#pragma once

#include <Inventor/SbMatrix.h>
#include <Inventor/SbVec3f.h>
#include <Inventor/SbViewVolume.h>

#include "host/model/Plane3D.h"
#include "nodes/TarnOIExport.h"

#include <memory>

class SbViewportRegion;
class SoCamera;

namespace tarn {
class Extents;
}  // namespace tarn

/// Planes of the model that are seen as lines on the screen.
class TARNOI_EXPORT ScreenPlanes {
public:
  /// @param camera    the camera that the model is seen through
  /// @param extents   of the model: its longest side says how far from the eye the points are
  ///                  taken that define a plane
  /// @param viewport  where it is drawn
  /// @param matrix    what stands above the camera in the scene, as a matrix for row vectors
  /// @param className, line  where a viewport mapping that Coin does not know is reported
  ScreenPlanes(const SoCamera& camera, const tarn::Extents& extents,
               const SbViewportRegion& viewport, const SbMatrix& matrix, const char* className,
               int line);

  /// The plane that contains the viewing rays through both points of the screen, which are in
  /// normalised device coordinates (-1 to 1); null when there is none.
  std::unique_ptr<tarn::Plane3D> through(const SbVec3f& a, const SbVec3f& b) const;

private:
  tarn::Point3DDouble inModel(float distanceFromEye, const SbVec3f& onScreen) const;

  SbViewVolume volume;
  SbMatrix matrix;
  float distance;
};
