#pragma once

#include <Inventor/nodes/SoSeparator.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"
#include "nodes/hud/CrossSectionMark.h"

class SbMatrix;
class SbViewportRegion;
class SoCamera;

namespace tarn {
class Extents;
class Plane3D;
}  // namespace tarn

/// Lets the user draw a line over a dense surface model and gives the plane of the model
/// that is seen as that line, from which the host draws a profile. The line is drawn in
/// screen space (see CrossSectionMark for the children).
///
/// Use, from the events of a viewer:
///   profile->SetFirstPos(x, y, width, height);            // the button goes down
///   profile->SetSecondPos(x, y, width, height, shift);    // the pointer is dragged
///   std::unique_ptr<tarn::Plane3D> plane(
///       profile->GetCrossSectionPlane(camera, &extents, viewport, matrix));
///   profile->ResetCrossSection();
class TARNOI_EXPORT TarnOIDSMProfileHUD : public SoSeparator {
  TARNOI_NODE_HEADER(TarnOIDSMProfileHUD);

public:
  TarnOIDSMProfileHUD();
  /// Shares the children's nodes without having them as children. Coin's `copy` makes a node
  /// with children of its own.
  TarnOIDSMProfileHUD(const TarnOIDSMProfileHUD& other);
  TarnOIDSMProfileHUD& operator=(const TarnOIDSMProfileHUD& other);

  /// Stores where the line begins: a pixel, counted from the lower left of a viewport of
  /// `width` times `height` pixels. Draws nothing.
  void SetFirstPos(int px, int py, int width, int height);
  /// Non-zero between SetFirstPos and ResetCrossSection.
  int HasFirstPoint() const;
  /// Stores where the line ends, and shows it. `snap` non-zero turns it to the nearest
  /// multiple of 45 degrees.
  void SetSecondPos(int px, int py, int width, int height, int snap);
  /// Hides the line and forgets that there is a first point. The drawn line stays in the
  /// coordinates until the next SetSecondPos: hosts rely on it.
  void ResetCrossSection();

  /// The plane, in model coordinates, that contains the viewing rays through both points; null
  /// when there is none. The caller owns it.
  /// @param extents of the model: its longest side is how far from the eye the plane is taken
  /// @param matrix  what stands above the camera in the scene, as a matrix for row vectors
  tarn::Plane3D* GetCrossSectionPlane(SoCamera* camera, tarn::Extents* extents,
                                      SbViewportRegion& viewport, SbMatrix& matrix);

  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIDSMProfileHUD() override;

private:
  CrossSectionMark mark;
};
