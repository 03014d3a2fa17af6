#pragma once

#include <Inventor/nodes/SoPerspectiveCamera.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/FrontRectangle.h"
#include "nodes/framework/NodeRegistration.h"

/// A perspective camera that looks through a rectangle, such as the image frame of a
/// photograph, rather than by an angle: its view volume may be off its axis.
///
///     auto* camera = new TarnOIPerspectiveCamera;
///     camera->viewportMapping.setValue(SoCamera::LEAVE_ALONE);
///     camera->SetLLF(-1.5F, -1.0F, 2.0F);  // two units ahead, a little to the left
///     camera->SetLRF(1.0F, -1.0F, 2.0F);
///     camera->SetULF(-1.5F, 1.0F, 2.0F);
///
/// All three corners have to be set before it is used.
class TARNOI_EXPORT TarnOIPerspectiveCamera : public SoPerspectiveCamera, public FrontRectangle {
  TARNOI_NODE_HEADER(TarnOIPerspectiveCamera);

public:
  TarnOIPerspectiveCamera();
  /// Copies the corners, as assignment does, and no field. Coin's `copy` copies the fields and
  /// leaves the corners to be set.
  TarnOIPerspectiveCamera(const TarnOIPerspectiveCamera& other);
  TarnOIPerspectiveCamera& operator=(const TarnOIPerspectiveCamera& other);

  using SoCamera::getViewVolume;
  /// The frustum through the corners: left and bottom from the lower left, right from the lower
  /// right, top from the upper left, the near distance from the lower left's z, which counts
  /// ahead; the far distance, orientation and position from the fields. The fields
  /// nearDistance, heightAngle and aspectRatio and the argument take no part.
  SbViewVolume getViewVolume(float useAspectRatio = 0.0F) const override;

protected:
  ~TarnOIPerspectiveCamera() override;
};
