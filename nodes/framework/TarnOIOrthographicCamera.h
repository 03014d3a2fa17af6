#pragma once

#include <Inventor/nodes/SoOrthographicCamera.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/FrontRectangle.h"
#include "nodes/framework/NodeRegistration.h"

/// An orthographic camera that looks through a rectangle rather than by a height, from the
/// origin along -z: its position and orientation take no part.
///
///     auto* camera = new TarnOIOrthographicCamera;
///     camera->viewportMapping.setValue(SoCamera::LEAVE_ALONE);
///     camera->SetLLF(0.0F, 0.0F, 0.0F);
///     camera->SetLRF(640.0F, 0.0F, 0.0F);
///     camera->SetULF(0.0F, 480.0F, 0.0F);
///
/// All three corners have to be set before it is used.
class TARNOI_EXPORT TarnOIOrthographicCamera : public SoOrthographicCamera, public FrontRectangle {
  TARNOI_NODE_HEADER(TarnOIOrthographicCamera);

public:
  TarnOIOrthographicCamera();
  /// Copies the corners, as assignment does, and no field. Coin's `copy` copies the fields and
  /// leaves the corners to be set.
  TarnOIOrthographicCamera(const TarnOIOrthographicCamera& other);
  TarnOIOrthographicCamera& operator=(const TarnOIOrthographicCamera& other);

  using SoCamera::getViewVolume;
  /// The box behind the corners: left and bottom from the lower left, right from the lower
  /// right, top from the upper left; the near and far distances from the fields. It stays in
  /// the camera's own frame: position, orientation, height and aspectRatio, the corners' z and
  /// the argument take no part.
  SbViewVolume getViewVolume(float useAspectRatio = 0.0F) const override;

protected:
  ~TarnOIOrthographicCamera() override;
};
