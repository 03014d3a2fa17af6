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
class VOrdCollect;
}  // namespace tarn

/// Lets the user draw a line or a box over a dense surface model and gives the planes of the
/// model that are seen as that line or as the box's sides, with which the host cuts its dense
/// points. The mark is drawn in screen space (see CrossSectionMark for the children).
///
/// Use, from the events of a viewer:
///   cutter->SetFirstPos(x, y, width, height);                 // the button goes down
///   cutter->SetSecondPos(x, y, width, height, shift, box);    // the pointer is dragged
///   std::unique_ptr<tarn::Plane3D> plane(
///       cutter->GetCrossSectionPlane(camera, &extents, viewport, matrix));
///   cutter->ResetCutter();
class TARNOI_EXPORT TarnOIDSMCutterHUD : public SoSeparator {
  TARNOI_NODE_HEADER(TarnOIDSMCutterHUD);

public:
  TarnOIDSMCutterHUD();
  /// Shares the children's nodes without having them as children. Coin's `copy` makes a node
  /// with children of its own.
  TarnOIDSMCutterHUD(const TarnOIDSMCutterHUD& other);
  TarnOIDSMCutterHUD& operator=(const TarnOIDSMCutterHUD& other);

  /// Stores where the mark begins: a pixel, counted from the lower left of a viewport of
  /// `width` times `height` pixels. Draws nothing.
  void SetFirstPos(int px, int py, int width, int height);
  /// Non-zero between SetFirstPos and ResetCutter.
  int HasFirstPoint() const;
  /// Stores where the mark ends, and shows it: with `box` non-zero the rectangle between both
  /// points, else the line. `snap` non-zero turns a line to the nearest multiple of 45
  /// degrees; a box ignores it.
  void SetSecondPos(int px, int py, int width, int height, int snap, int box);
  /// Empties and hides the mark, and forgets that there is a first point.
  void ResetCutter();

  /// The plane, in model coordinates, that contains the viewing rays through both points; null
  /// when there is none. The caller owns it.
  /// @param extents of the model: its longest side is how far from the eye the plane is taken
  /// @param matrix  what stands above the camera in the scene, as a matrix for row vectors
  tarn::Plane3D* GetCrossSectionPlane(SoCamera* camera, tarn::Extents* extents,
                                      SbViewportRegion& viewport, SbMatrix& matrix);

  /// The planes seen as the sides of the box between both points, in model coordinates: up
  /// to four, in the order of the sides. Going around in one sense, their normals all point
  /// out of the box or all into it. The caller owns the collection and the planes.
  /// Parameters as above.
  tarn::VOrdCollect* GetBoxPlanes(SoCamera* camera, tarn::Extents* extents,
                                  SbViewportRegion& viewport, SbMatrix& matrix);

  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIDSMCutterHUD() override;

private:
  CrossSectionMark mark;
};
