#include "nodes/hud/TarnOIDSMProfileHUD.h"

#include "nodes/hud/ScreenPlanes.h"

#include <array>

TARNOI_NODE_SOURCE(TarnOIDSMProfileHUD, SoSeparator);

void TarnOIDSMProfileHUD::initClass() { registration.init(&TarnOIDSMProfileHUD::atexit_cleanup); }

TarnOIDSMProfileHUD::TarnOIDSMProfileHUD() {
  TARNOI_NODE_CONSTRUCTOR();
  mark.build(*this);
}

TarnOIDSMProfileHUD::TarnOIDSMProfileHUD(const TarnOIDSMProfileHUD& other) : TarnOIDSMProfileHUD() {
  *this = other;
}

TarnOIDSMProfileHUD& TarnOIDSMProfileHUD::operator=(const TarnOIDSMProfileHUD& other) {
  mark = other.mark;
  return *this;
}

TarnOIDSMProfileHUD::~TarnOIDSMProfileHUD() = default;

void TarnOIDSMProfileHUD::SetFirstPos(int px, int py, int width, int height) {
  mark.setFirst(px, py, width, height);
}

int TarnOIDSMProfileHUD::HasFirstPoint() const { return mark.hasFirst(); }

void TarnOIDSMProfileHUD::SetSecondPos(int px, int py, int width, int height, int snap) {
  mark.setSecond(px, py, width, height, snap != 0);
  mark.setVertices(std::array{mark.first(), mark.second()});
  mark.show();
}

void TarnOIDSMProfileHUD::ResetCrossSection() {
  mark.forgetFirst();
  mark.hide();
}

tarn::Plane3D* TarnOIDSMProfileHUD::GetCrossSectionPlane(SoCamera* camera, tarn::Extents* extents,
                                                         SbViewportRegion& viewport,
                                                         SbMatrix& matrix) {
  if (!camera || !extents) return nullptr;
  const ScreenPlanes planes(*camera, *extents, viewport, matrix, "TarnOIDSMProfileHUD", 238);
  return planes.through(mark.first(), mark.second()).release();
}

void TarnOIDSMProfileHUD::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  // The constructor made a mark already.
  removeAllChildren();
  SoSeparator::copyContents(from, copyConnections);
  mark.takeOver(static_cast<const TarnOIDSMProfileHUD*>(from)->mark, *this);
}
